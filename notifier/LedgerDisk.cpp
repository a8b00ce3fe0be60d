// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LedgerDisk.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

#include <algorithm>
#include <tuple>

namespace norvane {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions ownerFolder = ownerFile | QFile::ExeOwner;

/// SQLite's codes for a file that is no database, or no longer one.
bool isDamage(const QSqlError &error)
{
    const int code = error.nativeErrorCode().toInt() & 0xff;
    return code == 11 || code == 26;
}

/// The file as SQLite's ATTACH takes it.
QString attachment(const QString &path, QLatin1StringView options)
{
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()) + options;
}

bool attachFile(QSqlQuery &query, const QString &file)
{
    return query.prepare(QStringLiteral("ATTACH ? AS disk")) &&
           (query.addBindValue(file), query.exec());
}

bool ask(QSqlQuery &query, const QString &question)
{
    return query.exec(question) && query.next();
}

} // namespace

LedgerDisk::LedgerDisk(const QString &folder)
    : folder_{folder},
      path_{folder + QStringLiteral("/pending.sqlite")}
{
}

LedgerDisk::State LedgerDisk::attach(QSqlDatabase &database, std::chrono::milliseconds patience)
{
    const bool isThere = makeFolder();
    if (lock_.take(folder_, patience) == FolderLock::Answer::Held) {
        return State::InUse;
    }
    if (!isThere) {
        return State::Unwritable;
    }
    State state = tryAttach(database);
    if (state == State::Damaged || state == State::OtherVersion) {
        setAside(QLatin1StringView{state == State::Damaged ? "damaged" : "other-version"});
        state = tryAttach(database);
    }
    return state;
}

bool LedgerDisk::attachForReading(QSqlDatabase &database) const
{
    if (isReadable(database)) {
        return true;
    }
    detach(database);
    QSqlQuery query{database};
    if (attachFile(query, attachment(path_, QLatin1StringView{"?mode=ro"})) &&
        isReadable(database)) {
        return true;
    }
    detach(database);
    // The log beside the file may be what cannot be opened. It may be ignored only when empty.
    if (QFileInfo{path_ + QLatin1StringView{"-wal"}}.size() == 0 &&
        attachFile(query, attachment(path_, QLatin1StringView{"?mode=ro&immutable=1"})) &&
        isReadable(database)) {
        return true;
    }
    detach(database);
    return false;
}

bool LedgerDisk::isReadable(QSqlDatabase &database)
{
    QSqlQuery query{database};
    return ask(query, QStringLiteral("PRAGMA disk.user_version")) &&
           query.value(0).toInt() == version;
}

void LedgerDisk::detach(QSqlDatabase &database)
{
    QSqlQuery{database}.exec(QStringLiteral("DETACH disk"));
}

bool LedgerDisk::makeFolder() const
{
    const QDir folder{folder_};
    if (!folder.exists() &&
        !(QDir{}.mkpath(QFileInfo{folder_}.path()) && QDir{}.mkdir(folder_, ownerFolder))) {
        return false;
    }
    QFile::setPermissions(folder_, ownerFolder);
    // Made here rather than by SQLite, so that nobody else can open it for even a moment.
    QFile file{path_};
    if (!file.exists() && !file.open(QFile::WriteOnly | QFile::NewOnly, ownerFile)) {
        return false;
    }
    file.setPermissions(ownerFile);
    return true;
}

LedgerDisk::State LedgerDisk::tryAttach(QSqlDatabase &database) const
{
    QSqlQuery query{database};
    const auto failure = [&] {
        const State state = isDamage(query.lastError()) ? State::Damaged : State::Unwritable;
        query.clear();
        detach(database);
        return state;
    };
    if (!attachFile(query, attachment(path_, QLatin1StringView{"?mode=rw"}))) {
        return failure();
    }
    if (!ask(query, QStringLiteral("PRAGMA disk.quick_check(1)"))) {
        return failure();
    }
    if (query.value(0).toString() != QLatin1StringView{"ok"}) {
        query.clear();
        detach(database);
        return State::Damaged;
    }
    if (!ask(query, QStringLiteral("PRAGMA disk.user_version"))) {
        return failure();
    }
    const int found = query.value(0).toInt();
    if (!ask(query, QStringLiteral("SELECT count(*) FROM disk.sqlite_master"))) {
        return failure();
    }
    const bool fresh = found == 0 && query.value(0).toInt() == 0;
    query.clear();
    if (!fresh && found != version) {
        detach(database);
        return State::OtherVersion;
    }
    // The version is written every time: this is what finds out that writing works at all.
    const bool written = query.exec(QStringLiteral("PRAGMA disk.journal_mode = WAL")) &&
                         query.exec(QStringLiteral("PRAGMA disk.synchronous = FULL")) &&
                         query.exec(QStringLiteral("PRAGMA disk.cache_size = -256")) &&
                         query.exec(QStringLiteral("BEGIN")) &&
                         (!fresh || createTables(database, QStringLiteral("disk"))) &&
                         query.exec(QStringLiteral("PRAGMA disk.user_version = %1").arg(version)) &&
                         query.exec(QStringLiteral("COMMIT"));
    if (!written) {
        const QSqlError error = query.lastError();
        query.exec(QStringLiteral("ROLLBACK"));
        if (isDamage(error)) {
            detach(database);
        }
        return isDamage(error) ? State::Damaged : State::Unwritable;
    }
    return State::Ready;
}

void LedgerDisk::setAside(QLatin1StringView reason) const
{
    const QString aside =
        path_ + u'.' + reason + u'-' +
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmsszzz'Z'"));
    qWarning("Norvane's reminders could not be read; they are set aside in %s",
             qUtf8Printable(aside));
    for (const char *const part : {"", "-wal", "-shm"}) {
        QFile::rename(path_ + QLatin1StringView{part}, aside + QLatin1StringView{part});
    }
    std::ignore = makeFolder();
}

bool LedgerDisk::createTables(QSqlDatabase &database, const QString &schema)
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

} // namespace norvane
