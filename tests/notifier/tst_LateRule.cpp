// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LateRule.h"
#include "tests/support/TestProgram.h"

#include <QTest>

using namespace norvane;
using namespace std::chrono;

class TestLateRule final : public QObject {
    Q_OBJECT

private slots:
    void aTrialIsTheIdentifierUpToItsLastHyphen()
    {
        QCOMPARE(trialOf(u"BA96CA62-A106-1h"), u"BA96CA62-A106");
        QCOMPARE(trialOf(u"plain"), u"plain");
        QCOMPARE(trialOf(u"-1h"), u"");
    }

    void aReminderIsWorthShowingWithinItsOwnLead()
    {
        QCOMPARE(worthShowingFor(u"x-1h"), seconds{1h});
        QCOMPARE(worthShowingFor(u"x-24h"), seconds{24h});
        QCOMPARE(worthShowingFor(u"x-3d"), seconds{72h});
        QCOMPARE(worthShowingFor(u"something else"), seconds{24h});
        QCOMPARE(worthShowingFor(u"x-11h"), seconds{24h});
    }

    void aMinuteIsMissedOnlyWhenItIsOver()
    {
        const sys_seconds due = sys_days{2026y / January / 1};

        QVERIFY(!isMissed(due, due + 59s));
        QVERIFY(isMissed(due, due + 60s));
    }
};

NORVANE_TEST(TestLateRule)
#include "tst_LateRule.moc"
