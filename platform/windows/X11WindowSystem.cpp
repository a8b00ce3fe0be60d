// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/windows/X11WindowSystem.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstring>

namespace norvane {

namespace {

constexpr std::uint8_t wordsOf32Bits = 32;

/// Qt's own connection: requests sent here reach the server in order with Qt's own.
xcb_connection_t *connectionOfQt()
{
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_window_t idOf(const QWindow &window)
{
    return static_cast<xcb_window_t>(window.winId());
}

} // namespace

X11WindowSystem::X11WindowSystem()
{
    if (display_.isConnected()) {
        timestampWindow_ = xcb_generate_id(display_.connection());
        xcb_create_window(display_.connection(), 0, timestampWindow_, display_.root(), -1, -1, 1, 1,
                          0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        display_.listenTo(timestampWindow_, XCB_EVENT_MASK_PROPERTY_CHANGE);
    }
}

void X11WindowSystem::makeAccessory(QWindow &window)
{
    // Qt keeps the states that it finds on a window that is not mapped.
    const std::array<xcb_atom_t, 3> states{display_.atom("_NET_WM_STATE_SKIP_TASKBAR"),
                                           display_.atom("_NET_WM_STATE_SKIP_PAGER"),
                                           display_.atom("_NET_WM_STATE_STICKY")};
    xcb_change_property(connectionOfQt(), XCB_PROP_MODE_REPLACE, idOf(window),
                        display_.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, wordsOf32Bits, states.size(),
                        states.data());
    constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
    xcb_change_property(connectionOfQt(), XCB_PROP_MODE_REPLACE, idOf(window),
                        display_.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, wordsOf32Bits, 1,
                        &everyDesktop);
}

void X11WindowSystem::activate(QWindow &window, const QString &token)
{
    window.raise();
    const xcb_atom_t activeWindow = display_.atom("_NET_ACTIVE_WINDOW");
    if (!display_.numbers(display_.root(), display_.atom("_NET_SUPPORTED"), XCB_ATOM_ATOM)
             .contains(static_cast<int>(activeWindow))) {
        WindowSystem::activate(window, token); // Qt then takes the keyboard without asking.
        return;
    }
    constexpr std::uint32_t askedByTheUser = 2;
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = wordsOf32Bits;
    request.window = idOf(window);
    request.type = activeWindow;
    request.data.data32[0] = askedByTheUser;
    request.data.data32[1] = serverTime();
    std::array<char, 32> event{}; // As long as every event is.
    static_assert(sizeof(request) <= event.size());
    std::memcpy(event.data(), &request, sizeof(request));
    xcb_send_event(connectionOfQt(), 0, display_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   event.data());
    xcb_flush(connectionOfQt());
}

QRect X11WindowSystem::corrected(const QRect &screen) const
{
    // Qt 6.4 does not notice when the last screen moves to where an unplugged one was.
    const QRect display{QPoint{0, 0}, displaySize()};
    const bool isLost = QGuiApplication::screens().size() == 1 && !display.contains(screen);
    return isLost ? QRect{QPoint{0, 0}, screen.size()} : screen;
}

QList<Struts::Strip> X11WindowSystem::panelStrips() const
{
    QList<Struts::Strip> strips;
    const QSize size = displaySize();
    const QList<int> windows =
        display_.numbers(display_.root(), display_.atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    const QList<QList<int>> partial =
        display_.numbersOfAll(windows, display_.atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL);
    const QList<QList<int>> whole =
        display_.numbersOfAll(windows, display_.atom("_NET_WM_STRUT"), XCB_ATOM_CARDINAL);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        strips += Struts::strips(partial.at(i).isEmpty() ? whole.at(i) : partial.at(i), size);
    }
    if (QGuiApplication::screens().size() == 1) {
        strips += windowManagersStrips(size);
    }
    return strips;
}

/// The strips outside the window manager's _NET_WORKAREA. Needed because a panel drawn by the
/// window manager itself, as in GNOME Shell, has no window with a strut. Used with a single screen
/// only: one area for all screens says nothing about each.
QList<Struts::Strip> X11WindowSystem::windowManagersStrips(const QSize &display) const
{
    const auto cardinals = [this](const char *property) {
        return display_.numbers(display_.root(), display_.atom(property), XCB_ATOM_CARDINAL);
    };
    const QList<int> areas = cardinals("_NET_WORKAREA"); // Of each workspace.
    const qsizetype first = 4 * qsizetype{cardinals("_NET_CURRENT_DESKTOP").value(0)};
    const auto length = [&](qsizetype index) {
        constexpr int longest = 0x7fff; // On any display.
        return std::clamp(areas.value(first + index), 0, longest);
    };
    const QRect area{length(0), length(1), length(2), length(3)};
    if (area.isEmpty()) {
        return {};
    }
    return Struts::strips({area.x(), display.width() - area.x() - area.width(), area.y(),
                           display.height() - area.y() - area.height()},
                          display);
}

QSize X11WindowSystem::displaySize() const
{
    xcb_connection_t *const server = display_.connection();
    const X11Display::Answer<xcb_get_geometry_reply_t> root{
        xcb_get_geometry_reply(server, xcb_get_geometry(server, display_.root()), nullptr)};
    return root ? QSize{root->width, root->height} : QSize{};
}

xcb_timestamp_t X11WindowSystem::serverTime() const
{
    xcb_change_property(display_.connection(), XCB_PROP_MODE_APPEND, timestampWindow_,
                        XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(display_.connection());
    while (const X11Display::Answer<xcb_generic_event_t> event{
        xcb_wait_for_event(display_.connection())}) {
        if (event->response_type == XCB_PROPERTY_NOTIFY) {
            return reinterpret_cast<const xcb_property_notify_event_t &>(*event).time;
        }
    }
    return XCB_CURRENT_TIME;
}

} // namespace norvane
