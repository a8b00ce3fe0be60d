// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/X11TrayWatch.h"

namespace norvane {

X11TrayWatch::X11TrayWatch()
{
    if (!display_.isConnected()) {
        return;
    }
    selection_ = display_.atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(display_.screenNumber()));
    // A new manager announces itself at the root window.
    display_.listenTo(display_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    readable_.emplace(xcb_get_file_descriptor(display_.connection()), QSocketNotifier::Read);
    connect(&*readable_, &QSocketNotifier::activated, this, &X11TrayWatch::readEvents);
    lookForManager();
}

void X11TrayWatch::lookForManager()
{
    // Repeats if the owner changed meanwhile: the end of a manager that ended before listenTo()
    // took effect is never reported.
    do {
        manager_ = owner();
        if (manager_ != XCB_WINDOW_NONE) {
            display_.listenTo(manager_,
                              XCB_EVENT_MASK_STRUCTURE_NOTIFY); // Its window ends with it.
        }
    } while (manager_ != owner());
    // Events that were read together with an answer do not make the descriptor readable again.
    QMetaObject::invokeMethod(this, &X11TrayWatch::readEvents, Qt::QueuedConnection);
    emit changed();
}

xcb_window_t X11TrayWatch::owner() const
{
    xcb_connection_t *const server = display_.connection();
    const X11Display::Answer<xcb_get_selection_owner_reply_t> answer{xcb_get_selection_owner_reply(
        server, xcb_get_selection_owner(server, selection_), nullptr)};
    return answer ? answer->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void X11TrayWatch::readEvents()
{
    bool look = false;
    while (const X11Display::Answer<xcb_generic_event_t> event{
        xcb_poll_for_event(display_.connection())}) {
        constexpr int sentByClient = 0x80;
        const int type = event->response_type & ~sentByClient;
        if (type == XCB_CLIENT_MESSAGE) {
            // "MANAGER": its second number is the selection that has a new owner.
            const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(*event);
            look = look || message.data.data32[1] == selection_;
        } else if (type == XCB_DESTROY_NOTIFY) {
            const auto &end = reinterpret_cast<const xcb_destroy_notify_event_t &>(*event);
            look = look || end.window == manager_;
        }
    }
    if (!display_.isConnected()) {
        readable_->setEnabled(false); // The display is gone, and so will be this program.
    } else if (look) {
        lookForManager();
    }
}

} // namespace norvane
