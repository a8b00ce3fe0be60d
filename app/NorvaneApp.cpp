// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/NorvaneApp.h"

#include "app/DisplayChoice.h"
#include "app/SingleInstance.h"
#include "platform/Platform.h"
#include "platform/bus/BusNames.h"

#include <QDBusConnection>
#include <QQuickWindow>
#include <QTimer>

#include <chrono>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// In this time a tray that there is has taken the icon.
constexpr auto timeToBeHosted = 2s;

/// In a build tree, where nothing is installed, the notifier lies in the folder beside this one.
QString notifierOfThisTree()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../notifier/norvane-notifier");
}

} // namespace

NorvaneApp::NorvaneApp(int &argc, char **argv)
    : startRequest_{StartRequest::ofThisProcess()},
      application_{argc, argv}
{
    QGuiApplication::setApplicationName(QStringLiteral("Norvane"));
    QGuiApplication::setDesktopFileName(busNames::application);
    QGuiApplication::setQuitOnLastWindowClosed(false); // The icon stays.
    QObject::connect(&stopSignals_, &StopSignals::stopRequested, &application_,
                     &QGuiApplication::quit);
}

NorvaneApp::~NorvaneApp() = default;

bool NorvaneApp::prepare()
{
    // Small and quick to start; the panel has nothing for a graphics card to do.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    return DisplayChoice::make();
}

int NorvaneApp::run()
{
    SingleInstance instance{QDBusConnection::sessionBus()};
    const bool isTheOne =
        instance.claim() ||
        (!instance.activateOther(startRequest_.activationToken) && instance.succeedOther());
    if (!isTheOne) {
        return EXIT_SUCCESS;
    }
    launch(instance);
    return QGuiApplication::exec();
}

void NorvaneApp::launch(const SingleInstance &instance)
{
    windowSystem_ = WindowSystem::forThisSession();
    appearance_.emplace(QDBusConnection::sessionBus());
    palette_.emplace(*appearance_);
    notificationCenter_.emplace(notifierOfThisTree());
    appDelegate_.emplace(Platform{.clock = clock_,
                                  .calendars = calendars_,
                                  .folders = folders_,
                                  .notificationCenter = *notificationCenter_,
                                  .backgroundTasks = backgroundTasks_},
                         AppDelegate::Seams{.statusBar = statusBar_,
                                            .windowSystem = *windowSystem_,
                                            .keyMonitors = keyMonitors_});
    appDelegate_->applicationDidFinishLaunching();
    QObject::connect(&instance, &SingleInstance::activated, &*appDelegate_,
                     &AppDelegate::showPopover);
    if (startRequest_.byHand) {
        QTimer::singleShot(timeToBeHosted, &*appDelegate_, [this] {
            appDelegate_->showPopoverWithoutHost(startRequest_.activationToken);
        });
    }
}

} // namespace norvane
