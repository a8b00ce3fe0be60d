// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/XdgFolders.h"

#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace norvane {

namespace {

/// The variable's value where it is an absolute path; a relative one is to be ignored.
QString absolutePathIn(const char *variable)
{
    QString path = QFile::decodeName(qgetenv(variable));
    return path.startsWith(u'/') ? path : QString{};
}

QString home()
{
    if (QString path = absolutePathIn("HOME"); !path.isEmpty()) {
        return path;
    }
    const passwd *const user = ::getpwuid(::getuid());
    return user != nullptr ? QFile::decodeName(user->pw_dir) : QString{};
}

QString baseFolder(const char *variable, QLatin1StringView belowHome)
{
    if (QString path = absolutePathIn(variable); !path.isEmpty()) {
        return path;
    }
    const QString start = home();
    return start.isEmpty() ? QString{} : start + belowHome;
}

} // namespace

QStringList XdgFolders::applicationSupportFolders() const
{
    const QString folder = baseFolder("XDG_DATA_HOME", QLatin1StringView{"/.local/share"});
    return folder.isEmpty() ? QStringList{} : QStringList{folder};
}

QString XdgFolders::stateFolder()
{
    return baseFolder("XDG_STATE_HOME", QLatin1StringView{"/.local/state"});
}

} // namespace norvane
