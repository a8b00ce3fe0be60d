// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/legacy/LegacyIcon.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    // Without scaling, the rectangles it reports are in device pixels.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
    // Norvane itself is in the accessibility tree. A second, empty application of that name would
    // only confuse users of a screen reader.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    qunsetenv("AT_SPI_BUS_ADDRESS");
    QApplication application{argc, argv};
    QApplication::setApplicationName(QStringLiteral("Norvane"));
    QApplication::setQuitOnLastWindowClosed(false); // A tray that goes takes the window with it.
    const QStringList arguments = QApplication::arguments();
    const norvane::LegacyIcon icon{arguments.value(1)};
    return QApplication::exec();
}
