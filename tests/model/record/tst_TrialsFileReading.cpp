// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"
#include "tests/support/ReferenceCases.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QDateTime>
#include <QJsonObject>
#include <QTest>
#include <QTimeZone>

#include <cmath>

using namespace norvane;

class TestTrialsFileReading final : public QObject {
    Q_OBJECT

private slots:
    void aReferenceCaseIsReadAsRecorded_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QJsonValue>("records");
        ReferenceCases cases{QStringLiteral("decode.json")};
        for (const QJsonValue &each : cases.all()) {
            const QJsonValue text = each[u"input"];
            QTest::newRow(cases.rowName(each[u"case"].toString()).constData())
                << (text.isString()
                        ? text.toString().toUtf8()
                        : QByteArray::fromBase64(each[u"inputBase64"].toString().toLatin1()))
                << each[u"records"];
        }
    }
    void aReferenceCaseIsReadAsRecorded()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QJsonValue, records);

        const auto trials = TrialsFile::decode(bytes);

        QCOMPARE(trials.has_value(), records.isArray());
        QCOMPARE(trials.value_or(QList<Trial>{}).size(), records.toArray().size());
        for (qsizetype index = 0; trials && index < trials->size(); ++index) {
            const QJsonValue record = records.toArray().at(index);
            const Trial &trial = trials->at(index);
            QCOMPARE(trial.idText(), record[u"id"].toString());
            QCOMPARE(trial.name, record[u"name"].toString());
            QCOMPARE(bits(trial.endDate), record[u"endDate"].toString());
            QCOMPARE(ReferenceCases::bitsOf(trial.cost), record[u"cost"].toString());
            QCOMPARE(trial.notes, record[u"notes"].toString());
            QCOMPARE(bits(trial.createdAt), record[u"createdAt"].toString());
            QCOMPARE(QJsonArray::fromStringList(trial.notificationIds),
                     record[u"notificationIds"].toArray());
        }
    }

    void twoSquareBracketsReadAsAnEmptyList()
    {
        const auto trials = TrialsFile::decode("[]");

        QVERIFY(trials);
        QVERIFY(trials->isEmpty());
    }

    void aTextThatIsNotOneArrayFails_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("an empty file") << QByteArray{};
        QTest::newRow("white space") << QByteArray{" \n"};
        QTest::newRow("an object") << TrialsText{}.record();
        QTest::newRow("a text") << QByteArray{"\"[]\""};
        QTest::newRow("a number") << QByteArray{"1"};
        QTest::newRow("a Boolean") << QByteArray{"true"};
        QTest::newRow("null") << QByteArray{"null"};
        QTest::newRow("an open array") << QByteArray{"["};
        QTest::newRow("a comma at the end") << QByteArray{"[" + TrialsText{}.record() + ",]"};
        QTest::newRow("trailing text") << QByteArray{TrialsText{}.text() + "x"};
        QTest::newRow("a second array") << QByteArray{TrialsText{}.text() + "[]"};
        QTest::newRow("a trailing NUL") << TrialsText{}.text().append('\0');
        QTest::newRow("NUL and text after it") << TrialsText{}.text().append('\0').append("[]");
        QTest::newRow("two byte order marks") << QByteArray{"\xEF\xBB\xBF\xEF\xBB\xBF[]"};
        QTest::newRow("half a byte order mark") << QByteArray{"\xEF\xBB[]"};
        QTest::newRow("a byte order mark alone") << QByteArray{"\xEF\xBB\xBF"};
    }
    void aTextThatIsNotOneArrayFails()
    {
        QFETCH(const QByteArray, bytes);

        QVERIFY(!TrialsFile::decode(bytes));
    }

    void aByteOrderMarkAndWhiteSpaceAroundTheArrayAreSkipped()
    {
        const auto trials =
            TrialsFile::decode(QByteArray{"\xEF\xBB\xBF \t\r\n" + TrialsText{}.text() + " \t\r\n"});

        QVERIFY(trials);
        QCOMPARE(trials->size(), 1);
    }

    void theListKeepsTheOrderOfTheFile()
    {
        const auto trials =
            TrialsFile::decode(TrialsText::fileOf({TrialsText{}.with("name", "\"b\"").record(),
                                                   TrialsText{}.with("name", "\"c\"").record(),
                                                   TrialsText{}.with("name", "\"a\"").record()}));

        QVERIFY(trials);
        QCOMPARE(trials->size(), 3);
        QCOMPARE(trials->at(0).name + trials->at(1).name + trials->at(2).name,
                 QStringLiteral("bca"));
    }

    void anElementThatIsNoObjectFailsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("element");
        for (const char *const element : {"1", "null", "true", "\"\"", "[]", "{}"}) {
            QTest::newRow(element) << QByteArray{element};
        }
    }
    void anElementThatIsNoObjectFailsTheWholeFile()
    {
        QFETCH(const QByteArray, element);
        const QByteArray sound = TrialsText{}.record();

        QVERIFY(!TrialsFile::decode(TrialsText::fileOf({sound, element, sound})));
    }

    void membersAreAcceptedInAnyOrder()
    {
        const auto trials = TrialsFile::decode(
            R"([{"notificationIds":["x"],"createdAt":1,"notes":"n","cost":2,"endDate":3,)"
            R"("name":"a","id":"BA96CA62-A106-480E-9C02-EEBDC393F97E"}])");

        QVERIFY(trials);
        QCOMPARE(trials->first().createdAt, PointInTime{1});
        QCOMPARE(trials->first().endDate, PointInTime{3});
        QCOMPARE(trials->first().notificationIds, QStringList{QStringLiteral("x")});
    }

    void membersWithUnknownNamesAreIgnoredAndNotKept_data()
    {
        QTest::addColumn<QByteArray>("value");
        for (const char *const value :
             {"null", "true", "-0", "1e999", "-1e999", "[1e999]", "1.5e3", "1E999", "1e+999",
              "12.5e999", "0.1E+999", "[1e999,2,1e999]", "\"\\u00e9\"", "[[],{}]",
              R"({"id":1,"cost":null})"}) {
            QTest::newRow(value) << QByteArray{value};
        }
    }
    void membersWithUnknownNamesAreIgnoredAndNotKept()
    {
        QFETCH(const QByteArray, value);

        const auto trials = TrialsFile::decode(TrialsText{}.plus("\"colour\":" + value).text());

        QVERIFY(trials);
        QCOMPARE(TrialsFile::encode(*trials), TrialsText{}.text());
    }

    void anIntegralDateReadsAsTheFirstOfJanuary2025()
    {
        const auto trials = TrialsFile::decode(TrialsText{}.with("endDate", "757382400").text());

        QVERIFY(trials);
        QCOMPARE(trials->first().endDate,
                 PointInTime::fromUnixSeconds(static_cast<double>(
                     QDateTime{{2025, 1, 1}, {0, 0}, QTimeZone::utc()}.toSecsSinceEpoch())));
    }

    void numbersAreAcceptedInAnyForm_data()
    {
        QTest::addColumn<QByteArray>("digits");
        for (const char *const digits : {"757382400", "757382400.0", "7573824e2", "7573824E+2",
                                         "7573824000e-1", "7.573824E8"}) {
            QTest::newRow(digits) << QByteArray{digits};
        }
    }
    void numbersAreAcceptedInAnyForm()
    {
        QFETCH(const QByteArray, digits);

        const auto trials = TrialsFile::decode(TrialsText{}
                                                   .with("endDate", digits)
                                                   .with("cost", digits)
                                                   .with("createdAt", digits)
                                                   .text());

        QVERIFY(trials);
        QCOMPARE(trials->first().endDate, PointInTime{757'382'400});
        QCOMPARE(trials->first().cost, 757'382'400.0);
        QCOMPARE(trials->first().createdAt, PointInTime{757'382'400});
    }

    void digitsInsideATextAreText()
    {
        const QByteArray text = "\"\\\\\\\" 1e999\"";

        const auto trials = TrialsFile::decode(TrialsText{}.with("name", text).text());

        QVERIFY(trials);
        QCOMPARE(trials->first().name, QStringLiteral("\\\" 1e999"));
    }

    void digitsInsideATextAreTextAlsoBesideANumberThatNoDoubleHolds_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("name");
        QTest::newRow("a number") << QByteArray{"1e999"} << QStringLiteral("1e999");
        QTest::newRow("after letters") << QByteArray{"abc 1e999"} << QStringLiteral("abc 1e999");
        QTest::newRow("after an escaped quote")
            << QByteArray{R"(a\"1e999)"} << QStringLiteral("a\"1e999");
        QTest::newRow("after an escaped backslash")
            << QByteArray{R"(1e999\\)"} << QStringLiteral("1e999\\");
        QTest::newRow("between escaped quotes")
            << QByteArray{R"(\"1e999\")"} << QStringLiteral("\"1e999\"");
    }
    void digitsInsideATextAreTextAlsoBesideANumberThatNoDoubleHolds()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const QString, name);

        const auto trials = TrialsFile::decode(
            TrialsText{}.with("name", '"' + text + '"').plus("\"other\":1e999").text());

        QVERIFY(trials);
        QCOMPARE(trials->first().name, name);
    }

    void aNegativeZeroStaysNegative_data()
    {
        QTest::addColumn<QByteArray>("digits");
        for (const char *const digits : {"-0", "-0.0", "-0e0", "-0E+5", "-1e-999"}) {
            QTest::newRow(digits) << QByteArray{digits};
        }
    }
    void aNegativeZeroStaysNegative()
    {
        QFETCH(const QByteArray, digits);

        const auto trials = TrialsFile::decode(TrialsText{}.with("cost", digits).text());

        QVERIFY(trials);
        QCOMPARE(trials->first().cost, 0.0);
        QVERIFY(std::signbit(trials->first().cost));
    }

    void theFirstOfTwoMembersOfOneNameCounts_data()
    {
        QTest::addColumn<QByteArray>("second");
        QTest::newRow("of the same type") << QByteArray{R"("name":"Other")"};
        QTest::newRow("of another type") << QByteArray{R"("name":[{"name":"Other"}])"};
        QTest::newRow("with its name in escapes") << QByteArray{R"("\u006eame":"Other")"};
    }
    void theFirstOfTwoMembersOfOneNameCounts()
    {
        QFETCH(const QByteArray, second);

        const auto trials = TrialsFile::decode(TrialsText{}.plus(second).text());

        QVERIFY(trials);
        QCOMPARE(trials->first().name, QStringLiteral("Acme Cloud"));
    }

    void aFirstMemberOfAWrongTypeIsNotMendedByASecond()
    {
        QVERIFY(!TrialsFile::decode(
            TrialsText{}.with("cost", "\"12.99\"").plus("\"cost\":12.99").text()));
    }

    void anIdInLowerCaseIsWrittenInUpperCase()
    {
        const auto trials = TrialsFile::decode(
            TrialsText{}.with("id", "\"ba96ca62-a106-480e-9c02-eebdc393f97e\"").text());

        QVERIFY(trials);
        QCOMPARE(TrialsFile::encode(*trials), TrialsText{}.text());
    }

    void anExtremeMomentIsReadAndWrittenBack_data()
    {
        QTest::addColumn<QByteArray>("digits");
        QTest::addColumn<double>("seconds");
        QTest::newRow("far ahead") << QByteArray{"1e+308"} << 1e308;
        QTest::newRow("far back") << QByteArray{"-1e+308"} << -1e308;
    }
    void anExtremeMomentIsReadAndWrittenBack()
    {
        QFETCH(const QByteArray, digits);
        QFETCH(const double, seconds);
        const QByteArray text = TrialsText{}.with("endDate", digits).text();

        const auto trials = TrialsFile::decode(text);

        QVERIFY(trials);
        QCOMPARE(trials->first().endDate, PointInTime{seconds});
        QCOMPARE(TrialsFile::encode(*trials), text);
    }

private:
    static QString bits(PointInTime moment)
    {
        return ReferenceCases::bitsOf(moment.secondsSinceReference());
    }
};

NORVANE_TEST(TestTrialsFileReading)
#include "tst_TrialsFileReading.moc"
