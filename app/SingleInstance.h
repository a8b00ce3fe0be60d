// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace norvane {

/// Sees to it that a session bus has one Norvane, by the name it owns there.
///
/// The owner answers org.freedesktop.Application, so that starting Norvane again, a desktop that
/// activates it by name, or a click on a reminder brings up the panel of the one that runs.
class SingleInstance final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// While `isEnding` says so, whoever asks for the panel is refused.
    explicit SingleInstance(std::function<bool()> isEnding = [] { return false; });

    /// Whether this process is the one Norvane on this bus now; without a bus every one is.
    ///
    /// If another is, that has been asked to show its panel, and was handed the token that lets it
    /// take the keyboard, if there is one. When it does not answer because it is about to end, its
    /// end is waited for. Blocks for some seconds at most, and for one when the bus says nothing.
    [[nodiscard]] bool isOnlyOne(const QDBusConnection &bus, const QString &activationToken);

    /// Takes the name on a bus that was found after the start. Where another has it, it keeps it.
    void takeName(const QDBusConnection &bus);

public slots: // The bus' names.
    void Activate(const QVariantMap &platformData);
    /// Norvane opens no files: the same as Activate.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    /// Norvane has no actions: nothing happens.
    void ActivateAction(const QString &name, const QVariantList &parameter,
                        const QVariantMap &platformData);

signals:
    /// Somebody wants to see Norvane.
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
