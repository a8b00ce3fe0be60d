// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/KeyMonitors.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace norvane {

KeyMonitors::KeyMonitors()
{
    QCoreApplication::instance()->installEventFilter(this);
}

KeyMonitors::Token KeyMonitors::add(Handler handler)
{
    handlers_.push_back(std::move(handler));
    return handlers_.size();
}

bool KeyMonitors::eventFilter(QObject *watched, QEvent *event)
{
    // A window forwards its keys to its items as further events; only the first one is judged.
    if (event->type() != QEvent::KeyPress || !watched->isWindowType()) {
        return false;
    }
    const auto &key = static_cast<const QKeyEvent &>(*event);
    return std::ranges::any_of(
        handlers_, [&key](const Handler &handler) { return handler(key) == Verdict::Swallow; });
}

} // namespace norvane
