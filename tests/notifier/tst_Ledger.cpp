// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Ledger.h"
#include "tests/notifier/FakeSurroundings.h"
#include "tests/support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <tuple>

using namespace norvane;
using namespace std::chrono;

namespace {

constexpr sys_seconds far{seconds{32'503'680'000}};

NotificationRequest requestOf(const QString &identifier)
{
    return {.identifier = identifier, .title = {}, .body = {}, .sound = {}, .trigger = {}};
}

} // namespace

class TestLedger final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        open(ledger_);
        QVERIFY(ledger_->isOnDisk());
    }

    void cleanup()
    {
        other_.reset();
        ledger_.reset();
    }

    void eachTransactionIsWrittenThroughToTheDisk()
    {
        QCOMPARE(ask(QStringLiteral("PRAGMA disk.synchronous")), 2); // FULL
    }

    void itWaitsASecondForAnotherProgramThatLooksIntoTheFile()
    {
        QCOMPARE(ask(QStringLiteral("PRAGMA busy_timeout")), 1000);
        QVERIFY(QFile::remove(folder() + u"/pending.sqlite"));

        ledger_->checkFile();

        QVERIFY(ledger_->isOnDisk());
        QCOMPARE(ask(QStringLiteral("PRAGMA busy_timeout")), 1000);
    }

    void nobodyWritesWhileATransactionReads()
    {
        bool couldWrite = true;
        ledger_->transact([&] {
            std::ignore = ledger_->count();
            couldWrite = otherProgram(QStringLiteral("DELETE FROM pending"));
        });

        QVERIFY(!couldWrite);
        QVERIFY(otherProgram(QStringLiteral("DELETE FROM pending")));
    }

    void whatMemoryDeliveredIsNotDeliveredAgainFromTheFile()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        ledger_->transact([&] { ledger_->moveToOutbox(1); });
        open(other_);
        QVERIFY(!other_->isOnDisk());
        other_->transact(
            [&] { other_->rememberDelivered(requestOf(QStringLiteral("a-1h")), far); });

        ledger_.reset();

        QVERIFY(other_->goBackToDisk());
        QVERIFY(!other_->outboxHead());
    }

    void whatASecondOneHandsOverIsInTheFile()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        open(other_);
        add(*other_, QStringLiteral("b-1h"));

        QVERIFY(other_->handOver());

        QCOMPARE(ledger_->pending().value().size(), 2U);
        QCOMPARE(other_->count(), 0);
    }

    void whatWasHandedOverWhileTheDiskWasFullIsKept()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        {
            const FullDisk disk{true};
            add(*ledger_, QStringLiteral("c-1h"));
        }
        QVERIFY(!ledger_->isOnDisk());
        open(other_);
        add(*other_, QStringLiteral("b-1h"));
        QVERIFY(other_->handOver());

        QVERIFY(ledger_->goBackToDisk());

        QCOMPARE(ledger_->pending().value().size(), 3U);
    }

    void whatWasRemovedWhileTheDiskWasFullStaysAway()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        {
            const FullDisk disk{true};
            ledger_->transact([&] { ledger_->removeAllPending(); });
        }
        QVERIFY(!ledger_->isOnDisk());

        QVERIFY(ledger_->goBackToDisk());

        QCOMPARE(ledger_->count(), 0);
    }

    void aFileThatAnotherOneTookUpIsNotOverwritten()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        QVERIFY(QDir{folder()}.removeRecursively());
        open(other_); // Makes a new one before the loss was noticed.
        add(*other_, QStringLiteral("b-1h"));
        ledger_->checkFile();
        QVERIFY(!ledger_->isOnDisk());
        other_.reset();

        QVERIFY(ledger_->goBackToDisk());

        QCOMPARE(ledger_->pending().value().size(), 2U);
    }

    void whatTheDiskRefusesInTheMiddleOfATransactionIsKept()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        // Unlike a full disk, FAIL leaves the transaction open.
        QVERIFY(otherProgram(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON pending "
                                            "BEGIN SELECT RAISE(FAIL, 'refused'); END")));

        add(*ledger_, QStringLiteral("b-1h"));

        QCOMPARE(ledger_->pending().value().size(), 2U);
    }

    void aDiskThatIsFullIsNoticedWhenItOpens()
    {
        for (int i = 0; i < 20; ++i) {
            add(*ledger_, QString{10'000, QChar{u'a' + i}});
        }
        const QString name = QStringLiteral("keeps the log");
        {
            QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            other.setDatabaseName(folder() + u"/pending.sqlite");
            QVERIFY(other.open());
            QVERIFY(QSqlQuery{other}.exec(QStringLiteral("SELECT * FROM pending")));
            ledger_.reset();
            // The log is longer than that, and grows when the ledger tries whether it can write.
            const FullDisk disk{true, 65'536};

            open(ledger_);

            QVERIFY(!ledger_->isOnDisk());
            QCOMPARE(ledger_->pending().value().size(), 20U);
        }
        QSqlDatabase::removeDatabase(name);
    }

    void aChangeIsKeptWhenTheFileIsLostAndUnreadable()
    {
        // More than SQLite keeps in memory, so that the rest is read from the file.
        ledger_->transact([&] {
            for (int i = 0; i < 1'000; ++i) {
                NotificationRequest request = requestOf(QString::number(i));
                request.body = QString{1'000, u'x'};
                ledger_->add(request, far);
            }
        });
        ledger_.reset(); // Moves the log's content to the file.
        open(ledger_);
        QFile file{folder() + u"/pending.sqlite"};
        QVERIFY(file.open(QFile::ReadWrite));
        const qint64 half = file.size() / 2;
        QVERIFY(file.seek(half));
        QCOMPARE(file.write(QByteArray{static_cast<qsizetype>(half), '\xff'}), half);
        QVERIFY(file.rename(folder() + u"/lost"));
        const NotificationRequest shown = requestOf(QStringLiteral("a-1h"));

        ledger_->transact([&] { ledger_->rememberDelivered(shown, far); });

        QVERIFY(ledger_->isOnDisk());
        QVERIFY(ledger_->cameAlready(shown.identifier, shown.trigger));
    }

    void whatCannotBeReadIsAnError()
    {
        add(*ledger_, QStringLiteral("a-1h"));
        QSqlQuery{database()}.exec(QStringLiteral("DETACH disk"));

        QVERIFY(!ledger_->pending());
        QVERIFY(!ledger_->pendingSize());
        QVERIFY(ledger_->hasPending());
    }

private:
    [[nodiscard]] QString folder() const { return folder_->filePath(QStringLiteral("norvane")); }

    void open(std::unique_ptr<Ledger> &ledger) const
    {
        ledger = std::make_unique<Ledger>(folder());
        QVERIFY(ledger->open(0ms));
    }

    static void add(Ledger &ledger, const QString &identifier)
    {
        ledger.transact([&] { ledger.add(requestOf(identifier), far); });
    }

    /// The first ledger's connection.
    [[nodiscard]] static QSqlDatabase database()
    {
        return QSqlDatabase::database(QSqlDatabase::connectionNames().first());
    }

    [[nodiscard]] static int ask(const QString &question)
    {
        QSqlQuery query{database()};
        return query.exec(question) && query.next() ? query.value(0).toInt() : -1;
    }

    /// Whether another program can do this with the file now.
    [[nodiscard]] bool otherProgram(const QString &statement) const
    {
        const QString name = QStringLiteral("other program");
        bool isDone = false;
        {
            QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
            database.setDatabaseName(folder() + u"/pending.sqlite");
            isDone = database.open() && QSqlQuery{database}.exec(statement);
        }
        QSqlDatabase::removeDatabase(name);
        return isDone;
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Ledger> ledger_;
    std::unique_ptr<Ledger> other_;
};

NORVANE_TEST(TestLedger)
#include "tst_Ledger.moc"
