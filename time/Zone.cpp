// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/Zone.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <ctime>

#include <sys/stat.h>

namespace norvane {

namespace {

constexpr QLatin1StringView database{"/usr/share/zoneinfo/"};

/// The name of the zone in the database to which the path leads; empty when it leads elsewhere.
QByteArray nameInDatabase(const QString &path)
{
    const QString target = QFileInfo{path}.canonicalFilePath();
    return target.startsWith(database) ? QFile::encodeName(target.sliced(database.size()))
                                       : QByteArray{};
}

} // namespace

Zone::Zone(const QTimeZone &zone) : zone_{zone.isValid() ? zone : QTimeZone::utc()} {}

QString Zone::fileOfMachine()
{
    if (!qEnvironmentVariableIsSet("TZ")) {
        return QStringLiteral("/etc/localtime");
    }
    QString setting = QFile::decodeName(qgetenv("TZ"));
    if (setting.startsWith(u':')) {
        setting.remove(0, 1);
    }
    return setting.startsWith(u'/') ? setting : QString{};
}

Zone Zone::ofMachine()
{
    const QString path = fileOfMachine();
    if (qEnvironmentVariableIsSet("TZ") && !path.isEmpty()) {
        const QByteArray name = nameInDatabase(path);
        if (const QTimeZone zone{name}; !name.isEmpty() && zone.isValid()) {
            return zone;
        }
    }
    ::tzset(); // Has the C library look at the environment and at /etc/localtime again.
    struct stat status {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return Zone{FileIdentity{}};
    }
    return Zone{FileIdentity{static_cast<qint64>(status.st_dev), static_cast<qint64>(status.st_ino),
                             status.st_mtim.tv_sec, status.st_mtim.tv_nsec}};
}

std::chrono::seconds Zone::offsetAt(std::chrono::sys_seconds moment) const
{
    const std::time_t unixSeconds = moment.time_since_epoch().count();
    if (zone_.isValid()) {
        return std::chrono::seconds{
            zone_.offsetFromUtc(QDateTime::fromSecsSinceEpoch(unixSeconds, QTimeZone::utc()))};
    }
    std::tm local{};
    ::localtime_r(&unixSeconds, &local);
    return std::chrono::seconds{local.tm_gmtoff};
}

} // namespace norvane
