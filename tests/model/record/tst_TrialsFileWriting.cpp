// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"
#include "tests/support/ReferenceCases.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QTest>

#include <limits>

using namespace norvane;

class TestTrialsFileWriting final : public QObject {
    Q_OBJECT

private slots:
    void aWholeNumberIsWrittenWithoutAFraction_data()
    {
        QTest::addColumn<double>("cost");
        QTest::addColumn<QByteArray>("digits");
        QTest::newRow("zero") << 0.0 << QByteArray{"0"};
        QTest::newRow("positive") << 12.0 << QByteArray{"12"};
        QTest::newRow("negative") << -3.0 << QByteArray{"-3"};
        QTest::newRow("the largest below which all are exact")
            << 9'007'199'254'740'992.0 << QByteArray{"9007199254740992"};
    }
    void aWholeNumberIsWrittenWithoutAFraction()
    {
        QFETCH(const double, cost);
        QFETCH(const QByteArray, digits);
        const QByteArray text = TrialsText{}.with("cost", digits).text();
        auto trials = TrialsFile::decode(TrialsText{}.text());
        QVERIFY(trials);

        trials->first().cost = cost;

        QCOMPARE(TrialsFile::encode(*trials), text);
    }

    void aReferenceTextIsWrittenAsRecorded_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("written");
        ReferenceCases cases{QStringLiteral("escapes.json")};
        for (const QJsonValue &each : cases.all()) {
            const QString written = each[u"written"].toString();
            QTest::newRow(cases.rowName(written).constData())
                << each[u"text"].toString() << written;
        }
    }
    void aReferenceTextIsWrittenAsRecorded()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, written);
        Trial trial = sample();
        trial.name = text;
        trial.notes = text;
        trial.notificationIds = {text};

        const auto bytes = TrialsFile::encode({trial});

        QCOMPARE(bytes, TrialsText{}
                            .with("name", written.toUtf8())
                            .with("notes", written.toUtf8())
                            .with("notificationIds", "[" + written.toUtf8() + "]")
                            .text());
        const auto trials = TrialsFile::decode(*bytes);
        QVERIFY(trials);
        QCOMPARE(trials->first().name, text);
    }

    void aReferenceNumberReadsBackToTheSameBits_data()
    {
        QTest::addColumn<QString>("bits");
        ReferenceCases cases{QStringLiteral("doubles.json")};
        for (const QJsonValue &each : cases.all()) {
            QTest::newRow(cases.rowName(each.toString()).constData()) << each.toString();
        }
    }
    void aReferenceNumberReadsBackToTheSameBits()
    {
        QFETCH(const QString, bits);
        const double value = ReferenceCases::fromBits(bits);
        Trial trial = sample();
        trial.cost = value;
        trial.endDate = PointInTime{value};

        const auto bytes = TrialsFile::encode({trial});

        QVERIFY(bytes);
        const auto trials = TrialsFile::decode(*bytes);
        QVERIFY(trials);
        QCOMPARE(ReferenceCases::bitsOf(trials->first().cost), bits);
        QCOMPARE(ReferenceCases::bitsOf(trials->first().endDate.secondsSinceReference()), bits);
    }

    void aNegativeZeroIsWrittenWithItsSign()
    {
        Trial trial = sample();
        trial.endDate = PointInTime{-0.0};
        trial.cost = -0.0;
        trial.createdAt = PointInTime{-0.0};

        const auto bytes = TrialsFile::encode({trial});

        QCOMPARE(bytes, TrialsText{}
                            .with("endDate", "-0.0")
                            .with("cost", "-0.0")
                            .with("createdAt", "-0.0")
                            .text());
        const auto trials = TrialsFile::decode(*bytes);
        QVERIFY(trials);
        const Trial read = trials->first();
        for (const double value : {read.endDate.secondsSinceReference(), read.cost,
                                   read.createdAt.secondsSinceReference()}) {
            QCOMPARE(ReferenceCases::bitsOf(value), ReferenceCases::bitsOf(-0.0));
        }
    }

    void anEmptyListIsWrittenAsTwoSquareBrackets()
    {
        QCOMPARE(TrialsFile::encode({}), QByteArray{"[]"});
    }

    void aFreshRecordIsWrittenAsOneCompactObjectInFieldOrderAndReadsBackEqual()
    {
        const Trial trial = Trial::make(QStringLiteral("Acme Cloud"), PointInTime{757'382'400},
                                        12.99, {}, PointInTime{756'000'000.5});

        const QByteArray text =
            R"([{"id":"ID","name":"Acme Cloud","endDate":757382400,"cost":12.99,)"
            R"("notes":"","createdAt":756000000.5,"notificationIds":[]}])";

        const auto bytes = TrialsFile::encode({trial});

        QCOMPARE(bytes, QByteArray{text}.replace("ID", trial.idText().toLatin1()));
        QCOMPARE(TrialsFile::decode(*bytes), QList<Trial>{trial});
    }

    void recordsAndIdentifiersKeepTheirOrder()
    {
        Trial first = sample();
        first.notificationIds = {QStringLiteral("z"), QStringLiteral("a")};
        Trial second = sample();
        second.name = QStringLiteral("Aardvark");

        const auto bytes = TrialsFile::encode({first, second});

        QCOMPARE(bytes,
                 TrialsText::fileOf({TrialsText{}.with("notificationIds", "[\"z\",\"a\"]").record(),
                                     TrialsText{}.with("name", "\"Aardvark\"").record()}));
    }

    void aSolidusIsEscapedAndReadsBackAsASolidus()
    {
        Trial trial = sample();
        trial.name = QStringLiteral("TV/Radio");

        const auto bytes = TrialsFile::encode({trial});

        QCOMPARE(bytes, TrialsText{}.with("name", "\"TV\\/Radio\"").text());
        const auto trials = TrialsFile::decode(*bytes);
        QVERIFY(trials);
        QCOMPARE(trials->first().name, QStringLiteral("TV/Radio"));
    }

    void controlCharactersHaveTheirShortEscapeOrFourDigits()
    {
        Trial trial = sample();
        trial.notes = QString::fromLatin1("\b\t\n\f\r\x01\x0b\x1f\"\\");

        const auto bytes = TrialsFile::encode({trial});

        const QByteArray written = "\"\\b\\t\\n\\f\\r\\u0001\\u000b\\u001f\\\"\\\\\"";
        QCOMPARE(bytes, TrialsText{}.with("notes", written).text());
    }

    void nothingElseIsEscaped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("DEL") << QStringLiteral("\u007f");
        QTest::newRow("a control character above") << QStringLiteral("\u0085");
        QTest::newRow("the line separator") << QStringLiteral("\u2028");
        QTest::newRow("the paragraph separator") << QStringLiteral("\u2029");
        QTest::newRow("the byte order mark") << QStringLiteral("\ufeff");
        QTest::newRow("an emoji") << QStringLiteral("📅");
        QTest::newRow("markup") << QStringLiteral("<b>&'");
    }
    void nothingElseIsEscaped()
    {
        QFETCH(const QString, text);
        Trial trial = sample();
        trial.name = text;

        const auto bytes = TrialsFile::encode({trial});

        QCOMPARE(bytes, TrialsText{}.with("name", "\"" + text.toUtf8() + "\"").text());
        const auto trials = TrialsFile::decode(*bytes);
        QVERIFY(trials);
        QCOMPARE(trials->first().name, text);
    }

    void aNumberThatIsNotFiniteFailsTheWholeList_data()
    {
        QTest::addColumn<double>("value");
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
        QTest::newRow("negative infinity") << -std::numeric_limits<double>::infinity();
    }
    void aNumberThatIsNotFiniteFailsTheWholeList()
    {
        QFETCH(const double, value);
        Trial cost = sample();
        cost.cost = value;
        Trial endDate = sample();
        endDate.endDate = PointInTime{value};
        Trial createdAt = sample();
        createdAt.createdAt = PointInTime{value};

        QCOMPARE(TrialsFile::encode({sample(), cost, sample()}), std::nullopt);
        QCOMPARE(TrialsFile::encode({sample(), endDate, sample()}), std::nullopt);
        QCOMPARE(TrialsFile::encode({sample(), createdAt, sample()}), std::nullopt);
    }

private:
    /// The record that TrialsText writes.
    static Trial sample()
    {
        return TrialsFile::decode(TrialsText{}.text()).value_or(QList<Trial>{}).value(0);
    }
};

NORVANE_TEST(TestTrialsFileWriting)
#include "tst_TrialsFileWriting.moc"
