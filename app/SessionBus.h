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
/// Whatever asks Qt for the session bus waits for it on the main thread, minutes if need be; Qt's
/// own plugins ask while the application object is being made. So a thread greets the bus first,
/// without Qt. While the bus is silent, this process and those that it starts are told, by the
/// environment, that there is none. When it answers after all, the environment is as before again,
/// and answered() is emitted; what asked in the meantime still has none.
///
/// Belongs to the main thread.
class SessionBus final : public QObject {
    Q_OBJECT

public:
    /// Waits for an answer, no longer than `timeout`. To be made before the application object.
    explicit SessionBus(std::chrono::milliseconds timeout);
    ~SessionBus() override;

    /// Whether there is a bus that has not answered yet.
    [[nodiscard]] bool isSilent() const noexcept { return isSilent_; }
    /// Where the bus is; empty for the bus library's own choice.
    [[nodiscard]] QString address() const;
    /// A connection of its own, under a name that is unique in this process. Not connected while
    /// the bus is silent, and where there is no bus.
    [[nodiscard]] QDBusConnection connectAs(const QString &name) const;

signals:
    void answered();

private:
    struct Greeting;

    void takeUp();

    std::shared_ptr<Greeting> greeting_; ///< Shared with the thread, which may outlive this object.
    QByteArray formerAddress_;           ///< The variable's value before it was changed.
    bool wasSet_ = false;
    bool isSilent_ = false;
};

} // namespace norvane
