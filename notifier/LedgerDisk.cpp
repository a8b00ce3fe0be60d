// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LedgerDisk.h"

#include "notifier/LedgerTables.h"
#include "platform/Folders.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

#include <cerrno>
#include <tuple>

#include <sys/stat.h>

namespace norvane {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions ownerFolder = ownerFile | QFile::ExeOwner;

/// SQLite's code for an error, without the details.
int codeOf(const QSqlError &error)
{
    return error.nativeErrorCode().toInt() & 0xff;
}

/// A file that is no database, or no longer one (SQLITE_CORRUPT, SQLITE_NOTADB).
bool isDamage(const QSqlError &error)
{
    return codeOf(error) == 11 || codeOf(error) == 26;
}

/// A database that SQLite reads and that is not one of ours: of another text encoding, with rules
/// that nobody knows here, or with tables that do not take what is written to them (SQLITE_ERROR,
/// SQLITE_CONSTRAINT, SQLITE_MISMATCH).
bool isForeign(const QSqlError &error)
{
    return codeOf(error) == 1 || codeOf(error) == 19 || codeOf(error) == 20;
}

/// What a path itself is, without following it where it is a link. Nothing where there is nothing.
std::optional<mode_t> kindOf(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0
               ? std::optional{status.st_mode & S_IFMT}
               : std::nullopt;
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

LedgerDisk::State LedgerDisk::attach(QSqlDatabase &database, std::chrono::milliseconds timeout)
{
    const bool isThere = makeFolder();
    if (!lock_ || locked_ != identityOf(folder_)) {
        lock_.emplace(); // The lock on a folder that was removed keeps nobody out of the new one.
        locked_ = identityOf(folder_);
    }
    if (lock_->take(QFile::encodeName(folder_).toStdString(), timeout) ==
        FolderLock::Answer::Held) {
        return State::InUse;
    }
    if (!isThere || !isFile()) {
        return State::Unwritable;
    }
    State state = tryAttach(database);
    if (state == State::Damaged || state == State::OtherVersion) {
        setAside(QLatin1StringView{state == State::Damaged ? "damaged" : "other-version"});
        state = tryAttach(database);
    }
    attached_ = identities();
    return state;
}

LedgerDisk::Identity LedgerDisk::identityOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0
               ? Identity{{status.st_dev, status.st_ino}}
               : std::nullopt;
}

std::array<LedgerDisk::Identity, 2> LedgerDisk::identities() const
{
    return {identityOf(path_), identityOf(path_ + QLatin1StringView{"-wal"})};
}

bool LedgerDisk::isInPlace() const
{
    return identities() == attached_;
}

LedgerDisk::Stamp LedgerDisk::stamp() const
{
    Stamp stamp{};
    auto *next = stamp.data();
    for (const char *const part : {"", "-wal"}) {
        struct stat status = {};
        std::ignore =
            ::stat(QFile::encodeName(path_ + QLatin1StringView{part}).constData(), &status);
        for (const auto number : {static_cast<qint64>(status.st_dev),
                                  static_cast<qint64>(status.st_ino), qint64{status.st_size},
                                  qint64{status.st_mtim.tv_sec}, qint64{status.st_mtim.tv_nsec}}) {
            *next++ = number;
        }
    }
    return stamp;
}

bool LedgerDisk::mayHoldSomething() const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path_).constData(), &status) == 0) {
        return S_ISREG(status.st_mode) && status.st_size > 0;
    }
    return errno != ENOENT && errno != ENOTDIR && errno != ELOOP;
}

/// Whether the path leads to an ordinary file. Opening a pipe or a device could block, or do harm.
bool LedgerDisk::isFile() const
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path_).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

bool LedgerDisk::attachForReading(QSqlDatabase &database) const
{
    if (isReadable(database)) {
        return true;
    }
    detach(database);
    // Perhaps only the log beside the file cannot be opened. When it is empty, it is not needed.
    return attachAsItIs(database, QLatin1StringView{"?mode=ro"}) ||
           (QFileInfo{path_ + QLatin1StringView{"-wal"}}.size() == 0 &&
            attachAsItIs(database, QLatin1StringView{"?mode=ro&immutable=1"}));
}

bool LedgerDisk::attachInUse(QSqlDatabase &database) const
{
    return attachAsItIs(database, QLatin1StringView{"?mode=rw"});
}

bool LedgerDisk::attachAsItIs(QSqlDatabase &database, QLatin1StringView options) const
{
    QSqlQuery query{database};
    if (isFile() && attachFile(query, attachment(path_, options)) && isReadable(database)) {
        return true;
    }
    query.clear();
    detach(database);
    return false;
}

void LedgerDisk::tellOthers() const
{
    QFile sign{folder_ + QStringLiteral("/handed-over")};
    if (sign.open(QFile::WriteOnly, ownerFile)) {
        sign.remove();
    }
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
    if (!makePrivateFolder(QFile::encodeName(folder_).toStdString())) {
        return false;
    }
    // Where the user has put a link, what it leads to keeps the permissions that it has.
    if (kindOf(folder_) == S_IFDIR) {
        QFile::setPermissions(folder_, ownerFolder);
    }
    // Made here rather than by SQLite, so that nobody else can open it for even a moment.
    QFile file{path_};
    if (!file.exists() && !file.open(QFile::WriteOnly | QFile::NewOnly, ownerFile)) {
        return false;
    }
    if (kindOf(path_) == S_IFREG) {
        file.setPermissions(ownerFile);
    }
    return true;
}

LedgerDisk::State LedgerDisk::tryAttach(QSqlDatabase &database) const
{
    detach(database); // So that an error of ATTACH is about this file.
    QSqlQuery query{database};
    const auto failure = [&] {
        const QSqlError error = query.lastError();
        const State state =
            isDamage(error) || isForeign(error) ? State::Damaged : State::Unwritable;
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
    return prepareForWriting(database, fresh);
}

LedgerDisk::State LedgerDisk::prepareForWriting(QSqlDatabase &database, bool isNew)
{
    QSqlQuery query{database};
    // The version is written every time, because only that shows whether writing works at all.
    const bool isWritten = query.exec(QStringLiteral("PRAGMA disk.journal_mode = WAL")) &&
                           query.exec(QStringLiteral("PRAGMA disk.synchronous = FULL")) &&
                           query.exec(QStringLiteral("PRAGMA disk.cache_size = -256")) &&
                           query.exec(QStringLiteral("BEGIN")) &&
                           (!isNew || ledgerTables::create(database, QStringLiteral("disk"))) &&
                           query.exec(QStringLiteral("PRAGMA disk.user_version = %1").arg(version));
    QSqlError error = isWritten ? ledgerTables::tryAll(database) : query.lastError();
    const bool isOther = isWritten && isForeign(error);
    if (!error.isValid() && !query.exec(QStringLiteral("COMMIT"))) {
        error = query.lastError();
    }
    if (isWritten && !error.isValid()) {
        return State::Ready;
    }
    query.exec(QStringLiteral("ROLLBACK"));
    query.clear();
    if (isDamage(error) || isOther) {
        detach(database);
        return State::Damaged;
    }
    return State::Unwritable;
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

} // namespace norvane
