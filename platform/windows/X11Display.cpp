// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/windows/X11Display.h"

namespace norvane {

X11Display::X11Display() : connection_{xcb_connect(nullptr, &screenNumber_)}
{
    if (!isConnected()) {
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection()));
    for (int i = 0; i < screenNumber_; ++i) {
        xcb_screen_next(&screens);
    }
    root_ = screens.data->root;
}

bool X11Display::isConnected() const
{
    return xcb_connection_has_error(connection()) == 0;
}

xcb_atom_t X11Display::atom(const QByteArray &name) const
{
    if (const auto known = atoms_.constFind(name); known != atoms_.constEnd()) {
        return *known;
    }
    const auto length = static_cast<std::uint16_t>(name.size());
    const Answer<xcb_intern_atom_reply_t> answer{xcb_intern_atom_reply(
        connection(), xcb_intern_atom(connection(), 0, length, name.data()), nullptr)};
    return *atoms_.insert(name, answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE});
}

QList<int> X11Display::numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const
{
    return numbersOfAll({static_cast<int>(window)}, property, type).constFirst();
}

QList<QList<int>> X11Display::numbersOfAll(const QList<int> &windows, xcb_atom_t property,
                                           xcb_atom_t type) const
{
    constexpr std::uint32_t most = 4096;
    QList<xcb_get_property_cookie_t> questions;
    for (const int window : windows) {
        questions.append(xcb_get_property(connection(), 0, static_cast<xcb_window_t>(window),
                                          property, type, 0, most));
    }
    QList<QList<int>> all;
    for (const xcb_get_property_cookie_t question : questions) {
        const Answer<xcb_get_property_reply_t> answer{
            xcb_get_property_reply(connection(), question, nullptr)};
        constexpr int bits = 32;
        QList<int> numbers;
        if (answer && answer->format == bits) {
            const auto *const first =
                static_cast<const int *>(xcb_get_property_value(answer.get()));
            numbers = {first,
                       first + xcb_get_property_value_length(answer.get()) / int{sizeof(int)}};
        }
        all.append(numbers);
    }
    return all;
}

void X11Display::listenTo(xcb_window_t window, std::uint32_t mask) const
{
    xcb_change_window_attributes(connection(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection());
}

} // namespace norvane
