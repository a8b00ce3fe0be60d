// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/StatusNotifierItem.h"

#include "StatusNotifierItemAdaptor.h"
#include "platform/tray/IconDrawing.h"

#include <utility>

namespace norvane {

namespace {

const QString itemPath = QStringLiteral("/StatusNotifierItem");

} // namespace

StatusNotifierItem::StatusNotifierItem(const QDBusConnection &bus) : bus_{bus}, menu_{bus}
{
    new StatusNotifierItemAdaptor{this}; // Owned by this object.
    if (bus_.isConnected() &&
        !bus_.registerObject(itemPath, this, QDBusConnection::ExportAdaptors)) {
        qWarning("The icon cannot be put on the session bus.");
    }
    connect(&menu_, &TrayMenu::openChosen, this,
            [this] { emit openRequested(pressAt(std::nullopt)); });
}

StatusNotifierItem::~StatusNotifierItem()
{
    bus_.unregisterObject(itemPath);
}

void StatusNotifierItem::setImage(const QString &iconName, const QString &accessibilityDescription)
{
    iconName_ = iconName;
    iconDescription_ = accessibilityDescription;
    iconPixmap_.reset();
    emit NewIcon();
}

norvane::ToolTip StatusNotifierItem::toolTip()
{
    return {.iconName = {}, .iconPixmap = {}, .title = title(), .text = {}};
}

IconPixmapList StatusNotifierItem::iconPixmap()
{
    if (!iconPixmap_) {
        iconPixmap_.emplace();
        for (const QImage &image : IconDrawing::inAllSizes(iconName_)) {
            iconPixmap_->append(norvane::IconPixmap::of(image));
        }
    }
    return *iconPixmap_;
}

void StatusNotifierItem::Activate(int x, int y)
{
    emit pressed(pressAt(QPoint{x, y}));
}

void StatusNotifierItem::SecondaryActivate(int /*x*/, int /*y*/) {}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    emit openRequested(pressAt(QPoint{x, y}));
}

void StatusNotifierItem::Scroll(int /*delta*/, const QString & /*orientation*/) {}

void StatusNotifierItem::ProvideXdgActivationToken(const QString &token)
{
    activationToken_ = token;
}

IconPress StatusNotifierItem::pressAt(std::optional<QPoint> place)
{
    return {.icon = {}, .place = place, .activationToken = std::exchange(activationToken_, {})};
}

} // namespace norvane
