// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/legacy/LegacyIcon.h"

#include "platform/tray/IconDrawing.h"

#include <QApplication>
#include <QWidget>

#include <array>
#include <cstdio>

#include <unistd.h>

namespace norvane {

LegacyIcon::LegacyIcon(const QString &iconName) : input_{STDIN_FILENO, QSocketNotifier::Read}
{
    QIcon drawing;
    for (const QImage &image : IconDrawing::inAllSizes(iconName)) {
        drawing.addPixmap(QPixmap::fromImage(image));
    }
    icon_.setIcon(drawing);
    icon_.setToolTip(QStringLiteral("Norvane"));
    connect(&icon_, &QSystemTrayIcon::activated, this, &LegacyIcon::report);
    connect(&input_, &QSocketNotifier::activated, this, [] {
        std::array<char, 64> ignored{};
        if (::read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0) {
            QApplication::quit();
        }
    });
    icon_.show();
    for (QWidget *const window : QApplication::topLevelWidgets()) {
        window->setWindowTitle(QStringLiteral("Norvane"));
    }
}

void LegacyIcon::report(QSystemTrayIcon::ActivationReason reason) const
{
    // A second press soon after the first one arrives as a double click; it counts as a press too.
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
        const QRect place = icon_.geometry();
        std::printf("%d %d %d %d\n", place.x(), place.y(), place.width(), place.height());
        std::fflush(stdout);
    }
}

} // namespace norvane
