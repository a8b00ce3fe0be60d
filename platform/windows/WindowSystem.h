// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/windows/Struts.h"

#include <QList>
#include <QRect>
#include <QString>

#include <memory>
#include <optional>

class QWindow;

namespace norvane {

/// A screen and what its panels leave of it, in one and the same kind of pixels.
struct ScreenArea {
    QRect whole;
    QRect work; ///< Inside `whole`.

    bool operator==(const ScreenArea &) const = default;
};

/// What the shell asks of the window system. This one is for where Qt's own means are all there
/// is, as on Wayland; forThisSession() finds the right one.
///
/// Pixels are device-independent unless said otherwise. Lives on the main thread.
class WindowSystem {
public:
    WindowSystem() = default;
    WindowSystem(const WindowSystem &) = delete;
    WindowSystem &operator=(const WindowSystem &) = delete;
    virtual ~WindowSystem() = default;

    /// Needs the application object.
    [[nodiscard]] static std::unique_ptr<WindowSystem> forThisSession();

    /// The screens and their work areas, the primary screen first.
    [[nodiscard]] QList<ScreenArea> screens() const;
    /// The same rectangle in device-independent pixels, if it touches a screen.
    [[nodiscard]] std::optional<QRect> fromDevicePixels(const QRect &rect) const;

    /// Keeps a window out of taskbars, pagers and switchers, and on every workspace, as far as
    /// possible. To be said before every showing; the window is not visible.
    virtual void makeAccessory(QWindow &window);
    /// Gives a visible window the keyboard, because the user asked for it just now. The token comes
    /// from whoever told of it, or is empty.
    virtual void activate(QWindow &window, const QString &token);

protected:
    /// A screen's true place in device pixels, where Qt takes it to be at another.
    [[nodiscard]] virtual QRect corrected(const QRect &screen) const;
    /// The strips that panels reserve for themselves, in device pixels.
    [[nodiscard]] virtual QList<Struts::Strip> panelStrips() const;
};

} // namespace norvane
