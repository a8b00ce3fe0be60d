// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/RecordingCenterService.h"

#include "CenterAdaptor.h"
#include "platform/bus/BusNames.h"

#include <tuple>
#include <utility>

namespace norvane {

RecordingCenterService::RecordingCenterService(QDBusConnection connection)
    : connection_{std::move(connection)}
{
    registerPendingRequestTypes();
    new CenterAdaptor{this}; // Owned by its parent.
    if (!connection_.registerObject(busNames::notificationCenterPath, this)) {
        qFatal("The recording service cannot be put on the bus");
    }
}

RecordingCenterService::~RecordingCenterService()
{
    disappear();
    connection_.unregisterObject(busNames::notificationCenterPath);
}

bool RecordingCenterService::appear()
{
    return connection_.registerService(busNames::notificationCenter);
}

void RecordingCenterService::disappear()
{
    std::ignore = connection_.unregisterService(busNames::notificationCenter);
}

void RecordingCenterService::note(const QString &call)
{
    calls_.append(call);
    callers_.insert(message().service());
    answersAsked_ += message().isReplyRequired() ? 1 : 0;
    if (isSilent_) {
        setDelayedReply(true);
    }
}

bool RecordingCenterService::RequestAuthorization(uint options)
{
    note(QStringLiteral("RequestAuthorization %1").arg(options));
    return true;
}

void RecordingCenterService::AddRequest(const QString &identifier, const QString &title,
                                        const QString &body, const QString &sound,
                                        const QString &trigger)
{
    const QStringList words{QStringLiteral("AddRequest"), identifier, title, body, sound, trigger};
    note(words.join(u' '));
}

void RecordingCenterService::RemovePendingRequests(const QStringList &identifiers)
{
    note((QStringList{QStringLiteral("RemovePendingRequests")} + identifiers).join(u' '));
}

void RecordingCenterService::RemoveAllPendingRequests()
{
    note(QStringLiteral("RemoveAllPendingRequests"));
}

PendingRequestList RecordingCenterService::PendingRequests() const
{
    return {};
}

} // namespace norvane
