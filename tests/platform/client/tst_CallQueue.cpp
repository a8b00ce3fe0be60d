// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/CallQueue.h"
#include "tests/support/TestProgram.h"

#include <QTest>

using namespace norvane;

using Call = CallQueue::Call;
using Calls = std::vector<Call>;

/// Which calls are sent, sent again, and sent no more.
class TestCallQueue final : public QObject {
    Q_OBJECT

private slots:
    void aBatchIsTheOldestCalls()
    {
        CallQueue queue = queueOf({add("a"), add("b"), add("c")});

        QCOMPARE(queue.takeBatch(2), (Calls{add("a"), add("b")}));
        QVERIFY(queue.hasWaiting());
        QCOMPARE(queue.takeBatch(2), Calls{add("c")});
        QVERIFY(!queue.hasWaiting());
        QCOMPARE(queue.takeBatch(2), Calls{});
    }

    void itIsEmptyOnceEverythingIsConfirmed()
    {
        CallQueue queue = queueOf({add("a"), add("b")});
        QVERIFY(!queue.isEmpty());
        (void)queue.takeBatch(1);
        queue.confirm();
        QVERIFY(!queue.isEmpty());
        (void)queue.takeBatch(1);
        QVERIFY(!queue.isEmpty());

        queue.confirm();

        QVERIFY(queue.isEmpty());
    }

    void whatWasNotConfirmedWaitsAgainBeforeTheRest()
    {
        CallQueue queue = queueOf({add("a"), add("b"), add("c"), add("d")});
        (void)queue.takeBatch(1);
        queue.confirm();
        (void)queue.takeBatch(2);

        queue.takeBack();

        QCOMPARE(queue.takeBatch(9), (Calls{add("b"), add("c"), add("d")}));
    }

    void anAddThatALaterCallWithdrawsIsNotSentAgain_data()
    {
        QTest::addColumn<Calls>("calls");
        QTest::addColumn<Calls>("kept");
        QTest::newRow("withdrawn by identifier")
            << Calls{add("a"), add("b"), remove({QStringLiteral("x"), QStringLiteral("a")})}
            << Calls{add("b"), remove({QStringLiteral("x"), QStringLiteral("a")})};
        QTest::newRow("withdrawn with all others")
            << Calls{add("a"), remove({QStringLiteral("a")}), removeAll()}
            << Calls{remove({QStringLiteral("a")}), removeAll()};
        QTest::newRow("added after its withdrawal")
            << Calls{remove({QStringLiteral("a")}), add("a")}
            << Calls{remove({QStringLiteral("a")}), add("a")};
        QTest::newRow("added after all were withdrawn")
            << Calls{add("a"), removeAll(), add("a")} << Calls{removeAll(), add("a")};
    }
    void anAddThatALaterCallWithdrawsIsNotSentAgain()
    {
        QFETCH(const Calls, calls);
        QFETCH(const Calls, kept);
        CallQueue queue = queueOf(calls);
        (void)queue.takeBatch(2);

        queue.takeBack();

        QCOMPARE(queue.takeBatch(9), kept);
    }

    void clearedItHasNothingMoreToSend()
    {
        CallQueue queue = queueOf({add("a"), add("b")});
        (void)queue.takeBatch(1);

        queue.clear();

        QVERIFY(queue.isEmpty());
    }

    void aCallNeverHasTheCentreStarted()
    {
        const QDBusMessage message = add("a").message();

        QCOMPARE(message.member(), QStringLiteral("AddRequest"));
        QCOMPARE(message.arguments(), QVariantList{QStringLiteral("a")});
        QVERIFY(!message.autoStartService());
    }

private:
    static Call add(const char *identifier)
    {
        return {QStringLiteral("AddRequest"), {QString::fromLatin1(identifier)}};
    }
    static Call remove(const QStringList &identifiers)
    {
        return {QStringLiteral("RemovePendingRequests"), {identifiers}};
    }
    static Call removeAll() { return {QStringLiteral("RemoveAllPendingRequests"), {}}; }

    static CallQueue queueOf(const Calls &calls)
    {
        CallQueue queue;
        for (const Call &call : calls) {
            queue.append(call);
        }
        return queue;
    }
};

NORVANE_TEST(TestCallQueue)
#include "tst_CallQueue.moc"
