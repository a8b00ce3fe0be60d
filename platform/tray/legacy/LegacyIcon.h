// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QSystemTrayIcon>

namespace norvane {

/// The icon in the X11 system tray, working for the process at the other end of standard input.
///
/// Each press writes where the icon is, "x y width height" in pixels, as one line to standard
/// output. The end of standard input ends the program.
class LegacyIcon final : public QObject {
    Q_OBJECT

public:
    explicit LegacyIcon(const QString &iconName);

private:
    void report(QSystemTrayIcon::ActivationReason reason) const;

    QSystemTrayIcon icon_;
    QSocketNotifier input_;
};

} // namespace norvane
