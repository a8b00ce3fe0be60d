// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusItem.h"
#include "platform/tray/X11TrayWatch.h"

#include <QObject>
#include <QProcess>
#include <QTimer>

#include <memory>

namespace norvane {

/// The icon in an X11 system tray, for desktops without hosts of status items.
///
/// The icon is shown by a small process of its own, for two reasons: it needs Qt Widgets, whose
/// memory most desktops should not pay for, and Qt decides only once in a process what kind of tray
/// there is. A new process is started for each tray that appears, and again when a process dies,
/// but at most ten times for one tray. The process ends with the tray, with this object, and when
/// its standard input closes.
class LegacyTray final : public QObject {
    Q_OBJECT

public:
    /// `program` is the process that shows the icon.
    explicit LegacyTray(QString program);
    ~LegacyTray() override;

    [[nodiscard]] bool isShown() const;
    void setIconName(const QString &iconName) { iconName_ = iconName; }

signals:
    void pressed(const norvane::IconPress &press);

private:
    void renew();
    void startIcon();
    void endIcon();
    void readPresses();

    QString program_;
    QString iconName_;
    X11TrayWatch watch_;
    QTimer startDelay_;
    int attemptsLeft_ = 0;           ///< At showing the icon in this tray.
    std::unique_ptr<QProcess> icon_; ///< None while there is no tray.
};

} // namespace norvane
