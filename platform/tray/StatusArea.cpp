// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/StatusArea.h"

#include <QDir>
#include <QGuiApplication>

#include <utility>

namespace norvane {

StatusArea::StatusArea(const QDBusConnection &bus, QString legacyProgram)
    : legacyProgram_{std::move(legacyProgram)}
{
    useBus(bus);
}

QString StatusArea::legacyProgramOfThisSession()
{
    if (QGuiApplication::platformName() != u"xcb") {
        return {};
    }
    const QDir programs{QGuiApplication::applicationDirPath()};
    return QDir::cleanPath(programs.filePath(QStringLiteral(NORVANE_LEGACY_TRAY)));
}

void StatusArea::useBus(const QDBusConnection &bus)
{
    isBusExpected_ = bus.isConnected();
    onBus_.emplace(bus);
    connect(&onBus_->item, &StatusNotifierItem::pressed, this, &StatusItem::pressed);
    connect(&onBus_->item, &StatusNotifierItem::openRequested, this, &StatusItem::openRequested);
    connect(&onBus_->watcher, &WatcherLink::changed, this, &StatusArea::choose);
    onBus_->item.setImage(iconName_, description_);
    onBus_->watcher.start();
}

bool StatusArea::hasButton() const
{
    return isBusExpected_ || !legacyProgram_.isEmpty();
}

void StatusArea::setImage(const QString &iconName, const QString &accessibilityDescription)
{
    iconName_ = iconName;
    description_ = accessibilityDescription;
    onBus_->item.setImage(iconName, accessibilityDescription);
    if (legacyTray_) {
        legacyTray_->setIconName(iconName);
    }
}

bool StatusArea::isHosted() const
{
    return onBus_->watcher.hasHost() || (legacyTray_ && legacyTray_->isShown());
}

void StatusArea::choose()
{
    if (!onBus_->watcher.isAbsent() || legacyProgram_.isEmpty()) {
        legacyTray_.reset();
    } else if (!legacyTray_) {
        legacyTray_ = std::make_unique<LegacyTray>(legacyProgram_);
        legacyTray_->setIconName(iconName_);
        connect(legacyTray_.get(), &LegacyTray::pressed, this, &StatusItem::pressed);
    }
}

} // namespace norvane
