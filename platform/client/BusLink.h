// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class QDBusError;

namespace norvane {

/// A session bus connection of its own, which tells when the bus goes away and when the
/// notification centre comes and goes.
///
/// Lives on one thread, whose event loop must run. Only open() and probe() block.
class BusLink final : public QObject {
    Q_OBJECT

public:
    explicit BusLink(QObject *parent) : QObject{parent} {}
    ~BusLink() override;

    enum class ProbeResult { Accepted, Refused, NoReply };

    /// Opens a connection to the bus at this address without Qt, closes it again, and tells whether
    /// the bus accepted it. A bus that never answers blocks the calling thread for a time limit of
    /// the bus library, of about half a minute. Qt would wait without a limit, on a thread that all
    /// its bus connections share and that must end before the process can.
    [[nodiscard]] static ProbeResult probe(const QByteArray &address);

    /// Connects to the bus at the address; empty means the usual one. False if there is no bus, or
    /// none that answers.
    [[nodiscard]] bool open(const QString &address);
    [[nodiscard]] bool isOpen() const noexcept { return bus_.has_value(); }
    /// Only while it is open.
    [[nodiscard]] const QDBusConnection &bus() const { return bus_.value(); }

    /// Whether the answer came from the centre itself, even as an error, and not from the bus.
    [[nodiscard]] static bool isAnswerOfCentre(const QDBusError &error);

signals:
    /// The bus has gone; the link is closed.
    void lost();
    void centreAppeared();
    /// The centre gave up its name, or another takes its place: then centreAppeared() follows.
    void centreGone();

private slots:
    void handleDisconnected(); ///< Called for a signal of the bus library.

private:
    void disconnectFromBus();

    std::optional<QDBusConnection> bus_;
    std::unique_ptr<QDBusServiceWatcher> owners_;
};

} // namespace norvane
