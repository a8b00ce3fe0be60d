// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace norvane {

/// Ensures that a session bus has only one Norvane: the one that owns the name on it.
///
/// The owner answers org.freedesktop.Application, so that starting Norvane again, a desktop that
/// activates it by name, or a click on a reminder brings up the panel of the one that runs.
class SingleInstance final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// While `isEnding` returns true, requests to show the panel are refused.
    explicit SingleInstance(std::function<bool()> isEnding = [] { return false; });

    /// Whether this process is now the one Norvane on this bus; always true without a bus, or with
    /// one that does not answer.
    ///
    /// If another process is, this asks it to show its panel and passes on the activation token, if
    /// there is one. If that process is about to end, this waits for its end. Blocks for up to
    /// eight seconds, but for only one if the bus does not answer.
    [[nodiscard]] bool isOnlyOne(const QDBusConnection &bus, const QString &activationToken);

    /// Claims the name on a bus that answered only after the start. If the name is not granted, by
    /// another owner or because the bus does not answer, this logs a warning and nothing more.
    void takeName(const QDBusConnection &bus);

public slots: // The bus' names.
    void Activate(const QVariantMap &platformData);
    /// Norvane opens no files: the same as Activate.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    /// Norvane has no actions: nothing happens.
    void ActivateAction(const QString &name, const QVariantList &parameter,
                        const QVariantMap &platformData);

signals:
    /// Emitted when the panel is to be shown.
    void activated(const QString &activationToken);

private:
    enum class Name { Taken, OfAnother, Unanswered };

    [[nodiscard]] Name requestName(QDBusConnection bus);
    [[nodiscard]] static bool activateOther(const QDBusConnection &bus,
                                            const QString &activationToken);
    [[nodiscard]] static bool waitForName(QDBusConnection bus);
    void activate(const QVariantMap &platformData);

    std::function<bool()> isEnding_;
};

} // namespace norvane
