// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/AppDelegate.h"
#include "app/KeyMonitors.h"
#include "app/StartRequest.h"
#include "panel/DesktopPalette.h"
#include "panel/Translation.h"
#include "platform/client/DBusNotificationCenter.h"
#include "platform/session/PortalAppearance.h"
#include "platform/session/StopSignals.h"
#include "platform/session/SystemClock.h"
#include "platform/session/ThreadPoolTasks.h"
#include "platform/session/XdgFolders.h"
#include "platform/tray/DesktopStatusBar.h"
#include "platform/windows/WindowSystem.h"
#include "time/SystemCalendarSource.h"

#include <QGuiApplication>

#include <memory>
#include <optional>

namespace norvane {

class SingleInstance;

/// The application: makes the real parts of the platform and hands them down.
///
/// There is one Norvane in a session. A second one asks the first to show its panel and ends before
/// it has touched the trials or the notification centre.
class NorvaneApp {
public:
    NorvaneApp(int &argc, char **argv);
    ~NorvaneApp();

    /// What must be settled before the application object exists; false when it cannot exist,
    /// because there is no display.
    [[nodiscard]] static bool prepare();

    /// Runs until the user quits or the session ends; returns the process' exit status.
    [[nodiscard]] int run();

private:
    void launch(const SingleInstance &instance);

    StartRequest startRequest_;
    QGuiApplication application_;
    Translation translation_{QLocale{}};
    std::optional<PortalAppearance> appearance_;
    std::optional<DesktopPalette> palette_;
    StopSignals stopSignals_;
    SystemClock clock_;
    SystemCalendarSource calendars_;
    XdgFolders folders_;
    // The tasks end before the centre that they talk to.
    std::optional<DBusNotificationCenter> notificationCenter_;
    ThreadPoolTasks backgroundTasks_;
    DesktopStatusBar statusBar_;
    std::unique_ptr<WindowSystem> windowSystem_;
    KeyMonitors keyMonitors_;
    std::optional<AppDelegate> appDelegate_;
};

} // namespace norvane
