// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/bus/PendingRequest.h"

#include <QDBusMetaType>

namespace norvane {

QDBusArgument &operator<<(QDBusArgument &argument, const PendingRequest &request)
{
    argument.beginStructure();
    argument << request.identifier << request.title << request.body << request.sound
             << request.trigger;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PendingRequest &request)
{
    argument.beginStructure();
    argument >> request.identifier >> request.title >> request.body >> request.sound >>
        request.trigger;
    argument.endStructure();
    return argument;
}

void registerPendingRequestTypes()
{
    qDBusRegisterMetaType<PendingRequest>();
    qDBusRegisterMetaType<PendingRequestList>();
}

} // namespace norvane
