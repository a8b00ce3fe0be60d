// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/app/Shell.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>

#include <cstdio>

using namespace norvane;

namespace {

/// Microseconds for one press of a key at the open popover, on average.
double costOf(Qt::Key key)
{
    constexpr int presses = 200;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < presses; ++i) {
        QKeyEvent press{QEvent::KeyPress, key, Qt::NoModifier};
        QCoreApplication::sendEvent(Shell::popover(), &press);
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1000 / presses;
}

void report(const char *what)
{
    std::printf("%s: %.1f us a key, %.1f us a space\n", what, costOf(Qt::Key_F13),
                costOf(Qt::Key_Space));
}

} // namespace

/// What a key press costs after one opening of the popover and after ten thousand.
int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application{argc, argv};
    constexpr int openings = 10'000;
    Shell shell;
    shell.launch();
    shell.press();
    report("after 1 opening");
    for (int i = 1; i < openings; ++i) {
        shell.press();
        shell.press();
    }
    report("after 10,000 openings");
}
