// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The ledger's SQL statements. They stand together so that all of them can be tried on a file
/// before the first call is served.
namespace norvane::ledgerStatements {

// Requests: identifier, title, body, sound, trigger.
inline const QString listPending =
    QStringLiteral("SELECT identifier, title, body, sound, \"trigger\" FROM pending "
                   "WHERE lapsed IS NULL ORDER BY \"trigger\", number");
inline const QString add =
    QStringLiteral("INSERT OR REPLACE INTO pending (identifier, title, body, sound, \"trigger\", "
                   "due) VALUES (?, ?, ?, ?, ?, ?)");

// Numbers.
inline const QString pendingSize = QStringLiteral(
    "SELECT total(length(CAST(identifier AS BLOB)) + length(CAST(title AS BLOB)) + "
    "length(CAST(body AS BLOB)) + length(CAST(sound AS BLOB)) + length(\"trigger\")) "
    "FROM pending WHERE lapsed IS NULL");
inline const QString count =
    QStringLiteral("SELECT (SELECT count(*) FROM pending) + (SELECT count(*) FROM outbox)");
inline const QString earliestDue =
    QStringLiteral("SELECT due FROM pending WHERE lapsed IS NULL ORDER BY due LIMIT 1");
inline const QString isPending = QStringLiteral("SELECT 1 FROM pending WHERE identifier = ?");
inline const QString cameAlready =
    QStringLiteral("SELECT 1 FROM delivered WHERE identifier = ? AND \"trigger\" = ? UNION ALL "
                   "SELECT 1 FROM outbox WHERE identifier = ? AND \"trigger\" = ?");

// Number, identifier, trigger, due.
inline const QString dueAt =
    QStringLiteral("SELECT number, identifier, \"trigger\", due FROM pending WHERE lapsed IS NULL "
                   "AND due <= ? ORDER BY due, number");
inline const QString allWithDue =
    QStringLiteral("SELECT number, '', \"trigger\", due FROM pending");

// Pending requests, by number.
inline const QString removePending = QStringLiteral("DELETE FROM pending WHERE number = ?");
inline const QString copyToOutbox =
    QStringLiteral("INSERT INTO outbox (identifier, title, body, sound, \"trigger\", due) "
                   "SELECT identifier, title, body, sound, \"trigger\", due FROM pending "
                   "WHERE number = ?");
inline const QString lapse = QStringLiteral("UPDATE pending SET lapsed = ? WHERE number = ?");
inline const QString setDue = QStringLiteral("UPDATE pending SET due = ? WHERE number = ?");

// The outbox: requests and their due moments.
inline const QString listOutbox =
    QStringLiteral("SELECT identifier, title, body, sound, \"trigger\", due FROM outbox "
                   "ORDER BY number");
inline const QString earlierWaiting =
    QStringLiteral("SELECT identifier, title, body, sound, \"trigger\", due FROM outbox "
                   "WHERE identifier > ? AND identifier < ? AND \"trigger\" < ?");
inline const QString lapseWaiting =
    QStringLiteral("INSERT OR IGNORE INTO pending (identifier, title, body, sound, \"trigger\", "
                   "due, lapsed) SELECT identifier, title, body, sound, \"trigger\", due, ? FROM "
                   "outbox WHERE identifier = ? AND \"trigger\" = ?");
inline const QString removeFromOutbox =
    QStringLiteral("DELETE FROM outbox WHERE identifier = ? AND \"trigger\" = ?");

// What came: identifiers.
inline const QString laterCame =
    QStringLiteral("SELECT identifier FROM delivered WHERE identifier > ? AND identifier < ? AND "
                   "\"trigger\" > ? UNION ALL SELECT identifier FROM outbox WHERE identifier > ? "
                   "AND identifier < ? AND \"trigger\" > ?");
inline const QString rememberDelivered =
    QStringLiteral("INSERT OR REPLACE INTO delivered VALUES (?, ?, ?)");

// By moment, by identifier, and everything.
inline const QString reviveLapsed = QStringLiteral(
    "UPDATE pending SET lapsed = NULL WHERE lapsed NOT NULL AND (due > ? OR lapsed > ?)");
inline const QString forgetLapsedBefore = QStringLiteral("DELETE FROM pending WHERE lapsed < ?");
inline const QString forgetDeliveredBefore = QStringLiteral("DELETE FROM delivered WHERE at < ?");
inline const QString forgetDeliveredAfter = QStringLiteral("DELETE FROM delivered WHERE at > ?");
inline const QString removeFromPending = QStringLiteral("DELETE FROM pending WHERE identifier = ?");
inline const QString removeWaiting = QStringLiteral("DELETE FROM outbox WHERE identifier = ?");
inline const QString removeAllPending = QStringLiteral("DELETE FROM pending");

inline const QStringList all{listPending,
                             add,
                             pendingSize,
                             count,
                             earliestDue,
                             isPending,
                             cameAlready,
                             dueAt,
                             allWithDue,
                             removePending,
                             copyToOutbox,
                             lapse,
                             setDue,
                             listOutbox,
                             earlierWaiting,
                             lapseWaiting,
                             removeFromOutbox,
                             laterCame,
                             rememberDelivered,
                             reviveLapsed,
                             forgetLapsedBefore,
                             forgetDeliveredBefore,
                             forgetDeliveredAfter,
                             removeFromPending,
                             removeWaiting,
                             removeAllPending};

} // namespace norvane::ledgerStatements
