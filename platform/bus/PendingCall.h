// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <climits>
#include <utility>

namespace norvane {

/// Sends a call and returns at once. The handler gets the finished QDBusPendingCall, on the thread
/// of `context`; if `context` is destroyed first, the handler is never called.
///
/// Without a time limit in milliseconds the call waits until it is answered, or until the bus says
/// that nobody will answer it.
template <typename Handler>
void callLater(const QDBusConnection &bus, const QDBusMessage &call, QObject *context,
               Handler handler, int timeout = INT_MAX)
{
    auto *const watcher = new QDBusPendingCallWatcher{bus.asyncCall(call, timeout), context};
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, handler = std::move(handler)] {
                         watcher->deleteLater();
                         handler(*watcher);
                     });
}

/// A call to the bus itself.
[[nodiscard]] inline QDBusMessage callToBus(const QString &method,
                                            const QVariantList &arguments = {})
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), method);
    call.setArguments(arguments);
    return call;
}

} // namespace norvane
