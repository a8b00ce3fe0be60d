// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/ReferenceCases.h"
#include "tests/support/TestProgram.h"
#include "time/Calendar.h"

#include <QJsonObject>
#include <QTest>

#include <array>
#include <cmath>
#include <ctime>

using namespace norvane;

class TestCalendarReference final : public QObject {
    Q_OBJECT

private slots:
    void aReferenceSpanHasItsDays_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<qint64>("days");
        ReferenceCases cases{QStringLiteral("days.json")};
        for (const QJsonValue &each : cases.all()) {
            const QString zone = each[u"zone"].toString();
            const double from = each[u"now"].toDouble();
            const double to = each[u"end"].toDouble();
            const QString name = QStringLiteral("%1 from %2 to %3")
                                     .arg(zone)
                                     .arg(from, 0, 'f', 3)
                                     .arg(to, 0, 'f', 3);
            QTest::newRow(cases.rowName(name).constData())
                << zone.toLatin1() << from << to << each[u"days"].toInteger();
        }
    }
    void aReferenceSpanHasItsDays()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const double, from);
        QFETCH(const double, to);
        QFETCH(const qint64, days);
        const Calendar calendar{QTimeZone{zone}};

        QCOMPARE(calendar.wholeDays(PointInTime{from}, PointInTime{to}), days);
    }

    void aReferenceMomentHasItsMinute_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<double>("moment");
        QTest::addColumn<QString>("minute");
        ReferenceCases cases{QStringLiteral("triggers.json")};
        for (const QJsonValue &each : cases.all()) {
            const QString zone = each[u"zone"].toString();
            const double moment = each[u"moment"].toDouble();
            const QString name = QStringLiteral("%1 at %2").arg(zone).arg(moment, 0, 'f', 3);
            QTest::newRow(cases.rowName(name).constData())
                << zone.toLatin1() << moment << each[u"trigger"].toString();
        }
    }
    void aReferenceMomentHasItsMinute()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const double, moment);
        QFETCH(const QString, minute);
        const Calendar calendar{QTimeZone{zone}};

        const auto answer = calendar.minuteOf(PointInTime{moment});

        QVERIFY(answer);
        QCOMPARE(answer->text(),
                 rulesChanged(zone, moment) ? minuteByCLibrary(zone, moment) : minute);
    }

private:
    /// Morocco gave up its permanent summer time on 2026-09-20, after the cases were made. From
    /// then on the right minute depends on the edition of the machine's time zone database.
    static bool rulesChanged(const QByteArray &zone, double moment)
    {
        return zone == "Africa/Casablanca" && moment >= 811'558'800;
    }

    /// What the C library, the other reader of that database, makes of the moment.
    static QString minuteByCLibrary(const QByteArray &zone, double moment)
    {
        const QByteArray outer = qgetenv("TZ");
        const bool wasSet = qEnvironmentVariableIsSet("TZ");
        qputenv("TZ", zone);
        ::tzset();
        const auto seconds =
            static_cast<std::time_t>(std::floor(moment)) + PointInTime::referenceInUnixSeconds;
        std::tm local{};
        ::localtime_r(&seconds, &local);
        std::array<char, 32> text{};
        const std::size_t length =
            std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M", &local);
        if (wasSet) {
            qputenv("TZ", outer);
        } else {
            qunsetenv("TZ");
        }
        ::tzset();
        return QString::fromLatin1(text.data(), static_cast<qsizetype>(length));
    }
};

NORVANE_TEST(TestCalendarReference)
#include "tst_CalendarReference.moc"
