// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

#include <sys/types.h>

namespace norvane {

/// A session bus of the test's own, with the limits of a real one, that becomes this process'.
///
/// Make it before anything asks for the session bus: the bus library looks up the address once.
class PrivateSessionBus {
public:
    /// Ends the test program when the bus does not start.
    PrivateSessionBus()
    {
        QDir{folder_.path()}.mkpath(QStringLiteral("dbus-1/services"));
        // Here a session bus looks for services that it may start.
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder_.path()));
        start();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address().toUtf8()); // Good for the next one too.
    }
    PrivateSessionBus(const PrivateSessionBus &) = delete;
    PrivateSessionBus &operator=(const PrivateSessionBus &) = delete;
    ~PrivateSessionBus() { stop(); }

    /// Disconnects everybody. start() makes a new bus at the same address.
    void stop()
    {
        daemon_.terminate();
        daemon_.waitForFinished();
    }
    /// Ends the test program when the bus does not start.
    void start()
    {
        QFile::remove(folder_.filePath(QStringLiteral("bus")));
        address_.clear();
        daemon_.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nosyslog"),
             QStringLiteral("--print-address=1"),
             QStringLiteral("--address=unix:path=") + folder_.filePath(QStringLiteral("bus"))});
        while (address_.isEmpty() && daemon_.waitForReadyRead(10'000)) {
            address_ = daemon_.readAllStandardOutput().trimmed();
        }
        if (address_.isEmpty()) {
            qFatal("The bus did not start: %s", daemon_.readAllStandardError().constData());
        }
    }
    [[nodiscard]] QString address() const
    {
        return QStringLiteral("unix:path=") + folder_.filePath(QStringLiteral("bus"));
    }

    /// Makes the bus read and say nothing until resume().
    void suspend() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP); }
    void resume() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT); }

    /// A file of the bus' own folder.
    [[nodiscard]] QString path(const QString &name) const { return folder_.filePath(name); }

    /// Lets the bus start a service by a shell command when somebody calls it. A bus that runs
    /// already must be told to reload.
    void offer(const QString &service, const QString &command) const
    {
        QFile script{path(service + QStringLiteral(".sh"))};
        QFile file{path(QStringLiteral("dbus-1/services/") + service + QStringLiteral(".service"))};
        if (!script.open(QIODevice::WriteOnly) || !file.open(QIODevice::WriteOnly)) {
            qFatal("Cannot offer %s", qUtf8Printable(service));
        }
        script.write(command.toUtf8());
        const QString text = QStringLiteral("[D-BUS Service]\nName=%1\nExec=/bin/sh %2\n");
        file.write(text.arg(service, script.fileName()).toUtf8());
    }
    void withdrawOffer(const QString &service) const
    {
        QFile::remove(
            path(QStringLiteral("dbus-1/services/") + service + QStringLiteral(".service")));
    }

private:
    QTemporaryDir folder_;
    QProcess daemon_;
    QByteArray address_;
};

} // namespace norvane
