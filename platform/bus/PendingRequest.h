// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/bus/BusStruct.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <tuple>

namespace norvane {

/// A notification request as it crosses the bus.
struct PendingRequest {
    QString identifier;
    QString title;
    QString body;
    QString sound;
    QString trigger; ///< `yyyy-MM-ddTHH:mm`, wall-clock time.

    static auto fields(auto &self)
    {
        return std::tie(self.identifier, self.title, self.body, self.sound, self.trigger);
    }
    friend bool operator==(const PendingRequest &, const PendingRequest &) = default;
};

using PendingRequestList = QList<PendingRequest>;

/// Registers the types above with Qt's D-Bus bindings; call it before using either.
void registerPendingRequestTypes();

} // namespace norvane

Q_DECLARE_METATYPE(norvane::PendingRequest)
