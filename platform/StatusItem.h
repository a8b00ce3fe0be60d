// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>

namespace norvane {

/// One press on the status icon, as far as the desktop tells of it.
struct IconPress {
    /// The icon's rectangle in device pixels. Known only in an X11 tray, where the icon is a window
    /// of Norvane's.
    std::optional<QRect> icon;
    /// The position that a host reports for the press, in device pixels; some hosts report numbers
    /// that are no screen position.
    std::optional<QPoint> place;
    /// What lets a window take the keyboard on strict desktops; good for one use, or empty.
    QString activationToken;
};

/// The program's icon in the desktop's status area. Lives on the main thread.
class StatusItem : public QObject {
    Q_OBJECT

public:
    /// Whether there is anything to put an image on: with no bus and no tray protocol there is not,
    /// and the item can neither show nor be pressed.
    [[nodiscard]] virtual bool hasButton() const = 0;
    /// Shows the icon of this theme name; the description is what a screen reader says of it.
    virtual void setImage(const QString &iconName, const QString &accessibilityDescription) = 0;
    /// Whether some part of the desktop shows the icon now, as far as can be known.
    [[nodiscard]] virtual bool isHosted() const = 0;

signals:
    /// The user pressed the icon with the main button; as early as the desktop tells.
    void pressed(const norvane::IconPress &press);
    /// The user chose to open Norvane from the icon's menu.
    void openRequested(const norvane::IconPress &press);
};

} // namespace norvane
