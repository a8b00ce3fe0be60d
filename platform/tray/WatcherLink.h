// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

namespace norvane {

/// The link to the watcher, the part of a desktop that keeps the list of its status items.
///
/// Registers this connection's item with every watcher that appears, and again whenever a host
/// appears, because some watchers forget items that were registered before their host. Never
/// blocks.
class WatcherLink final : public QObject {
    Q_OBJECT

public:
    explicit WatcherLink(const QDBusConnection &bus);

    /// Starts to look for a watcher. The item's object must already be registered on the bus.
    void start();

    /// Whether it is known that there is no watcher.
    [[nodiscard]] bool isAbsent() const noexcept { return state_ == State::Absent; }
    /// Whether there is a watcher that has a host.
    [[nodiscard]] bool hasHost() const noexcept { return state_ == State::Hosted; }

signals:
    /// Emitted when one of the answers above may have changed.
    void changed();

private slots: // Targets of signals from the bus.
    void hostRegistered();
    void hostUnregistered();

private:
    enum class State {
        Unknown,     ///< It is not known whether there is a watcher.
        Absent,      ///< There is none.
        Registering, ///< There is one that has not taken the item yet, or has refused it.
        Registered,  ///< It has taken the item, and has no host to show it.
        Hosted,      ///< It has a host.
    };

    void enter(State state);
    void setOwner(const QString &owner);
    void registerItem();
    void askForHost();

    QDBusConnection bus_;
    QDBusServiceWatcher owners_;
    State state_ = State::Unknown;
    QTimer retry_;
    int attemptsLeft_ = 0;  ///< A watcher may own its name before it can answer.
    int registrations_ = 0; ///< Only the answer to the last one counts.
};

} // namespace norvane
