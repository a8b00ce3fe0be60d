// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

class QDBusMessage;

namespace norvane {

/// The appearance by the settings portal: `color-scheme`, `contrast` and `accent-color` of
/// `org.freedesktop.appearance`.
///
/// Asks without waiting, so that the answer comes as a change. Without a bus, a portal or a setting
/// there is no preference, and a value that is none of the documented ones is none either. A portal
/// that comes back is asked again.
class PortalAppearance final : public Appearance {
    Q_OBJECT

public:
    explicit PortalAppearance(QDBusConnection bus);

    [[nodiscard]] Preferences preferences() const override { return preferences_; }

private slots:
    void settingChanged(const QDBusMessage &signal);

private:
    void ask();
    void take(const Preferences &preferences);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    Preferences preferences_;
};

} // namespace norvane
