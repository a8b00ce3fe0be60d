// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/AccessibleItem.h"

#include "panel/AccessibleList.h"
#include "panel/AccessibleTable.h"
#include "panel/AccessibleTextField.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace norvane {

namespace {

/// The object behind an item's `Accessible` properties; nothing where it has none.
QObject *accessibleProperties(const QObject *item)
{
    const QObjectList &children = item->children();
    const auto found = std::ranges::find_if(
        children, [](const QObject *child) { return child->inherits("QQuickAccessibleAttached"); });
    return found != children.end() ? *found : nullptr;
}

QAccessibleInterface *make(const QString &className, QObject *object)
{
    auto *const item = qobject_cast<QQuickItem *>(object);
    const QObject *const properties = item != nullptr ? accessibleProperties(item) : nullptr;
    if (properties == nullptr || properties->property("ignored").toBool()) {
        return nullptr;
    }
    if (className == QStringLiteral("QQuickTextInput")) {
        return new AccessibleTextField{item};
    }
    if (className == QStringLiteral("QQuickListView")) {
        return new AccessibleList{item};
    }
    if (className == QStringLiteral("QQuickGrid")) {
        return new AccessibleTable{item};
    }
    // Not by its role, which may not be set yet when an item gets the focus as soon as it is made.
    if (className == QStringLiteral("QQuickItem") && item->parentItem() != nullptr &&
        item->parentItem()->inherits("QQuickGrid")) {
        return new AccessibleCell{item};
    }
    if (className == QStringLiteral("QQuickAbstractButton")) {
        return new AccessibleItem{item};
    }
    return nullptr;
}

/// Tells a screen reader where the focus is in a window that became active. Qt says so only when
/// the focus moves, and a window that is shown again has it where it was.
void sayFocus(QWindow *active)
{
    const auto *const window = qobject_cast<QQuickWindow *>(active);
    QQuickItem *const focused = window != nullptr ? window->activeFocusItem() : nullptr;
    if (focused != nullptr && QAccessible::queryAccessibleInterface(focused) != nullptr) {
        QAccessibleEvent event{focused, QAccessible::Focus};
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace

AccessibleItem::AccessibleItem(QQuickItem *item) : QAccessibleObject{item}
{
    QObject::connect(item, &QQuickItem::enabledChanged, item, [item] {
        QAccessible::State changed;
        changed.disabled = true;
        QAccessibleStateChangeEvent event{item, changed};
        QAccessible::updateAccessibility(&event);
    });
}

void AccessibleItem::install()
{
    QAccessible::installFactory(make);
    [[maybe_unused]] static const QMetaObject::Connection once =
        QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, sayFocus);
}

QQuickItem *AccessibleItem::item() const
{
    return static_cast<QQuickItem *>(object());
}

QWindow *AccessibleItem::window() const
{
    return item()->window();
}

QAccessibleInterface *AccessibleItem::parent() const
{
    for (QQuickItem *above = item()->parentItem(); above != nullptr; above = above->parentItem()) {
        if (QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(above)) {
            return found;
        }
    }
    return QAccessible::queryAccessibleInterface(item()->window());
}

QAccessibleInterface *AccessibleItem::child(int /*index*/) const
{
    return nullptr;
}

int AccessibleItem::childCount() const
{
    return 0;
}

int AccessibleItem::indexOfChild(const QAccessibleInterface * /*child*/) const
{
    return -1;
}

QString AccessibleItem::text(QAccessible::Text kind) const
{
    const QObject *const properties = accessibleProperties(item());
    if (kind == QAccessible::Name) {
        return properties->property("name").toString();
    }
    return kind == QAccessible::Description ? properties->property("description").toString()
                                            : QString{};
}

QRect AccessibleItem::rect() const
{
    const QQuickWindow *const window = item()->window();
    if (window == nullptr) {
        return {};
    }
    QRectF visible = item()->mapRectToScene({0, 0, item()->width(), item()->height()});
    for (const QQuickItem *above = item()->parentItem(); above != nullptr;
         above = above->parentItem()) {
        if (above->clip()) {
            visible &= above->mapRectToScene(above->clipRect());
        }
    }
    return {window->mapToGlobal(visible.topLeft().toPoint()), visible.size().toSize()};
}

QAccessible::Role AccessibleItem::role() const
{
    return static_cast<QAccessible::Role>(accessibleProperties(item())->property("role").toInt());
}

QAccessible::State AccessibleItem::state() const
{
    QAccessible::State state;
    state.disabled = !item()->isEnabled();
    // A focus scope forwards the focus to an item inside it, which reports it then.
    state.focusable = item()->isEnabled() && !item()->isFocusScope();
    state.focused = item()->hasActiveFocus() && !item()->isFocusScope();
    state.invisible = !item()->isVisible();
    state.offscreen = rect().isEmpty();
    return state;
}

QStringList AccessibleItem::actionNames() const
{
    if (!item()->isEnabled()) {
        return {};
    }
    const bool canBePressed = role() == QAccessible::Button || role() == QAccessible::Cell;
    return canBePressed ? QStringList{pressAction(), setFocusAction()}
                        : QStringList{setFocusAction()};
}

void AccessibleItem::doAction(const QString &name)
{
    if (!actionNames().contains(name)) {
        return;
    }
    if (name == setFocusAction()) {
        item()->forceActiveFocus(Qt::OtherFocusReason);
    } else {
        QMetaObject::invokeMethod(accessibleProperties(item()), "pressAction");
    }
}

QStringList AccessibleItem::keyBindingsForAction(const QString & /*name*/) const
{
    return {};
}

void *AccessibleItem::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
}

} // namespace norvane
