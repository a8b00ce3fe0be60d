// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/SystemZone.h"

#include <QDBusConnection>
#include <QFile>
#include <QFileInfo>

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

namespace norvane {

namespace {

/// The link that names the zone; empty when the environment names it directly.
QString zoneLink()
{
    const QString zone = qEnvironmentVariable("TZ");
    if (zone.startsWith(QLatin1StringView{":/"})) {
        return zone.sliced(1);
    }
    return zone.isEmpty() ? QStringLiteral("/etc/localtime") : QString{};
}

QTimeZone zoneBehind(const QString &link)
{
    const QLatin1StringView folder{"/zoneinfo/"};
    const QString target = QFileInfo{link}.canonicalFilePath();
    if (const qsizetype at = target.lastIndexOf(folder); at >= 0) {
        const QTimeZone zone{target.sliced(at + folder.size()).toLatin1()};
        if (zone.isValid()) {
            return zone;
        }
    }
    return QTimeZone::systemTimeZone(); // A copied file, or a zone the environment fixes.
}

} // namespace

SystemZone::SystemZone(QObject *parent)
    : LocalZone{parent},
      link_{zoneLink()},
      zone_{zoneBehind(link_)},
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
    // names that come into it, because every event is a wake-up.
    const QByteArray folder = QFile::encodeName(QFileInfo{link_}.absolutePath());
    if (::inotify_add_watch(descriptor_, folder.constData(), IN_CREATE | IN_MOVED_TO) >= 0) {
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
    const QTimeZone zone = zoneBehind(link_);
    if (zone != zone_) {
        zone_ = zone;
        emit changed();
    }
}

} // namespace norvane
