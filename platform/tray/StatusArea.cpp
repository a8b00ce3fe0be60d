// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/StatusArea.h"

#include <utility>

namespace norvane {

StatusArea::StatusArea(const QDBusConnection &bus, QString legacyProgram)
    : bus_{bus},
      legacyProgram_{std::move(legacyProgram)},
      item_{bus},
      watcher_{bus}
{
    connect(&item_, &StatusNotifierItem::pressed, this, &StatusItem::pressed);
    connect(&item_, &StatusNotifierItem::openRequested, this, &StatusItem::openRequested);
    connect(&watcher_, &WatcherLink::changed, this, &StatusArea::choose);
    watcher_.start();
}

bool StatusArea::hasButton() const
{
    return bus_.isConnected() || !legacyProgram_.isEmpty();
}

void StatusArea::setImage(const QString &iconName, const QString &accessibilityDescription)
{
    iconName_ = iconName;
    item_.setImage(iconName, accessibilityDescription);
    if (legacyTray_) {
        legacyTray_->setIconName(iconName);
    }
}

bool StatusArea::isHosted() const
{
    return watcher_.hasHost() || (legacyTray_ && legacyTray_->isShown());
}

void StatusArea::choose()
{
    const bool wanted = watcher_.isDecided() && !watcher_.isPresent() && !legacyProgram_.isEmpty();
    if (!wanted) {
        legacyTray_.reset();
    } else if (!legacyTray_) {
        legacyTray_ = std::make_unique<LegacyTray>(legacyProgram_);
        legacyTray_->setIconName(iconName_);
        connect(legacyTray_.get(), &LegacyTray::pressed, this, &StatusItem::pressed);
    }
}

} // namespace norvane
