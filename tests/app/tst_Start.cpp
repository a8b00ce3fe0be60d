// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/Environment.h"
#include "platform/session/StopSignals.h"
#include "tests/support/TestProgram.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace norvane;

class TestStart final : public QObject {
    Q_OBJECT

private slots:
    void x11ComesFirstWhereverItCanBeReached_data()
    {
        QTest::addColumn<bool>("x11");
        QTest::addColumn<bool>("wayland");
        QTest::addColumn<QByteArray>("platforms");
        QTest::newRow("X11 session") << true << false << QByteArray{"xcb"};
        QTest::newRow("Wayland with XWayland") << true << true << QByteArray{"xcb;wayland"};
        QTest::newRow("Wayland alone") << false << true << QByteArray{"wayland"};
        QTest::newRow("neither") << false << false << QByteArray{};
    }
    void x11ComesFirstWhereverItCanBeReached()
    {
        QFETCH(const bool, x11);
        QFETCH(const bool, wayland);
        QFETCH(const QByteArray, platforms);

        QCOMPARE(displayKinds(x11, wayland), platforms);
    }

    void aDisplayPlatformSetByTheUserIsKept()
    {
        qputenv("QT_QPA_PLATFORM", "wayland");

        QVERIFY(setDisplayKinds());

        QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray{"wayland"});
    }

    void daysAndTimesHaveALocaleOfTheirOwn_data()
    {
        QTest::addColumn<QByteArray>("all");
        QTest::addColumn<QByteArray>("time");
        QTest::addColumn<QString>("locale");
        QTest::newRow("language alone") << QByteArray{} << QByteArray{} << "en_US";
        QTest::newRow("formats apart") << QByteArray{} << QByteArray{"de_DE.UTF-8"} << "de_DE";
        QTest::newRow("all overruled")
            << QByteArray{"fr_FR.UTF-8"} << QByteArray{"de_DE.UTF-8"} << "fr_FR";
    }
    void daysAndTimesHaveALocaleOfTheirOwn()
    {
        QFETCH(const QByteArray, all);
        QFETCH(const QByteArray, time);
        qputenv("LANG", "en_US.UTF-8");
        qputenv("LC_ALL", all);
        qputenv("LC_TIME", time);

        QTEST(formatLocale().name(), "locale");
    }

    void aLaunchersTokenMakesItAStartByHand()
    {
        qputenv("XDG_ACTIVATION_TOKEN", "token");

        const StartRequest request = StartRequest::ofThisProcess();
        qunsetenv("XDG_ACTIVATION_TOKEN");

        QVERIFY(request.byHand);
        QCOMPARE(request.activationToken, QStringLiteral("token"));
    }

    void aSignalToStopArrivesInTheEventLoop_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("TERM") << SIGTERM;
        QTest::newRow("INT") << SIGINT;
        QTest::newRow("HUP") << SIGHUP;
    }
    void aSignalToStopArrivesInTheEventLoop()
    {
        QFETCH(const int, number);
        const StopSignals stopSignals;
        const QSignalSpy stop{&stopSignals, &StopSignals::stopRequested};

        std::raise(number);

        QTRY_COMPARE(stop.count(), 1);
    }

    void anIgnoredSignalStaysIgnored()
    {
        std::signal(SIGHUP, SIG_IGN);

        const StopSignals stopSignals;

        struct sigaction action = {};
        ::sigaction(SIGHUP, nullptr, &action);
        QVERIFY(action.sa_handler == SIG_IGN);
        std::signal(SIGHUP, SIG_DFL);
    }
};

NORVANE_TEST(TestStart)
#include "tst_Start.moc"
