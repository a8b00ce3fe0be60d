// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusItem.h"
#include "platform/tray/LegacyTray.h"
#include "platform/tray/StatusNotifierItem.h"
#include "platform/tray/WatcherLink.h"

#include <QDBusConnection>

#include <memory>

namespace norvane {

/// The status item on whatever kind of tray the desktop has at the moment.
///
/// A desktop with a watcher of status items gets the item on the bus. While there is no watcher,
/// and Norvane runs on X11, the icon goes into the X11 system tray, if there is one. The two take
/// over from each other, so that there is one icon wherever one can be.
class StatusArea final : public StatusItem {
    Q_OBJECT

public:
    /// `legacyProgram` is the process that shows the icon in an X11 tray; empty for never.
    StatusArea(const QDBusConnection &bus, QString legacyProgram);

    [[nodiscard]] bool hasButton() const override;
    void setImage(const QString &iconName, const QString &accessibilityDescription) override;
    [[nodiscard]] bool isHosted() const override;

private:
    void choose();

    QDBusConnection bus_;
    QString legacyProgram_;
    StatusNotifierItem item_;
    WatcherLink watcher_;
    QString iconName_;
    std::unique_ptr<LegacyTray> legacyTray_; ///< Only while there is no watcher.
};

} // namespace norvane
