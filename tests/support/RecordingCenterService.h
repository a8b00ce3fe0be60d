// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/bus/PendingRequest.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

namespace norvane {

/// The service behind the notification centre, as far as a test of its clients needs one: it takes
/// the calls that the contract knows and writes them down.
class RecordingCenterService final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    /// Answers on the connection at once, but owns no name yet.
    explicit RecordingCenterService(QDBusConnection connection);
    ~RecordingCenterService() override;

    /// Takes the name that clients call.
    [[nodiscard]] bool appear();
    /// Gives the name up again.
    void disappear();
    /// Takes calls, but answers none from now on, or answers them again.
    void setSilent(bool silent) { isSilent_ = silent; }

    /// Each call as its name and arguments with blanks in between, in order.
    [[nodiscard]] const QStringList &calls() const noexcept { return calls_; }
    /// The connections that calls came from, by their names on the bus.
    [[nodiscard]] const QSet<QString> &callers() const noexcept { return callers_; }
    /// How many of the calls asked for an answer.
    [[nodiscard]] int answersAsked() const noexcept { return answersAsked_; }

public slots:
    // The names are the contract's.
    bool RequestAuthorization(uint options);
    void AddRequest(const QString &identifier, const QString &title, const QString &body,
                    const QString &sound, const QString &trigger);
    void RemovePendingRequests(const QStringList &identifiers);
    void RemoveAllPendingRequests();
    [[nodiscard]] norvane::PendingRequestList PendingRequests() const;

private:
    void note(const QString &call);

    QDBusConnection connection_;
    QStringList calls_;
    QSet<QString> callers_;
    int answersAsked_ = 0;
    bool isSilent_ = false;
};

} // namespace norvane
