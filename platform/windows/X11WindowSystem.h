// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/windows/WindowSystem.h"
#include "platform/windows/X11Display.h"

namespace norvane {

/// The window system on X11, XWayland included.
///
/// Talks to the window manager directly where Qt does not suffice. Qt reads no work areas when
/// there are several screens, and Qt 6.10 misplaces one that is scaled. And Qt requests the
/// keyboard with the time of the last key or click that it saw itself; a window manager may refuse
/// that after a click on the icon, which Qt never sees.
class X11WindowSystem final : public WindowSystem {
public:
    X11WindowSystem();

    void makeAccessory(QWindow &window) override;
    void activate(QWindow &window, const QString &token) override;

protected:
    [[nodiscard]] QRect corrected(const QRect &screen) const override;
    [[nodiscard]] QList<Struts::Strip> panelStrips() const override;

private:
    [[nodiscard]] QList<Struts::Strip> windowManagersStrips(const QSize &display) const;
    [[nodiscard]] QSize displaySize() const;
    [[nodiscard]] xcb_timestamp_t serverTime() const;

    X11Display display_;
    /// Never shown. The event about a change of its properties carries the server's time.
    xcb_window_t timestampWindow_ = XCB_WINDOW_NONE;
};

} // namespace norvane
