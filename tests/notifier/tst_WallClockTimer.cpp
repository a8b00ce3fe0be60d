// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/WallClockTimer.h"
#include "tests/support/TestProgram.h"

#include <QSignalSpy>
#include <QTest>

#include <sys/timex.h>

using namespace norvane;
using namespace std::chrono;

namespace {

sys_seconds thisSecond()
{
    return floor<seconds>(system_clock::now());
}

/// By a millionth of a second: who waits for a jump hears of that as well.
bool setClockForward()
{
    struct timex change = {};
    change.modes = ADJ_SETOFFSET;
    change.time = {.tv_sec = 0, .tv_usec = 1};
    return ::adjtimex(&change) >= 0;
}

bool setClockBack()
{
    struct timex change = {};
    change.modes = ADJ_SETOFFSET;
    change.time = {.tv_sec = -1, .tv_usec = 999'999};
    return ::adjtimex(&change) >= 0;
}

} // namespace

class TestWallClockTimer final : public QObject {
    Q_OBJECT

private slots:
    void aMomentThatPassedFiresAtOnce_data()
    {
        QTest::addColumn<qint64>("unixSeconds");
        QTest::addRow("the epoch") << qint64{0};
        QTest::addRow("the first year") << qint64{-62'135'596'800};
        QTest::addRow("a day ago") << qint64{(thisSecond() - 24h).time_since_epoch().count()};
    }

    void aMomentThatPassedFiresAtOnce()
    {
        QFETCH(const qint64, unixSeconds);
        WallClockTimer timer;
        const QSignalSpy fired{&timer, &Alarm::fired};

        timer.set(sys_seconds{seconds{unixSeconds}});

        QTRY_COMPARE(fired.count(), 1);
    }

    void itFiresAtTheMomentAndNotBefore()
    {
        WallClockTimer timer;
        QSignalSpy fired{&timer, &Alarm::fired};
        const sys_seconds moment = thisSecond() + 1s;

        timer.set(moment);

        QVERIFY(fired.wait(5000));
        QVERIFY(system_clock::now() >= moment);
        QVERIFY(system_clock::now() < moment + 1s);
    }

    void anotherMomentReplacesTheFirst()
    {
        WallClockTimer timer;
        QSignalSpy fired{&timer, &Alarm::fired};

        timer.set(thisSecond() + 1s);
        timer.set(thisSecond() + 24h);

        QVERIFY(!fired.wait(2000));
    }

    void aMomentBeyondTheKernelsTimeWaits()
    {
        WallClockTimer timer;
        QSignalSpy fired{&timer, &Alarm::fired};

        timer.set(sys_days{9999y / December / 31});
        QVERIFY(!fired.wait(200));
        timer.set(sys_seconds::max());

        QVERIFY(!fired.wait(200));
    }

    void aClockThatIsSetIsNoticedEachTime()
    {
        WallClockTimer timer;
        const QSignalSpy clockSet{&timer, &Alarm::clockSet};
        timer.set(thisSecond() + 24h);
        if (!setClockForward()) {
            QSKIP("The machine's clock is not ours to set.");
        }
        QTRY_COMPARE(clockSet.count(), 1);

        QVERIFY(setClockBack());

        QTRY_COMPARE(clockSet.count(), 2);
    }

    void aClockThatIsSetJustBeforeTheNextMomentIsNoticed()
    {
        WallClockTimer timer;
        const QSignalSpy clockSet{&timer, &Alarm::clockSet};
        timer.set(thisSecond() + 24h);
        if (!setClockForward()) {
            QSKIP("The machine's clock is not ours to set.");
        }

        timer.set(thisSecond() + 24h);

        QTRY_COMPARE(clockSet.count(), 1);
    }
};

NORVANE_TEST(TestWallClockTimer)
#include "tst_WallClockTimer.moc"
