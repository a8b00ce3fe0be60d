// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/MachineZone.h"

#include <QFile>
#include <QFileInfo>

namespace norvane {

namespace {

const QString etcLocaltime = QStringLiteral("/etc/localtime");
constexpr QLatin1StringView database{"/zoneinfo/"};

/// Where the link leads: nearly always one step, and only otherwise followed to its end.
QString targetOf(const QString &link)
{
    const QString target = QFile::symLinkTarget(link);
    return target.contains(database) ? target : QFileInfo{link}.canonicalFilePath();
}

/// The name of the zone that the file tells; empty when there is none.
QByteArray zoneName(const QString &link)
{
    const QString target = targetOf(link);
    if (const qsizetype at = target.lastIndexOf(database); at >= 0) {
        return QFile::encodeName(target.sliced(at + database.size()));
    }
    QFile name{QStringLiteral("/etc/timezone")};
    return link == etcLocaltime && name.open(QIODevice::ReadOnly) ? name.readLine().trimmed()
                                                                  : QByteArray{};
}

} // namespace

QString zoneLink()
{
    QString zone = QFile::decodeName(qgetenv("TZ"));
    if (zone.startsWith(u':')) {
        zone.remove(0, 1);
    }
    if (zone.isEmpty()) {
        return etcLocaltime;
    }
    return zone.startsWith(u'/') ? zone : QString{};
}

QTimeZone machineZone()
{
    const QString link = zoneLink();
    const QByteArray name = link.isEmpty() ? QByteArray{} : zoneName(link);
    // Qt knows names and rules, and makes what it can of a copy without a name; but it takes no
    // path, and keeps what it once read of a file.
    const QTimeZone zone = name.isEmpty() ? QTimeZone::systemTimeZone() : QTimeZone{name};
    return zone.isValid() ? zone : QTimeZone::utc();
}

} // namespace norvane
