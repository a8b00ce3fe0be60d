// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusItem.h"

#include <QQuickView>
#include <QTimer>

#include <optional>

class QQmlComponent;

namespace norvane {

class PanelContent;
class Placement;
class WindowSystem;

/// The small window under the status icon that holds the panel. Never a pop-up in the window
/// system's sense: it stays when another window is pressed, and grabs nothing.
///
/// Hiding it keeps everything in it as it is, so nothing typed is lost.
class Popover final : public QQuickView {
    Q_OBJECT

public:
    /// Shows `content`; both are borrowed.
    Popover(PanelContent &content, WindowSystem &windowSystem);

    /// Brings it up by the pressed icon; where a press tells no place, or there is none, where the
    /// icon was last known to be.
    void showBeside(const std::optional<IconPress> &press);
    /// Gives it the keyboard, with the token of whoever asked for it, or without.
    void takeKeyboard(const QString &activationToken);

signals:
    /// There is nothing to show, for this reason, in one line. Comes from the event loop.
    void failed(const QString &reason);

protected:
    /// Escape closes the popover, unless something in it, such as an alert, closes first.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void load();
    void showLoaded(QQmlComponent &component);
    void watchScreens();
    void bringBackToScreen();
    void place(const Placement &placement);
    void setFixedSize(const QSize &size);

    PanelContent &content_;
    WindowSystem &windowSystem_;
    QTimer screensAtRest_;
    std::optional<QRect> anchor_; ///< Where the icon was at the last press.
};

} // namespace norvane
