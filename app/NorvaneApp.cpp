// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/NorvaneApp.h"

#include "app/AppDelegate.h"
#include "app/Environment.h"
#include "app/KeyMonitors.h"
#include "app/SessionBus.h"
#include "app/SingleInstance.h"
#include "panel/DesktopPalette.h"
#include "panel/Translation.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/bus/BusNames.h"
#include "platform/client/DBusNotificationCenter.h"
#include "platform/session/FolderLock.h"
#include "platform/session/PortalAppearance.h"
#include "platform/session/SpareMemory.h"
#include "platform/session/StopSignals.h"
#include "platform/session/SystemClock.h"
#include "platform/session/ThreadPoolTasks.h"
#include "platform/session/XdgFolders.h"
#include "platform/tray/StatusArea.h"
#include "platform/windows/WindowSystem.h"

#include <QDBusMessage>
#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <tuple>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// The longest time that the window and the icon wait for the session bus.
constexpr auto timeForBus = 1s;

/// How long to wait for the folder's lock: a Norvane that is ending gives up its name on the bus a
/// little earlier than the folder.
constexpr auto timeForFolder = 1s;

/// By then a tray that exists has taken the icon.
constexpr auto timeToBeHosted = 2s;

const QString nameConnection = QStringLiteral("norvane");
const QString iconConnection = QStringLiteral("norvane-icon");

/// Ends the process where Qt calls exit() from within the event loop, which it does when the
/// display is gone. Other threads are running then, and would use globals that exit() destroys.
void endWithoutDestroying()
{
    if (QCoreApplication::instance() != nullptr) {
        std::_Exit(EXIT_FAILURE);
    }
}

int fail(const QString &reason)
{
    std::fprintf(stderr, "norvane: %s\n", qUtf8Printable(reason));
    return EXIT_FAILURE;
}

/// The notifier's place relative to this program is the same in the build tree and wherever both
/// are installed. Empty where it is not there.
QString installedNotifier()
{
    const QDir programs{QCoreApplication::applicationDirPath()};
    const QString path = QDir::cleanPath(programs.filePath(QStringLiteral(NORVANE_NOTIFIER)));
    return QFile::exists(path) ? path : QString{};
}

/// Whether another process works on the trials; false for a folder that cannot be made or locked.
bool isInUseElsewhere(FolderLock &lock, const std::filesystem::path &dataFolder)
{
    const std::filesystem::path folder = dataFolder / "Norvane";
    return !dataFolder.empty() && makePrivateFolder(folder) &&
           lock.take(folder, timeForFolder) == FolderLock::Answer::Held;
}

/// A user who starts programs from a menu does not see standard error.
void notifyDirectly(const QDBusConnection &bus, const QString &text)
{
    constexpr int timeout = 2'000;
    constexpr int usualExpiry = -1;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    call << QStringLiteral("Norvane") << 0U << busNames::application << QStringLiteral("Norvane")
         << text << QStringList{} << QVariantMap{} << usualExpiry;
    std::ignore = bus.call(call, QDBus::Block, timeout); // There may be no server.
}

int failAsSecondOfUser(const QDBusConnection &bus)
{
    //: Shown as a notification before the program ends, because of the other session.
    constexpr const char *reason = QT_TRANSLATE_NOOP(
        "NorvaneApp", "Norvane is already running in another session of this user.");
    if (bus.isConnected()) {
        notifyDirectly(bus, QCoreApplication::translate("NorvaneApp", reason));
    }
    return fail(QString::fromLatin1(reason));
}

} // namespace

int NorvaneApp::run(int &argc, char **argv)
{
    shareOneHeap();
    const StartRequest start = StartRequest::ofThisProcess();
    // The software renderer needs less memory and starts faster; the panel is too simple to gain
    // from a graphics card.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    if (!setDisplayKinds()) {
        return fail(QStringLiteral("there is no display to show anything on"));
    }
    SessionBus sessionBus{timeForBus};
    QGuiApplication application{argc, argv};
    QGuiApplication::setApplicationName(QStringLiteral("Norvane"));
    QGuiApplication::setDesktopFileName(busNames::application);
    QGuiApplication::setQuitOnLastWindowClosed(false); // The icon stays.
    const StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::stopRequested, &application,
                     &QGuiApplication::quit);
    const Translation translation{QLocale{}};

    const QDBusConnection bus = sessionBus.connectAs(nameConnection);
    bool isEnding = false;
    SingleInstance instance{[&] { return isEnding || stopSignals.isRequested(); }};
    if (!instance.isOnlyOne(bus, start.activationToken)) {
        return EXIT_SUCCESS;
    }
    const std::filesystem::path dataFolder = XdgFolders::dataFolder();
    FolderLock lock;
    if (isInUseElsewhere(lock, dataFolder)) {
        return failAsSecondOfUser(bus);
    }

    PortalAppearance appearance{bus};
    const DesktopPalette palette{appearance};
    const SystemClock clock;
    DBusNotificationCenter notificationCenter{installedNotifier(),
                                              DBusNotificationCenter::Connect::WhenToldWhere};
    ThreadPoolTasks backgroundTasks; // They end before the centre that they talk to.
    const std::unique_ptr<WindowSystem> windowSystem = WindowSystem::forThisSession();
    KeyMonitors keyMonitors;

    StatusArea *icon = nullptr; // Owned by the delegate.
    const auto makeStatusItem = [&] {
        // A connection of its own: closing it removes the icon at once.
        auto area = std::make_unique<StatusArea>(sessionBus.connectAs(iconConnection),
                                                 StatusArea::legacyProgramOfThisSession());
        if (sessionBus.isSilent()) {
            area->expectBus();
        }
        icon = area.get();
        return area;
    };
    std::optional<AppDelegate> appDelegate;
    appDelegate.emplace(Platform{.clock = clock,
                                 .dataFolder = dataFolder,
                                 .notificationCenter = notificationCenter,
                                 .backgroundTasks = backgroundTasks},
                        AppDelegate::Seams{.makeStatusItem = makeStatusItem,
                                           .windowSystem = *windowSystem,
                                           .keyMonitors = keyMonitors});
    appDelegate->applicationDidFinishLaunching();
    QObject::connect(
        &*appDelegate, &AppDelegate::panelFailed, &application, [](const QString &reason) {
            QGuiApplication::exit(fail(QStringLiteral("the panel cannot be loaded: ") + reason));
        });
    QObject::connect(&instance, &SingleInstance::activated, &*appDelegate,
                     &AppDelegate::showPopover);
    if (start.byHand) {
        QTimer::singleShot(timeToBeHosted, &*appDelegate,
                           [&] { appDelegate->showPopoverWithoutHost(start.activationToken); });
    }
    if (!sessionBus.isSilent()) {
        notificationCenter.setBusAddress(sessionBus.address());
    }
    QObject::connect(&sessionBus, &SessionBus::answered, &*appDelegate, [&] {
        instance.takeName(sessionBus.connectAs(nameConnection));
        icon->useBus(sessionBus.connectAs(iconConnection));
        notificationCenter.setBusAddress(sessionBus.address());
    });

    // Registered as late as possible, because exit handlers run in reverse order. If registering
    // fails, only the exit after losing the display is affected.
    std::ignore = std::atexit(endWithoutDestroying);
    const int status = QGuiApplication::exec();
    // Handing the last calls to the centre may take some seconds; the user need not see that.
    isEnding = true;
    appDelegate.reset();
    QDBusConnection::disconnectFromBus(iconConnection);
    QGuiApplication::sync();
    return status;
}

} // namespace norvane
