// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QSystemTrayIcon>

namespace norvane {

/// The icon in the X11 system tray, shown on behalf of the parent process.
///
/// Each press writes the icon's rectangle, "x y width height" in device pixels, as one line to
/// standard output. The program ends when its standard input closes.
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
