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

/// A screen and the part of it that panels leave free, both in the same unit of pixels.
struct ScreenArea {
    QRect whole;
    QRect work; ///< Inside `whole`.

    bool operator==(const ScreenArea &) const = default;
};

/// What the shell needs from the window system. This base class uses only what Qt offers, as on
/// Wayland; forThisSession() chooses the right class.
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
    /// The same rectangle in device-independent pixels; nothing if its centre is on no screen.
    [[nodiscard]] std::optional<QRect> fromDevicePixels(const QRect &rect) const;

    /// Keeps a window out of taskbars, pagers and switchers, and on every workspace, as far as
    /// possible. Call it before each time the window is shown, while it is not visible.
    virtual void makeAccessory(QWindow &window);
    /// Gives a visible window the keyboard in response to an action of the user. `token` is the
    /// activation token that came with the action, or empty.
    virtual void activate(QWindow &window, const QString &token);

protected:
    /// A screen's true rectangle in device pixels, which can differ from Qt's.
    [[nodiscard]] virtual QRect corrected(const QRect &screen) const;
    /// The strips that panels reserve for themselves, in device pixels. None on Wayland, where no
    /// program is told of them.
    [[nodiscard]] virtual QList<Struts::Strip> panelStrips() const;
};

} // namespace norvane
