// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
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

using Groups = QMap<QString, QVariantMap>;

/// Some portals wrap a value in one variant more than documented.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

Appearance::ColorScheme schemeOf(const QVariant &value)
{
    using Scheme = Appearance::ColorScheme;
    const uint number = value.toUInt();
    return number == 1 ? Scheme::Dark : number == 2 ? Scheme::Light : Scheme::NoPreference;
}

/// A portal without an accent colour sends components outside of 0 to 1.
std::optional<Appearance::Color> colorOf(const QVariant &value)
{
    if (!value.canConvert<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto parts = value.value<QDBusArgument>();
    if (parts.currentSignature() != u"(ddd)") {
        return std::nullopt;
    }
    Appearance::Color color;
    parts.beginStructure();
    parts >> color.red >> color.green >> color.blue;
    parts.endStructure();
    const auto isPart = [](double part) { return part >= 0 && part <= 1; };
    return isPart(color.red) && isPart(color.green) && isPart(color.blue) ? std::optional{color}
                                                                          : std::nullopt;
}

void apply(const QString &key, const QVariant &value, Appearance::Preferences *preferences)
{
    if (key == u"color-scheme") {
        preferences->colorScheme = schemeOf(value);
    } else if (key == u"contrast") {
        preferences->moreContrast = value.toUInt() == 1;
    } else if (key == u"accent-color") {
        preferences->accent = colorOf(value);
    }
}

} // namespace

PortalAppearance::PortalAppearance(QDBusConnection bus)
    : bus_{std::move(bus)},
      watcher_{service, bus_, QDBusServiceWatcher::WatchForRegistration}
{
    if (!bus_.isConnected()) {
        return;
    }
    qDBusRegisterMetaType<Groups>();
    // A whole message needs no type to be registered; a QDBusVariant would.
    if (!bus_.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                      SLOT(settingChanged(QDBusMessage)))) {
        qWarning("Changes of the desktop's appearance cannot be followed: %s",
                 qUtf8Printable(bus_.lastError().message()));
    }
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &PortalAppearance::ask);
    ask();
}

void PortalAppearance::ask()
{
    QDBusMessage readAll =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    readAll << QStringList{appearanceGroup};
    auto *const watcher = new QDBusPendingCallWatcher{bus_.asyncCall(readAll), this};
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<Groups> reply = *watcher;
        if (!reply.isValid()) {
            return;
        }
        const QVariantMap settings = reply.value().value(appearanceGroup);
        Preferences preferences;
        for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting) {
            apply(setting.key(), unwrapped(setting.value()), &preferences);
        }
        take(preferences);
    });
}

void PortalAppearance::settingChanged(const QDBusMessage &signal)
{
    const QVariantList arguments = signal.arguments();
    if (signal.signature() == u"ssv" && arguments.at(0) == appearanceGroup) {
        Preferences preferences = preferences_;
        apply(arguments.at(1).toString(), unwrapped(arguments.at(2)), &preferences);
        take(preferences);
    }
}

void PortalAppearance::take(const Preferences &preferences)
{
    if (preferences != preferences_) {
        preferences_ = preferences;
        emit changed();
    }
}

} // namespace norvane
