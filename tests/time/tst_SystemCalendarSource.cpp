// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"
#include "time/MachineZone.h"
#include "time/SystemCalendarSource.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace norvane;

/// The zone of the machine, as the environment or a link tells it.
class TestSystemCalendarSource final : public QObject {
    Q_OBJECT

private slots:
    void init() { qunsetenv("TZ"); }

    void theEnvironmentNamesTheZone_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("minute");
        const auto row = [](const char *name, const QByteArray &value, const char *minute) {
            QTest::newRow(name) << value << QString::fromLatin1(minute);
        };
        const QByteArray link = QFile::encodeName(point("Asia/Tokyo"));
        row("a zone", "America/New_York", "2024-12-31T19:00");
        row("a zone after a colon", ":America/New_York", "2024-12-31T19:00");
        row("a path", "/usr/share/zoneinfo/America/New_York", "2024-12-31T19:00");
        row("a path after a colon", ":/usr/share/zoneinfo/America/New_York", "2024-12-31T19:00");
        row("the path of a link", link, "2025-01-01T09:00");
        row("the path of a link after a colon", ':' + link, "2025-01-01T09:00");
        row("the path of a link to a link", pointOn(link), "2025-01-01T09:00");
        row("the path of another name", "/usr/share/zoneinfo/US/Eastern", "2024-12-31T19:00");
        row("a rule", "EST5EDT,M3.2.0,M11.1.0", "2024-12-31T19:00");
        row("a zone that there is not", "Nowhere/Land", "2025-01-01T00:00");
        row("a path to nothing", "/nowhere", "2025-01-01T00:00");
        row("a path to what is no zone", "/etc/passwd", "2025-01-01T00:00");
    }
    void theEnvironmentNamesTheZone()
    {
        QFETCH(const QByteArray, value);
        QFETCH(const QString, minute);
        qputenv("TZ", value);

        QCOMPARE(minuteNow(), minute);
    }

    void otherwiseTheMachinesOwnZoneCounts_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("not set") << QByteArray{};
        QTest::newRow("empty") << QByteArray{""};
        QTest::newRow("a colon") << QByteArray{":"};
        QTest::newRow("its path") << QByteArray{"/etc/localtime"};
        QTest::newRow("its path after a colon") << QByteArray{":/etc/localtime"};
    }
    void otherwiseTheMachinesOwnZoneCounts()
    {
        QFETCH(const QByteArray, value);
        const QTimeZone ofTheMachine = QTimeZone::systemTimeZone();
        if (!value.isNull()) {
            qputenv("TZ", value);
        }

        QCOMPARE(zoneLink(), QStringLiteral("/etc/localtime"));
        QCOMPARE(machineZone(), ofTheMachine);
    }

    void aLinkThatIsReplacedCountsFromTheNextCall()
    {
        qputenv("TZ", QFile::encodeName(point("Asia/Tokyo")));
        const SystemCalendarSource calendars;
        QCOMPARE(minute(calendars), QStringLiteral("2025-01-01T09:00"));

        point("America/New_York");

        QCOMPARE(minute(calendars), QStringLiteral("2024-12-31T19:00"));
    }

private:
    /// What the wall clock shows at the start of 2025 in UTC.
    static QString minute(const SystemCalendarSource &calendars)
    {
        const auto minute = calendars.current().minuteOf(PointInTime{757'382'400});
        return minute ? minute->text() : QString{};
    }
    static QString minuteNow() { return minute(SystemCalendarSource{}); }

    /// Makes the test's link lead to the zone, and returns its path.
    QString point(const char *zone) const
    {
        return link(QStringLiteral("localtime"),
                    QStringLiteral("/usr/share/zoneinfo/") + QString::fromLatin1(zone));
    }
    /// The path of one more link, to this one.
    QByteArray pointOn(const QByteArray &target) const
    {
        return QFile::encodeName(link(QStringLiteral("another"), QFile::decodeName(target)));
    }
    QString link(const QString &name, const QString &target) const
    {
        const QString made = folder_.filePath(QStringLiteral("new"));
        const QString path = folder_.filePath(name);
        if (!QFile::link(target, made) || std::rename(qPrintable(made), qPrintable(path)) != 0) {
            qFatal("Cannot link to %s", qPrintable(target));
        }
        return path;
    }

    QTemporaryDir folder_;
};

NORVANE_TEST(TestSystemCalendarSource)
#include "tst_SystemCalendarSource.moc"
