// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/RecordingCenterService.h"

#include "CenterAdaptor.h"
#include "platform/bus/BusNames.h"

#include <utility>

namespace norvane {

RecordingCenterService::RecordingCenterService(QDBusConnection connection)
    : connection_{std::move(connection)}
{
    registerPendingRequestTypes();
    new CenterAdaptor{this}; // Owned by its parent.
    connection_.registerObject(busNames::notificationCenterPath, this);
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
    connection_.unregisterService(busNames::notificationCenter);
}

bool RecordingCenterService::RequestAuthorization(uint options)
{
    calls_.append(QStringLiteral("RequestAuthorization %1").arg(options));
    return true;
}

void RecordingCenterService::AddRequest(const QString &identifier, const QString &title,
                                        const QString &body, const QString &sound,
                                        const QString &trigger)
{
    const QStringList words{QStringLiteral("AddRequest"), identifier, title, body, sound, trigger};
    calls_.append(words.join(u' '));
}

void RecordingCenterService::RemovePendingRequests(const QStringList &identifiers)
{
    calls_.append((QStringList{QStringLiteral("RemovePendingRequests")} + identifiers).join(u' '));
}

void RecordingCenterService::RemoveAllPendingRequests()
{
    calls_.append(QStringLiteral("RemoveAllPendingRequests"));
}

PendingRequestList RecordingCenterService::PendingRequests() const
{
    return {};
}

} // namespace norvane
