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
/// Registers this connection's item with every watcher that appears, and once more whenever a host
/// that shows items does: some watchers forget items that came before their host. Nothing here
/// waits for a watcher.
class WatcherLink final : public QObject {
    Q_OBJECT

public:
    explicit WatcherLink(const QDBusConnection &bus);

    /// Starts to look. The object of the item must be on the bus by now.
    void start();

    /// Whether it is known if there is a watcher; shortly after the start it is.
    [[nodiscard]] bool isDecided() const noexcept { return decided_; }
    /// Whether there is a watcher.
    [[nodiscard]] bool isPresent() const noexcept { return present_; }
    /// Whether there is a watcher that has a host.
    [[nodiscard]] bool hasHost() const noexcept { return present_ && hasHost_; }

signals:
    /// One of the answers above may have changed.
    void changed();

private slots: // Targets of signals from the bus.
    void hostRegistered();
    void hostUnregistered();

private:
    void setOwner(const QString &owner);
    void registerItem();
    void askForHost();

    QDBusConnection bus_;
    QDBusServiceWatcher owners_;
    QTimer retry_;
    int attemptsLeft_ = 0; ///< A watcher may own its name before it can answer.
    int round_ = 0;        ///< Counts the registrations.
    bool isAsked_ = false; ///< This owner was asked to take the item, and has not refused.
    bool decided_ = false;
    bool present_ = false;
    bool hasHost_ = false;
};

} // namespace norvane
