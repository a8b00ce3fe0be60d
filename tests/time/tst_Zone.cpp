// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"
#include "time/Zone.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <filesystem>

using namespace norvane;
using namespace std::chrono;

/// The machine's zone is the one that other programs are in, whatever the environment says.
class TestZone final : public QObject {
    Q_OBJECT

private slots:
    void init() { qunsetenv("TZ"); }

    void theMachinesZoneIsTheOneThatOtherProgramsHave_data()
    {
        QTest::addColumn<QByteArray>("setting");
        const auto row = [](const char *name, const QByteArray &setting) {
            QTest::newRow(name) << setting;
        };
        row("not set", {});
        row("empty", "");
        row("a colon", ":");
        row("a rule without dates of its changes", "AAA-1BBB");
        row("a zone", "America/New_York");
        row("a zone after a colon", ":America/New_York");
        row("another name of it", "US/Eastern");
        row("a zone that there is not", "Nowhere/Land");
        row("a zone in the south", "Australia/Lord_Howe");
        row("a zone whose changes follow the moon", "Africa/Casablanca");
        row("a zone with a negative summer time", "Europe/Dublin");
        row("a zone that is named after a rule", "EST5EDT");
        row("a zone whose sign is inverted", "Etc/GMT+5");
        row("a rule with changes", "EST5EDT,M3.2.0,M11.1.0");
        row("a rule with changes by the day of the year", "<X>-1:30<Y>,J60/2,J300/3");
        row("a rule for an offset to the east", "UTC-3");
        row("a rule for an offset to the west", "UTC+5:30");
        row("a rule without a sign", "UTC3");
        row("a rule named after a zone", "GMT-5");
        row("a rule with a quoted name", "<+07>-7");
        row("a rule after a colon", ":UTC-3");
        row("what is neither", "?");
        row("a path", "/usr/share/zoneinfo/America/New_York");
        row("a path after a colon", ":/usr/share/zoneinfo/America/New_York");
        row("a path to nothing", "/nowhere");
        row("a path to what is no zone", "/etc/passwd");
        row("the machine's own path", ":/etc/localtime");
    }
    void theMachinesZoneIsTheOneThatOtherProgramsHave()
    {
        QFETCH(const QByteArray, setting);
        compareWithOtherPrograms(setting);
    }

    void aPathMayLeadThroughLinks()
    {
        const QByteArray link = linkTo("Asia/Tokyo");
        const QString another = folder_.filePath(QStringLiteral("another"));
        QVERIFY(QFile::link(QFile::decodeName(link), another));

        compareWithOtherPrograms(link);
        compareWithOtherPrograms(':' + QFile::encodeName(another));
    }

    void aCopyIsKnownByItsContent()
    {
        // In a folder with the name of another zone.
        const QString copy = folder_.filePath(QStringLiteral("zoneinfo/Europe/Berlin"));
        QVERIFY(QDir{folder_.path()}.mkpath(QStringLiteral("zoneinfo/Europe")));
        QVERIFY(QFile::copy(QStringLiteral("/usr/share/zoneinfo/Asia/Tokyo"), copy));

        compareWithOtherPrograms(QFile::encodeName(copy));
        compareWithOtherPrograms(':' + QFile::encodeName(copy));
    }

    void aLinkThatIsReplacedCountsFromTheNextCall()
    {
        qputenv("TZ", linkTo("Asia/Tokyo"));
        const Zone before = Zone::ofMachine();
        QCOMPARE(before.offsetAt(sys_seconds{}), 9h);

        linkTo("America/New_York");

        const Zone after = Zone::ofMachine();
        QCOMPARE(after.offsetAt(sys_seconds{}), -5h);
        QVERIFY(after != before);
        QCOMPARE(before.offsetAt(sys_seconds{}), 9h);
    }

    void aCopyThatIsReplacedIsAnotherZone()
    {
        const QString copy = folder_.filePath(QStringLiteral("copy"));
        QVERIFY(QFile::copy(QStringLiteral("/usr/share/zoneinfo/Asia/Tokyo"), copy));
        qputenv("TZ", QFile::encodeName(copy));
        const Zone before = Zone::ofMachine();
        QCOMPARE(Zone::ofMachine(), before);

        QVERIFY(QFile::rename(copy, folder_.filePath(QStringLiteral("old"))));
        QVERIFY(QFile::copy(QStringLiteral("/usr/share/zoneinfo/America/New_York"), copy));

        QVERIFY(Zone::ofMachine() != before);
    }

    void aCopyThatIsWrittenTwiceInASecondIsAnotherZone()
    {
        const QString copy = folder_.filePath(QStringLiteral("written twice"));
        QVERIFY(QFile::copy(QStringLiteral("/usr/share/zoneinfo/Asia/Tokyo"), copy));
        qputenv("TZ", QFile::encodeName(copy));
        const std::filesystem::path file{copy.toStdString()};
        const auto second = floor<seconds>(last_write_time(file));
        last_write_time(file, second + 1ms);
        const Zone before = Zone::ofMachine();

        last_write_time(file, second + 2ms);

        QVERIFY(Zone::ofMachine() != before);
    }

    void theFileOfTheZoneIsTheOneThatTheSettingNames_data()
    {
        QTest::addColumn<QByteArray>("setting");
        QTest::addColumn<QString>("file");
        const QString localtime = QStringLiteral("/etc/localtime");
        QTest::newRow("not set") << QByteArray{} << localtime;
        QTest::newRow("empty") << QByteArray{""} << QString{};
        QTest::newRow("a colon") << QByteArray{":"} << QString{};
        QTest::newRow("a path") << QByteArray{"/zones/a"} << QStringLiteral("/zones/a");
        QTest::newRow("a path after a colon")
            << QByteArray{":/zones/a"} << QStringLiteral("/zones/a");
        QTest::newRow("a name") << QByteArray{"Europe/Berlin"} << QString{};
        QTest::newRow("a rule") << QByteArray{"UTC-3"} << QString{};
    }
    void theFileOfTheZoneIsTheOneThatTheSettingNames()
    {
        QFETCH(const QByteArray, setting);
        QFETCH(const QString, file);
        set(setting);

        QCOMPARE(Zone::fileOfMachine(), file);
    }

    void aZoneThatQtDoesNotKnowIsUtc()
    {
        QCOMPARE(Zone{QTimeZone{"Nowhere/Land"}}.offsetAt(sys_seconds{}), 0s);
    }

private:
    static void set(const QByteArray &setting)
    {
        if (setting.isNull()) {
            qunsetenv("TZ");
        } else {
            qputenv("TZ", setting);
        }
    }

    /// Compares each hour from now on for 400 days: the offset in six months is among them, and in
    /// zones that change their clocks more than two changes. The other program is Python, which
    /// asks the C library; not every system's date does.
    static void compareWithOtherPrograms(const QByteArray &setting)
    {
        constexpr int hoursToCompare = 24 * 400;
        const sys_seconds now = floor<hours>(system_clock::now());
        QByteArray questions;
        for (int hour = 0; hour < hoursToCompare; ++hour) {
            questions +=
                QByteArray::number(qint64{(now + hours{hour}).time_since_epoch() / 1s}) + '\n';
        }
        set(setting);

        QProcess other;
        other.start(
            QStringLiteral("/usr/bin/python3"),
            {QStringLiteral("-c"),
             QStringLiteral("import sys, time\n"
                            "for line in sys.stdin: print(time.localtime(int(line)).tm_gmtoff)")});
        other.write(questions);
        other.closeWriteChannel();
        QVERIFY(other.waitForFinished(-1));
        const QByteArrayList answers = other.readAllStandardOutput().trimmed().split('\n');

        QCOMPARE(answers.size(), hoursToCompare);
        const Zone zone = Zone::ofMachine();
        for (int hour = 0; hour < hoursToCompare; ++hour) {
            const sys_seconds moment = now + hours{hour};
            if (zone.offsetAt(moment) != seconds{answers[hour].toInt()}) {
                QFAIL(qPrintable(QStringLiteral("%1 at %2: here %3 s, there %4 s")
                                     .arg(QString::fromLatin1(setting))
                                     .arg(moment.time_since_epoch() / 1s)
                                     .arg(zone.offsetAt(moment) / 1s)
                                     .arg(QString::fromLatin1(answers[hour]))));
            }
        }
    }

    /// Makes the test's link lead to the zone, and returns its path.
    QByteArray linkTo(const char *zone) const
    {
        const QByteArray made = QFile::encodeName(folder_.filePath(QStringLiteral("new")));
        QByteArray path = QFile::encodeName(folder_.filePath(QStringLiteral("localtime")));
        if (!QFile::link(QStringLiteral("/usr/share/zoneinfo/") + QString::fromLatin1(zone),
                         QFile::decodeName(made)) ||
            std::rename(made.constData(), path.constData()) != 0) {
            qFatal("Cannot link to %s", zone);
        }
        return path;
    }

    QTemporaryDir folder_;
};

NORVANE_TEST(TestZone)
#include "tst_Zone.moc"
