// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/AccessibleList.h"

#include <QAbstractItemModel>
#include <QQuickItem>
#include <QQuickWindow>

#include <utility>

namespace norvane {

AccessibleList::AccessibleList(QQuickItem *list) : AccessibleItem{list} {}

AccessibleList::~AccessibleList()
{
    for (const QAccessible::Id id : std::as_const(unseen_)) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

const QAbstractItemModel *AccessibleList::model() const
{
    return item()->property("model").value<QAbstractItemModel *>();
}

QQuickItem *AccessibleList::itemOf(int row) const
{
    QQuickItem *found = nullptr;
    const bool asked = QMetaObject::invokeMethod(
        item(), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, found), Q_ARG(int, row));
    return asked ? found : nullptr;
}

QAccessibleInterface *AccessibleList::child(int index) const
{
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    if (QQuickItem *const seen = itemOf(index)) {
        return QAccessible::queryAccessibleInterface(seen);
    }
    return unseen(model()->index(index, 0));
}

QAccessibleInterface *AccessibleList::unseen(const QModelIndex &row) const
{
    if (const auto known = unseen_.constFind(row); known != unseen_.cend()) {
        return QAccessible::accessibleInterface(*known);
    }
    // There are more interfaces than rows, so some belong to removed rows.
    if (unseen_.size() >= childCount()) {
        unseen_.removeIf([](const auto &entry) {
            if (entry.key().isValid()) {
                return false;
            }
            QAccessible::deleteAccessibleInterface(entry.value());
            return true;
        });
    }
    const QAccessible::Id id = QAccessible::registerAccessibleInterface(new UnseenRow{item(), row});
    unseen_.insert(row, id);
    return QAccessible::accessibleInterface(id);
}

int AccessibleList::childCount() const
{
    const QAbstractItemModel *const rows = model();
    return rows != nullptr ? rows->rowCount() : 0;
}

int AccessibleList::indexOfChild(const QAccessibleInterface *child) const
{
    if (const auto *const unseen = dynamic_cast<const UnseenRow *>(child)) {
        return unseen->row();
    }
    const QObject *const seen = child != nullptr ? child->object() : nullptr;
    const int row = seen != nullptr ? seen->property("index").value<int>() : -1;
    return row >= 0 && itemOf(row) == seen ? row : -1;
}

QAccessibleInterface *AccessibleList::childAt(int x, int y) const
{
    const QQuickWindow *const window = item()->window();
    if (window == nullptr) {
        return nullptr;
    }
    const QPointF place = item()->mapFromScene(window->mapFromGlobal(QPoint{x, y}));
    int row = -1;
    const bool asked =
        item()->contains(place) &&
        QMetaObject::invokeMethod(item(), "indexAt", Q_RETURN_ARG(int, row),
                                  Q_ARG(qreal, place.x() + item()->property("contentX").toReal()),
                                  Q_ARG(qreal, place.y() + item()->property("contentY").toReal()));
    return asked ? child(row) : nullptr;
}

UnseenRow::UnseenRow(QQuickItem *list, const QModelIndex &row) : list_{list}, row_{row} {}

bool UnseenRow::isValid() const
{
    return !list_.isNull() && row_.isValid();
}

QWindow *UnseenRow::window() const
{
    return isValid() ? list_->window() : nullptr;
}

QAccessibleInterface *UnseenRow::parent() const
{
    return isValid() ? QAccessible::queryAccessibleInterface(list_) : nullptr;
}

QString UnseenRow::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return row_.data(Qt::AccessibleTextRole).toString();
    case QAccessible::Description:
        return row_.data(Qt::AccessibleDescriptionRole).toString();
    default:
        return {};
    }
}

QAccessible::State UnseenRow::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    state.offscreen = true;
    return state;
}

} // namespace norvane
