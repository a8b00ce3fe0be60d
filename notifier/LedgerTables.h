// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSqlError>
#include <QString>

class QSqlDatabase;

namespace norvane::ledgerTables {

/// Makes the ledger's tables in the schema `main` or `disk`.
[[nodiscard]] bool create(QSqlDatabase &database, const QString &schema);

/// Prepares all that the ledger ever asks, writes a row into every table in the schema `disk`, and
/// takes that back. Returns the error of the first statement that fails: then not every call could
/// be served from these tables. Inside a transaction only.
[[nodiscard]] QSqlError tryAll(QSqlDatabase &database);

} // namespace norvane::ledgerTables
