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

/// The small window under the status icon that holds the panel. Not a pop-up in the window
/// system's sense: it stays open when another window is clicked, and grabs no input.
///
/// Hiding it keeps its content, so nothing typed is lost.
class Popover final : public QQuickView {
    Q_OBJECT

public:
    /// Shows `content`; both are borrowed.
    Popover(PanelContent &content, WindowSystem &windowSystem);

    /// Shows it beside the pressed icon. A press without a position, or no press, means the icon's
    /// last known position.
    void showBeside(const std::optional<IconPress> &press);
    /// Gives it the keyboard, with the caller's activation token if there is one.
    void takeKeyboard(const QString &activationToken);

signals:
    /// Emitted, from the event loop, when the panel's QML cannot be loaded; `reason` is one line.
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
