// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"
#include "model/store/TrialStore.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/FileEvents.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QTest>

#include <limits>

using namespace norvane;

/// What a store makes of the file that it finds, and of the reminders in it.
class TestTrialStoreStart final : public QObject {
    Q_OBJECT

private slots:
    void theFirstStartMakesTheFolderAndAnEmptyFile()
    {
        FakePlatform fake;
        const QString deeper = fake.folders.root() + QStringLiteral("/not/yet/there");

        const TrialStore store{fake.onFolder(deeper.toStdString())};

        QVERIFY(store.trials().isEmpty());
        QCOMPARE(store.activeCount(), 0);
        QFile file{deeper + QStringLiteral("/Norvane/trials.json")};
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray{"[]"});
    }

    void theFileIsLoadedInItsOrder()
    {
        FakePlatform fake;
        fake.folders.write(
            TrialsText::fileOf({element("C", 5 * day), element("A", -day), element("B", 0)}));

        const TrialStore store{fake.all()};

        QCOMPARE(names(store), QStringLiteral("CAB"));
        QCOMPARE(store.activeCount(), 2);
    }

    void aFileThatCannotBeDecodedIsReplacedByAnEmptyList_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("a member is missing")
            << TrialsText::fileOf({TrialsText{}.record(), TrialsText{}.without("notes").record()});
        QTest::newRow("cut off") << TrialsText{}.text().chopped(20);
        QTest::newRow("empty") << QByteArray{""};
        QTest::newRow("not JSON") << QByteArray(100'000, '[');
    }
    void aFileThatCannotBeDecodedIsReplacedByAnEmptyList()
    {
        QFETCH(const QByteArray, bytes);
        FakePlatform fake;
        fake.folders.write(bytes);

        const TrialStore store{fake.all()};

        QVERIFY(store.trials().isEmpty());
        QCOMPARE(fake.folders.bytes(), QByteArray{"[]"});
        QCOMPARE(QDir{fake.folders.storeFolder()}.entryList(QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("trials.json")});
    }

    void aStartWritesTheFileOnceHoweverManyTrialsArePlanned()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf(
            {element("A", 5 * day), element("B", 5 * day), element("C", 5 * day)}));
        const FileEvents events{fake.folders.trialsFile(), IN_OPEN | IN_CLOSE};

        const TrialStore store{fake.all()};

        QCOMPARE(events.take(),
                 (QList<quint32>{IN_OPEN, IN_CLOSE_NOWRITE, IN_OPEN, IN_CLOSE_WRITE}));
    }

    void everyStartWritesTheFileAnew()
    {
        FakePlatform fake;
        fake.folders.write("  " + TrialsText{}.plus("\"colour\":1").text());

        const TrialStore store{fake.all()};

        QCOMPARE(fake.folders.bytes(), TrialsFile::encode(store.trials()));
        QVERIFY(fake.folders.bytes().startsWith("[{\"id\""));
    }

    void allPendingRequestsAreDroppedBeforeAnyIsAdded()
    {
        FakePlatform fake;
        fake.center.addNotificationRequest({.identifier = QStringLiteral("stale"),
                                            .title = {},
                                            .body = {},
                                            .sound = {},
                                            .trigger = {}});
        fake.center.forget();
        fake.folders.write(TrialsText::fileOf({element("A", 2 * hour), element("B", 2 * day)}));

        const TrialStore store{fake.all()};

        QCOMPARE(fake.center.operations(),
                 (QStringList{QStringLiteral("remove all"), u"add " + id("A") + u"-1h",
                              u"add " + id("B") + u"-24h", u"add " + id("B") + u"-1h"}));
        QVERIFY(!fake.center.pending().contains(QStringLiteral("stale")));
    }

    void anEmptyListStillDropsAllPendingRequests()
    {
        FakePlatform fake;

        const TrialStore store{fake.all()};

        QCOMPARE(fake.center.operations(), QStringList{QStringLiteral("remove all")});
        QCOMPARE(fake.folders.bytes(), QByteArray{"[]"});
    }

    void theNewIdentifiersAreKeptInTheTrialsAndInTheFile()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf(
            {element("A", 2 * day, R"(["old"])"), element("B", 2 * hour, R"(["old"])")}));

        const TrialStore store{fake.all()};

        const auto written = TrialsFile::decode(fake.folders.bytes());
        QVERIFY(written);
        for (const QList<Trial> &trials : {store.trials(), *written}) {
            QCOMPARE(trials.at(0).notificationIds,
                     (QStringList{id("A") + u"-24h", id("A") + u"-1h"}));
            QCOMPARE(trials.at(1).notificationIds, QStringList{id("B") + u"-1h"});
        }
    }

    void aTrialThatHasEndedKeepsItsStaleIdentifiers()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf({element("A", -day, R"(["old"])")}));

        const TrialStore store{fake.all()};

        QCOMPARE(store.trials().first().notificationIds, QStringList{QStringLiteral("old")});
        QCOMPARE(fake.center.operations(), QStringList{QStringLiteral("remove all")});
    }

    void aTrialWithinItsLastHourLosesItsIdentifiers_data()
    {
        QTest::addColumn<double>("secondsLeft");
        QTest::newRow("40 minutes") << 2'400.0;
        QTest::newRow("ends now") << 0.0;
    }
    void aTrialWithinItsLastHourLosesItsIdentifiers()
    {
        QFETCH(const double, secondsLeft);
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf({element("A", secondsLeft, R"(["old"])")}));

        const TrialStore store{fake.all()};

        QVERIFY(store.trials().first().notificationIds.isEmpty());
    }

    void startingTwiceLeavesTheSameFileAndTheSamePending()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf({element("A", 5 * day), element("B", 2 * day)}));
        const TrialStore first{fake.all()};
        const QByteArray bytes = fake.folders.bytes();
        const auto pending = fake.center.pending();

        const TrialStore second{fake.all()};

        QCOMPARE(fake.folders.bytes(), bytes);
        QCOMPARE(fake.center.pending(), pending);
        QCOMPARE(pending.size(), 5);
        QCOMPARE(second.trials(), first.trials());
    }

    void ofTwoTrialsWithOneIdTheFirstGetsTheIdentifiersOfBothInTurn()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf(
            {element("A", 5 * day, R"(["first"])"), element("A", 2 * day, R"(["second"])")}));

        const TrialStore store{fake.all()};

        QCOMPARE(store.trials().at(0).notificationIds,
                 (QStringList{id("A") + u"-24h", id("A") + u"-1h"}));
        QCOMPARE(store.trials().at(1).notificationIds, QStringList{QStringLiteral("second")});
        QCOMPARE(fake.center.requests().size(), 5);
        // Five days ahead for what only the first asked for, two for what the second replaced.
        QCOMPARE(fake.center.pending().value(id("A") + u"-3d").trigger.day, 3);
        QCOMPARE(fake.center.pending().value(id("A") + u"-24h").trigger.day, 2);
    }

    void anExtremeEndIsLoadedPlannedAndKept()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf(
            {TrialsText{}.with("endDate", "1e308").record(),
             TrialsText{}.with("endDate", "-1e308").with("id", idJson("B")).record()}));

        const TrialStore store{fake.all()};

        QCOMPARE(store.activeCount(), 1);
        QCOMPARE(store.trials().at(0).notificationIds.size(), 3);
        QVERIFY(store.trials().at(1).notificationIds.isEmpty());
        QCOMPARE(fake.center.operations(), QStringList{QStringLiteral("remove all")});
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void theClockIsReadAfreshForEachTrial()
    {
        FakePlatform fake;
        fake.folders.write(
            TrialsText::fileOf({element("A", hour / 2), element("B", hour / 2, R"(["old"])")}));
        fake.clock.moveAtEachRead(hour / 6);

        const TrialStore store{fake.all()};

        // Four readings for the first, then the second has ended.
        QCOMPARE(fake.clock.reads(), 5);
        QCOMPARE(store.trials().at(1).notificationIds, QStringList{QStringLiteral("old")});
    }

private:
    static constexpr double hour = 3'600;
    static constexpr double day = 24 * hour;

    /// An identity that ends in the letter.
    static QString id(const char *letter)
    {
        return QStringLiteral("BA96CA62-A106-480E-9C02-EEBDC393F97") + QString::fromLatin1(letter);
    }
    static QByteArray idJson(const char *letter) { return "\"" + id(letter).toLatin1() + "\""; }
    static QByteArray element(const char *letter, double secondsFromNow,
                              const QByteArray &identifiers = "[]")
    {
        const double end = FakePlatform::start.advanced(secondsFromNow).secondsSinceReference();
        const QByteArray name{letter};
        return TrialsText{}
            .with("id", idJson(letter))
            .with("name", "\"" + name + "\"")
            .with("endDate", QByteArray::number(end, 'f', 3))
            .with("notificationIds", identifiers)
            .record();
    }
    static QString names(const TrialStore &store)
    {
        QString names;
        for (const Trial &trial : store.trials()) {
            names += trial.name;
        }
        return names;
    }
};

NORVANE_TEST(TestTrialStoreStart)
#include "tst_TrialStoreStart.moc"
