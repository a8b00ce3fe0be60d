// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/windows/CompositorWatch.h"

#include <QGuiApplication>

#include <utility>

#include <xcb/xfixes.h>

namespace norvane {

CompositorWatch::CompositorWatch(QObject *parent) : QObject{parent}
{
    if (QGuiApplication::platformName() != u"xcb") {
        return;
    }
    display_.emplace();
    isPresent_ = false;
    if (!display_->isConnected()) {
        return;
    }
    selection_ = display_->atom("_NET_WM_CM_S" + QByteArray::number(display_->screenNumber()));
    xcb_connection_t *const server = display_->connection();
    // A server sends this extension's events only to clients that have announced their version.
    const X11Display::Answer<xcb_xfixes_query_version_reply_t> version{
        xcb_xfixes_query_version_reply(
            server,
            xcb_xfixes_query_version(server, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
            nullptr)};
    if (version) {
        xcb_xfixes_select_selection_input(
            server, display_->root(), selection_,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    readable_.emplace(xcb_get_file_descriptor(server), QSocketNotifier::Read);
    connect(&*readable_, &QSocketNotifier::activated, this, &CompositorWatch::readEvents);
    look();
}

void CompositorWatch::look()
{
    xcb_connection_t *const server = display_->connection();
    const X11Display::Answer<xcb_get_selection_owner_reply_t> answer{xcb_get_selection_owner_reply(
        server, xcb_get_selection_owner(server, selection_), nullptr)};
    const bool isPresent = answer && answer->owner != XCB_WINDOW_NONE;
    if (std::exchange(isPresent_, isPresent) != isPresent) {
        emit changed();
    }
}

void CompositorWatch::readEvents()
{
    // Only changes of the owner are selected. Reading an answer may queue further events, so the
    // loop runs until there are none.
    bool look = false;
    do {
        look = false;
        while (const X11Display::Answer<xcb_generic_event_t> event{
            xcb_poll_for_event(display_->connection())}) {
            look = true;
        }
        if (!display_->isConnected()) {
            readable_->setEnabled(false); // The display is gone, and so will be this program.
        } else if (look) {
            this->look();
        }
    } while (look && readable_->isEnabled());
}

} // namespace norvane
