// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LedgerTables.h"

#include "notifier/LedgerStatements.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

#include <algorithm>

namespace norvane::ledgerTables {

bool create(QSqlDatabase &database, const QString &schema)
{
    // due and lapsed are seconds since 1970 UTC; trigger is what due was worked out from. A lapsed
    // request came too late to be worth showing; it is kept for the case that the clock is wrong.
    static const QStringList tables{
        QStringLiteral("CREATE TABLE %1.pending (number INTEGER PRIMARY KEY, "
                       "identifier TEXT NOT NULL UNIQUE, title TEXT NOT NULL, body TEXT NOT NULL, "
                       "sound TEXT NOT NULL, \"trigger\" TEXT NOT NULL, due INTEGER NOT NULL, "
                       "lapsed INTEGER)"),
        QStringLiteral("CREATE INDEX %1.pending_by_due ON pending (due) WHERE lapsed IS NULL"),
        QStringLiteral("CREATE TABLE %1.outbox (number INTEGER PRIMARY KEY AUTOINCREMENT, "
                       "identifier TEXT NOT NULL, title TEXT NOT NULL, body TEXT NOT NULL, "
                       "sound TEXT NOT NULL, \"trigger\" TEXT NOT NULL, due INTEGER NOT NULL)"),
        QStringLiteral("CREATE INDEX %1.outbox_by_identifier ON outbox (identifier)"),
        QStringLiteral("CREATE TABLE %1.delivered (identifier TEXT NOT NULL, "
                       "\"trigger\" TEXT NOT NULL, at INTEGER NOT NULL, "
                       "PRIMARY KEY (identifier, \"trigger\")) WITHOUT ROWID"),
    };
    QSqlQuery query{database};
    return std::ranges::all_of(tables,
                               [&](const QString &table) { return query.exec(table.arg(schema)); });
}

QSqlError tryAll(QSqlDatabase &database)
{
    static const QStringList statements{
        QStringLiteral("SAVEPOINT attempt"),
        QStringLiteral("SELECT number, identifier, title, body, sound, \"trigger\", due, lapsed "
                       "FROM disk.pending LIMIT 0"),
        QStringLiteral("SELECT number, identifier, title, body, sound, \"trigger\", due "
                       "FROM disk.outbox LIMIT 0"),
        QStringLiteral("SELECT identifier, \"trigger\", at FROM disk.delivered LIMIT 0"),
        QStringLiteral("INSERT OR REPLACE INTO disk.pending (identifier, title, body, sound, "
                       "\"trigger\", due, lapsed) VALUES ('', '', '', '', '', 0, NULL)"),
        QStringLiteral("INSERT INTO disk.outbox (identifier, title, body, sound, \"trigger\", due) "
                       "VALUES ('', '', '', '', '', 0)"),
        QStringLiteral("INSERT OR REPLACE INTO disk.delivered (identifier, \"trigger\", at) "
                       "VALUES ('', '', 0)"),
        QStringLiteral("ROLLBACK TO attempt"),
        QStringLiteral("RELEASE attempt"),
    };
    QSqlQuery query{database};
    // While there are tables in memory, these reach those; the statements below name the file.
    for (const QString &statement : ledgerStatements::all) {
        if (!query.prepare(statement)) {
            return query.lastError();
        }
    }
    for (const QString &statement : statements) {
        if (!query.exec(statement)) {
            return query.lastError();
        }
    }
    return {};
}

} // namespace norvane::ledgerTables
