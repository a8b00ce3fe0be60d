// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

// Sends requests to a name on the session bus without waiting for answers, and waits for the last
// one.
//
//     bus_load NAME COUNT
//
// Prints the seconds that took. Fails when a call is answered with an error.

#include "platform/bus/BusNames.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

QDBusMessage request(const QString &service, int number)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, norvane::busNames::notificationCenterPath,
        QStringLiteral("org.norvane.NotificationCenter1"), QStringLiteral("AddRequest"));
    call << QStringLiteral("BA96CA62-A106-480E-9C02-%1-1h").arg(number, 12, 16, QLatin1Char{'0'})
         << QStringLiteral("🚨 Trial Ending in 1 Hour")
         << QStringLiteral("\"Service %1\" — cancel now to avoid being charged $9.99.").arg(number)
         << QStringLiteral("default")
         << QStringLiteral("2%1-%2-%3T12:30")
                .arg(100 + number / 336 % 800, 3)
                .arg(1 + number / 28 % 12, 2, 10, QLatin1Char{'0'})
                .arg(1 + number % 28, 2, 10, QLatin1Char{'0'});
    return call;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application{argc, argv};
    const QString service = QCoreApplication::arguments().value(1);
    const int count = QCoreApplication::arguments().value(2).toInt();
    const QDBusConnection bus = QDBusConnection::sessionBus();

    QElapsedTimer time;
    time.start();
    // The session bus disconnects a client that waits for more than 50,000 answers.
    constexpr int mostUnanswered = 30'000;
    int sent = 0;
    int answered = 0;
    std::function<void()> send = [&] {
        auto *const answer = new QDBusPendingCallWatcher{bus.asyncCall(request(service, sent++))};
        QObject::connect(answer, &QDBusPendingCallWatcher::finished, &application, [&, answer] {
            answer->deleteLater();
            if (answer->isError()) {
                std::fprintf(stderr, "%s\n", qPrintable(answer->error().message()));
                std::_Exit(EXIT_FAILURE); // Qt may crash when it is torn down with calls underway.
            }
            if (sent < count) {
                send();
            }
            if (++answered == count) {
                QCoreApplication::quit();
            }
        });
    };
    while (sent < std::min(count, mostUnanswered)) {
        send();
    }
    const int outcome = QCoreApplication::exec();
    std::printf("%.3f\n", static_cast<double>(time.nsecsElapsed()) / 1e9);
    return outcome;
}
