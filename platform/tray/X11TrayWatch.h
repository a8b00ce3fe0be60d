// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/windows/X11Display.h"

#include <QObject>
#include <QSocketNotifier>

#include <optional>

namespace norvane {

/// Tells whether the X11 display has a system tray, that is, an owner of its tray selection.
///
/// Without an X11 display the answer is always no.
class X11TrayWatch final : public QObject {
    Q_OBJECT

public:
    X11TrayWatch();

    [[nodiscard]] bool hasTray() const noexcept { return manager_ != XCB_WINDOW_NONE; }

signals:
    /// A tray came, went, or was replaced.
    void changed();

private:
    void lookForManager();
    [[nodiscard]] xcb_window_t owner() const;
    void readEvents();

    X11Display display_;
    std::optional<QSocketNotifier> readable_;
    xcb_atom_t selection_ = XCB_ATOM_NONE;
    xcb_window_t manager_ = XCB_WINDOW_NONE; ///< The tray's window.
};

} // namespace norvane
