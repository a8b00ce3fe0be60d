// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

class QDBusVariant;

namespace norvane {

/// The appearance by the settings portal, `color-scheme` of `org.freedesktop.appearance`.
///
/// Asks without waiting, so that the answer comes as a change. Without a bus, a portal or the
/// setting there is no preference. A portal that comes back is asked again.
class PortalAppearance final : public Appearance {
    Q_OBJECT

public:
    explicit PortalAppearance(QDBusConnection bus);

    [[nodiscard]] ColorScheme colorScheme() const override { return colorScheme_; }

private slots:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void take(const QDBusVariant &value);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    ColorScheme colorScheme_ = ColorScheme::NoPreference;
};

} // namespace norvane
