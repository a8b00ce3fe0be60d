// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/SystemZone.h"

#include "time/MachineZone.h"

#include <QDBusConnection>
#include <QFile>
#include <QFileInfo>

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

namespace norvane {

SystemZone::SystemZone(QObject *parent)
    : LocalZone{parent},
      link_{zoneLink()},
      zone_{machineZone()},
      descriptor_{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)},
      readable_{QSocketNotifier::Read}
{
}

SystemZone::~SystemZone()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

void SystemZone::watch()
{
    if (link_.isEmpty()) {
        return;
    }
    // The folder, because a link that is replaced takes a watch on itself with it; and only for
    // names that come into it and files that were written, because every event is a wake-up.
    const QByteArray folder = QFile::encodeName(QFileInfo{link_}.absolutePath());
    if (::inotify_add_watch(descriptor_, folder.constData(),
                            IN_CREATE | IN_MOVED_TO | IN_CLOSE_WRITE) >= 0) {
        readable_.setSocket(descriptor_);
        connect(&readable_, &QSocketNotifier::activated, this, &SystemZone::folderChanged);
        readable_.setEnabled(true);
    }
    QDBusConnection::systemBus().connect(QString{}, QStringLiteral("/org/freedesktop/timedate1"),
                                         QStringLiteral("org.freedesktop.DBus.Properties"),
                                         QStringLiteral("PropertiesChanged"), this, SLOT(look()));
    look();
}

void SystemZone::folderChanged()
{
    std::array<char, 4096> events{};
    while (::read(descriptor_, events.data(), events.size()) > 0) {
        // What came does not matter: the link is looked at either way.
    }
    look();
}

void SystemZone::look()
{
    const QTimeZone zone = machineZone();
    if (zone != zone_) {
        zone_ = zone;
        emit changed();
    }
}

} // namespace norvane
