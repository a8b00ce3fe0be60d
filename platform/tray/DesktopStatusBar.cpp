// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/DesktopStatusBar.h"

#include "platform/tray/StatusArea.h"

#include <QDir>
#include <QGuiApplication>

namespace norvane {

namespace {

/// The process for X11 trays lies where it was installed, as seen from this program.
QString legacyProgram()
{
    if (QGuiApplication::platformName() != u"xcb") {
        return {};
    }
    const QDir programs{QGuiApplication::applicationDirPath()};
    return QDir::cleanPath(programs.filePath(QStringLiteral(NORVANE_LEGACY_TRAY)));
}

} // namespace

std::unique_ptr<StatusItem> DesktopStatusBar::makeStatusItem()
{
    return std::make_unique<StatusArea>(QDBusConnection::sessionBus(), legacyProgram());
}

} // namespace norvane
