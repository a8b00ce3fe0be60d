// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"
#include "model/store/TrialStore.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace norvane;

class TestTrialStore final : public QObject {
    Q_OBJECT

private slots:
    void addingAppendsEvenATrialThatEndsFirst()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};

        add(store, "later", 9 * day);
        add(store, "sooner", day);

        QCOMPARE(names(store.trials()),
                 (QStringList{QStringLiteral("later"), QStringLiteral("sooner")}));
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void anAddedTrialHasAFreshIdTheCurrentTimeAndItsIdentifiers()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        fake.clock.set(FakePlatform::start.advanced(5));

        store.add(QStringLiteral("Acme"), FakePlatform::start.advanced(2 * day), 9.5,
                  QStringLiteral("notes"));

        const Trial trial = store.trials().constLast();
        QCOMPARE(trial.id.version(), QUuid::Random);
        QCOMPARE(trial.createdAt, FakePlatform::start.advanced(5));
        QCOMPARE(trial.endDate, FakePlatform::start.advanced(2 * day));
        QCOMPARE(trial.cost, 9.5);
        QCOMPARE(trial.notes, QStringLiteral("notes"));
        QCOMPARE(trial.notificationIds,
                 (QStringList{trial.idText() + u"-24h", trial.idText() + u"-1h"}));
    }

    void theTimeOfCreationIsReadBeforeTheRemindersArePlanned()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        fake.clock.moveAtEachRead(1);

        store.add(QStringLiteral("Acme"), FakePlatform::start.advanced(9 * day), 1, {});

        QCOMPARE(store.trials().constLast().createdAt, FakePlatform::start);
    }

    void addingPlansOnlyTheNewTrial()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "first", 9 * day);
        fake.center.forget();

        add(store, "second", 2 * hour);

        QCOMPARE(fake.center.operations(),
                 QStringList{u"add " + store.trials().at(1).idText() + u"-1h"});
    }

    void theZoneIsAskedForAnewAtEachPlan()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};

        add(store, "at home", 2 * hour);
        fake.clock.setZone(QByteArrayLiteral("Asia/Tokyo"));
        add(store, "on a journey", 2 * hour);

        QCOMPARE(fake.center.requests().size(), 2);
        QCOMPARE(fake.center.requests().at(0).trigger.text(), QStringLiteral("2025-01-01T01:00"));
        QCOMPARE(fake.center.requests().at(1).trigger.text(), QStringLiteral("2025-01-01T10:00"));
    }

    void nothingIsCheckedWhenAdding()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};

        store.add({}, FakePlatform::start.advanced(-day), -3, {});

        QCOMPARE(store.trials().size(), 1);
        QCOMPARE(store.trials().first().cost, -3.0);
        QVERIFY(store.trials().first().notificationIds.isEmpty());
        QCOMPARE(store.activeCount(), 0);
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void aCostThatIsNotANumberHoldsBackTheFileUntilItsTrialIsGone()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "sound", day);
        const QByteArray before = fake.folders.bytes();

        store.add(QStringLiteral("broken"), FakePlatform::start.advanced(day),
                  std::numeric_limits<double>::quiet_NaN(), {});
        QCOMPARE(store.trials().size(), 2);
        QCOMPARE(fake.folders.bytes(), before);
        add(store, "third", day);
        QCOMPARE(fake.folders.bytes(), before);
        store.delete_(store.trials().at(1));

        QCOMPARE(names(store.trials()),
                 (QStringList{QStringLiteral("sound"), QStringLiteral("third")}));
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void deletingTakesTheTrialOutOfListAndFileAndKeepsTheOrderOfTheRest()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        for (const char *const name : {"a", "b", "c"}) {
            add(store, name, day);
        }

        store.delete_(store.trials().at(1)); // An element of the very list that changes.

        QCOMPARE(names(store.trials()), (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void deletingWithdrawsExactlyWhatThePassedValueCarries()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "a", 9 * day);
        Trial copy = store.trials().first();
        copy.notificationIds = {QStringLiteral("x"), QStringLiteral("y")};
        fake.center.forget();

        store.delete_(copy);
        fake.tasks.run();

        QCOMPARE(fake.center.operations(), QStringList{QStringLiteral("remove x y")});
        QVERIFY(store.trials().isEmpty());
    }

    void theWithdrawalIsABackgroundTaskThatIsNotWaitedFor()
    {
        FakePlatform fake;
        {
            TrialStore store{fake.all()};
            add(store, "a", 9 * day);
            fake.center.forget();

            store.delete_(store.trials().first());

            QCOMPARE(fake.tasks.count(), 1U);
            QVERIFY(fake.center.operations().isEmpty());
            QVERIFY(store.trials().isEmpty());
            QCOMPARE(fake.folders.bytes(), QByteArray{"[]"});
        }
        fake.tasks.run(); // It needs nothing of the store any more.

        QCOMPARE(fake.center.operations().size(), 1);
        QVERIFY(fake.center.pending().isEmpty());
    }

    void theWithdrawalIsStartedBeforeTheListAndTheFileChange()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "a", 9 * day);
        std::size_t startedThen = 0;
        connect(&store, &TrialStore::objectWillChange, this,
                [&] { startedThen = fake.tasks.count(); });

        store.delete_(store.trials().first());

        QCOMPARE(startedThen, std::size_t{1});
    }

    void deletingAnUnknownTrialStillSignalsWithdrawsAndWrites()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "a", day);
        Trial unknown = Trial::make(QStringLiteral("b"), {}, 0, {}, {});
        unknown.notificationIds = {QStringLiteral("x")};
        fake.folders.write("overwritten from outside");
        fake.center.forget();
        const QSignalSpy changes{&store, &TrialStore::objectWillChange};

        store.delete_(unknown);
        fake.tasks.run();

        QCOMPARE(changes.count(), 1);
        QCOMPARE(store.trials().size(), 1);
        QCOMPARE(fake.center.operations(), QStringList{QStringLiteral("remove x")});
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void deletingEitherOfTwoTrialsWithOneIdRemovesBoth_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("the first") << 0;
        QTest::newRow("the second") << 1;
    }
    void deletingEitherOfTwoTrialsWithOneIdRemovesBoth()
    {
        QFETCH(const int, index);
        FakePlatform fake;
        fake.folders.write(TrialsText::fileOf(
            {TrialsText{}.record(), TrialsText{}.with("name", "\"b\"").record()}));
        TrialStore store{fake.all()};

        store.delete_(store.trials().at(index));

        QVERIFY(store.trials().isEmpty());
        QCOMPARE(fake.folders.bytes(), QByteArray{"[]"});
    }

    void deletingDoesNotPlanTheOthersAnew()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "a", 9 * day);
        add(store, "b", 9 * day);
        const QStringList kept = store.trials().at(1).notificationIds;
        fake.center.forget();

        store.delete_(store.trials().first());
        fake.tasks.run();

        QVERIFY(fake.center.requests().isEmpty());
        QCOMPARE(fake.center.pending().keys(), [&] {
            QStringList sorted = kept;
            sorted.sort();
            return sorted;
        }());
    }

    void everyChangeIsSignalledOnceWhileTheOldListStillStands()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        QList<QList<Trial>> seen;
        QList<int> pendingThen;
        connect(&store, &TrialStore::objectWillChange, this, [&] {
            seen.append(store.trials());
            pendingThen.append(static_cast<int>(fake.center.pending().size()));
        });

        add(store, "a", 9 * day);
        const QList<Trial> one = store.trials();
        add(store, "b", 9 * day);
        const QList<Trial> two = store.trials();
        store.delete_(two.first());

        QCOMPARE(seen, (QList<QList<Trial>>{{}, one, two}));
        // The reminders of a new trial are asked for before it joins the list.
        QCOMPARE(pendingThen, (QList<int>{3, 6, 6}));
    }

    void readingTheListAndTheCountSignalsNothing()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        const QSignalSpy changes{&store, &TrialStore::objectWillChange};

        QCOMPARE(store.activeCount(), 0);
        QVERIFY(store.trials().isEmpty());

        QCOMPARE(changes.count(), 0);
    }

    void aTrialIsActiveUpToTheMomentOfItsEnd()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "a", 60);

        QCOMPARE(store.activeCount(), 1);
        fake.clock.set(FakePlatform::start.advanced(60));
        QCOMPARE(store.activeCount(), 1);
        fake.clock.set(FakePlatform::start.advanced(60.000001));
        QCOMPARE(store.activeCount(), 0);
    }

    void theClockIsReadForEachTrialThatIsCounted()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store, "a", 2);
        add(store, "b", 2);
        add(store, "c", 2);
        const int readsBefore = fake.clock.reads();
        fake.clock.moveAtEachRead(1.5);

        QCOMPARE(store.activeCount(), 2);

        QCOMPARE(fake.clock.reads(), readsBefore + 3);
    }

    void theEndOfAStoreWritesNothingAndAsksForNothing()
    {
        FakePlatform fake;
        {
            const TrialStore store{fake.all()};
            fake.folders.write("written later");
            fake.center.forget();
        }

        QCOMPARE(fake.folders.bytes(), QByteArray{"written later"});
        QVERIFY(fake.center.operations().isEmpty());
        QCOMPARE(fake.tasks.count(), 0U);
    }

private:
    static constexpr double hour = 3'600;
    static constexpr double day = 24 * hour;

    static void add(TrialStore &store, const char *name, double secondsFromStart)
    {
        store.add(QString::fromLatin1(name), FakePlatform::start.advanced(secondsFromStart), 1, {});
    }
    static QStringList names(const QList<Trial> &trials)
    {
        QStringList names;
        for (const Trial &trial : trials) {
            names.append(trial.name);
        }
        return names;
    }
};

NORVANE_TEST(TestTrialStore)
#include "tst_TrialStore.moc"
