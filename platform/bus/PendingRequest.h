// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>

namespace norvane {

/// A notification request as it crosses the bus.
struct PendingRequest {
    QString identifier;
    QString title;
    QString body;
    QString sound;
    QString trigger; ///< `yyyy-MM-ddTHH:mm`, wall-clock time.

    friend bool operator==(const PendingRequest &, const PendingRequest &) = default;
};

using PendingRequestList = QList<PendingRequest>;

QDBusArgument &operator<<(QDBusArgument &argument, const PendingRequest &request);
const QDBusArgument &operator>>(const QDBusArgument &argument, PendingRequest &request);

/// Registers the types above with Qt's D-Bus bindings; call it before using either.
void registerPendingRequestTypes();

} // namespace norvane

Q_DECLARE_METATYPE(norvane::PendingRequest)
