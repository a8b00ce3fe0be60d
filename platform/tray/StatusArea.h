// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusItem.h"
#include "platform/tray/LegacyTray.h"
#include "platform/tray/StatusNotifierItem.h"
#include "platform/tray/WatcherLink.h"

#include <QDBusConnection>

#include <memory>
#include <optional>

namespace norvane {

/// Shows the status item in whichever kind of tray the desktop has at the moment.
///
/// On a desktop with a watcher for status items, the item is offered on the bus. While there is no
/// watcher and Norvane runs on X11, the icon goes into the X11 system tray, if there is one. When
/// one kind of tray disappears and the other is there, the icon moves, so there is always one icon
/// wherever one is possible.
class StatusArea final : public StatusItem {
    Q_OBJECT

public:
    /// `legacyProgram` is the program that shows the icon in an X11 tray; empty if none may.
    StatusArea(const QDBusConnection &bus, QString legacyProgram);

    /// The program for X11 trays that is installed with this one; empty where the display is not
    /// X11. Needs the application object.
    [[nodiscard]] static QString legacyProgramOfThisSession();

    /// Says that there may be a bus later, so that there is a button before.
    void expectBus() { isBusExpected_ = true; }
    /// Moves the item to another bus.
    void useBus(const QDBusConnection &bus);

    [[nodiscard]] bool hasButton() const override;
    void setImage(const QString &iconName, const QString &accessibilityDescription) override;
    [[nodiscard]] bool isHosted() const override;

private:
    /// What belongs to one bus.
    struct OnBus {
        StatusNotifierItem item;
        WatcherLink watcher;

        explicit OnBus(const QDBusConnection &bus) : item{bus}, watcher{bus} {}
    };

    void choose();

    QString legacyProgram_;
    QString iconName_;
    QString description_;
    bool isBusExpected_ = false;
    std::optional<OnBus> onBus_;             ///< Always there after the construction.
    std::unique_ptr<LegacyTray> legacyTray_; ///< Only while there is no watcher.
};

} // namespace norvane
