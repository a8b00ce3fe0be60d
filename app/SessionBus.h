// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <memory>

namespace norvane {

/// Finds out whether the session bus answers, so that a silent one holds up nothing else.
///
/// Asking Qt for the session bus blocks the main thread until the bus answers, for minutes if it is
/// silent, and Qt's own plugins ask while the application object is being made. So a thread
/// connects to the bus first, without Qt. While the bus is silent, the environment tells this
/// process and its children that there is no bus. When the bus answers after all, the environment
/// is restored and answered() is emitted; parts that asked in the meantime remain without a bus.
///
/// Belongs to the main thread.
class SessionBus final : public QObject {
    Q_OBJECT

public:
    /// Blocks until the bus answers or `timeout` has passed. Make it before the application object.
    explicit SessionBus(std::chrono::milliseconds timeout);
    ~SessionBus() override;

    /// Whether there is a bus that has not answered yet.
    [[nodiscard]] bool isSilent() const noexcept { return isSilent_; }
    /// The bus's address; empty for the bus library's own choice.
    [[nodiscard]] QString address() const;
    /// A connection of its own, under a name that is unique in this process. Not connected while
    /// the bus is silent, and where there is no bus.
    [[nodiscard]] QDBusConnection connectAs(const QString &name) const;

signals:
    void answered();

private:
    struct Probe;

    void handleAnswer();

    std::shared_ptr<Probe> probe_; ///< Shared with the thread, which may outlive this object.
    QByteArray formerAddress_;     ///< The variable's value before it was changed.
    bool wasSet_ = false;
    bool isSilent_ = false;
};

} // namespace norvane
