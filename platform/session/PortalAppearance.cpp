// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/PortalAppearance.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace norvane {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

/// Portals of the first version wrap the value in one variant more than they promise.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalAppearance::PortalAppearance(QDBusConnection bus)
    : bus_{std::move(bus)},
      watcher_{service, bus_, QDBusServiceWatcher::WatchForRegistration}
{
    if (!bus_.isConnected()) {
        return;
    }
    bus_.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &PortalAppearance::ask);
    ask();
}

void PortalAppearance::ask()
{
    QDBusMessage read =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    read << appearanceGroup << colorSchemeKey;
    auto *const watcher = new QDBusPendingCallWatcher{bus_.asyncCall(read), this};
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid()) {
            take(reply.value());
        }
    });
}

void PortalAppearance::settingChanged(const QString &group, const QString &key,
                                      const QDBusVariant &value)
{
    if (group == appearanceGroup && key == colorSchemeKey) {
        take(value);
    }
}

void PortalAppearance::take(const QDBusVariant &value)
{
    const uint number = unwrapped(value.variant()).toUInt();
    const ColorScheme scheme = number == 1   ? ColorScheme::Dark
                               : number == 2 ? ColorScheme::Light
                                             : ColorScheme::NoPreference;
    if (scheme != colorScheme_) {
        colorScheme_ = scheme;
        emit colorSchemeChanged();
    }
}

} // namespace norvane
