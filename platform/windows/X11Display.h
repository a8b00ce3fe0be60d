// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <cstdint>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace norvane {

/// A second connection to the X11 display, beside Qt's. It selects events without changing what Qt
/// receives, and may be read synchronously. Answers are empty where there is no display.
class X11Display {
public:
    struct Free {
        void operator()(void *answer) const noexcept { std::free(answer); }
    };
    /// Something the library allocated for its caller.
    template <typename T>
    using Answer = std::unique_ptr<T, Free>;

    X11Display();

    [[nodiscard]] bool isConnected() const;
    [[nodiscard]] xcb_connection_t *connection() const noexcept { return connection_.get(); }
    [[nodiscard]] int screenNumber() const noexcept { return screenNumber_; }
    [[nodiscard]] xcb_window_t root() const noexcept { return root_; }

    /// The atom of a name; cached.
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const;
    /// A window's property as 32-bit numbers; empty when it has none of this type.
    [[nodiscard]] QList<int> numbers(xcb_window_t window, xcb_atom_t property,
                                     xcb_atom_t type) const;
    /// The same for many windows, in one round trip.
    [[nodiscard]] QList<QList<int>> numbersOfAll(const QList<int> &windows, xcb_atom_t property,
                                                 xcb_atom_t type) const;
    /// Selects the events of this mask on a window.
    void listenTo(xcb_window_t window, std::uint32_t mask) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const noexcept { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    int screenNumber_ = 0;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    mutable QHash<QByteArray, xcb_atom_t> atoms_;
};

} // namespace norvane
