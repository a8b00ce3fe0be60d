// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/bus/PendingRequest.h"

#include <QDBusMetaType>

namespace norvane {

void registerPendingRequestTypes()
{
    qDBusRegisterMetaType<PendingRequest>();
    qDBusRegisterMetaType<PendingRequestList>();
}

} // namespace norvane
