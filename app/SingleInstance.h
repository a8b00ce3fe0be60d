// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace norvane {

/// Sees to it that a session has one Norvane, by the name it owns on the session bus.
///
/// The owner answers org.freedesktop.Application, so that starting Norvane again, or a desktop
/// that activates it by name, brings up the panel of the one that runs. Without a bus there is
/// nobody to ask, and every start counts as the first.
class SingleInstance final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit SingleInstance(QDBusConnection bus);

    /// Whether this process is the one. Ask before touching anything that two must not touch.
    [[nodiscard]] bool claim();
    /// Asks the running one to show its panel, and hands on the token that lets it take the
    /// keyboard, if there is one. Returns whether it answered, after two seconds at the latest;
    /// one that is about to end does not.
    [[nodiscard]] bool activateOther(const QString &activationToken) const;
    /// Waits for the end of the running one, a few seconds at most. Whether this process is the
    /// one now.
    [[nodiscard]] bool succeedOther();

public slots: // The bus' names.
    void Activate(const QVariantMap &platformData);
    /// Norvane opens no files: the same as Activate.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    /// Norvane has no actions: nothing happens.
    void ActivateAction(const QString &name, const QVariantList &parameter,
                        const QVariantMap &platformData);

signals:
    /// Somebody started Norvane again.
    void activated(const QString &activationToken);

private:
    QDBusConnection bus_;
};

} // namespace norvane
