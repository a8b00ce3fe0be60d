// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/DBusNotificationCenter.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace norvane;

namespace {

const QString clientArgument = QStringLiteral("--client");

/// Stands for the program: hands over some calls and ends. Prints how many milliseconds it was held
/// up before the end.
int runClient(int argc, char **argv)
{
    const QCoreApplication application{argc, argv};
    QElapsedTimer timer;
    timer.start();
    DBusNotificationCenter center;
    center.requestAuthorization(NotificationCenter::Option::Alert);
    center.removeAllPendingNotificationRequests();
    for (int number = 0; number < 3'000; ++number) {
        center.addNotificationRequest({.identifier = QString::number(number),
                                       .title = QStringLiteral("t"),
                                       .body = QStringLiteral("b"),
                                       .sound = QStringLiteral("default"),
                                       .trigger = {2025, 1, 1, 0, 0}});
    }
    std::printf("%lld\n", static_cast<long long>(timer.elapsed()));
    return 0;
}

} // namespace

/// A program on a machine without a session bus. Each row is a process of its own, because the bus
/// library looks up the address once.
class TestDBusNotificationCenterWithoutBus final : public QObject {
    Q_OBJECT

private slots:
    void theProgramIsNotHeldUpAndEndsInSilence_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("no address") << QString{};
        QTest::newRow("nothing at the address")
            << QStringLiteral("unix:path=%1").arg(folder_.filePath(QStringLiteral("nothing")));
        QTest::newRow("not an address") << QStringLiteral("nonsense");
    }
    void theProgramIsNotHeldUpAndEndsInSilence()
    {
        QFETCH(const QString, address);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *const variable :
             {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS"}) {
            environment.remove(QString::fromLatin1(variable));
        }
        if (!address.isEmpty()) {
            environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
        }
        QProcess client;
        client.setProcessEnvironment(environment);
        QElapsedTimer timer;
        timer.start();

        client.start(QCoreApplication::applicationFilePath(), {clientArgument});
        const bool ended = client.waitForFinished(10'000);

        QVERIFY(ended);
        QCOMPARE(client.exitStatus(), QProcess::NormalExit);
        QCOMPARE(client.exitCode(), 0);
        QCOMPARE(client.readAllStandardError(), QByteArray{});
        bool isNumber = false;
        const int heldUp = client.readAllStandardOutput().trimmed().toInt(&isNumber);
        QVERIFY(isNumber);
        QVERIFY(heldUp < 500);
        QVERIFY(timer.elapsed() < 2'000);
    }

private:
    QTemporaryDir folder_;
};

int main(int argc, char **argv)
{
    if (argc > 1 && clientArgument == QString::fromLocal8Bit(argv[1])) {
        return runClient(argc, argv);
    }
    const QCoreApplication application{argc, argv};
    TestDBusNotificationCenterWithoutBus test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_DBusNotificationCenterWithoutBus.moc"
