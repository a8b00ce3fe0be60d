// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QTest>

using namespace norvane;

/// One bad record fails the whole file, however sound its neighbours are.
class TestTrialsFileRefusing final : public QObject {
    Q_OBJECT

private slots:
    void aSoundRecordBetweenSoundRecordsIsRead() { QVERIFY(fileAround(TrialsText{})); }

    void aRecordWithoutAMemberFailsTheWholeFile_data() { addMembers(); }
    void aRecordWithoutAMemberFailsTheWholeFile()
    {
        QFETCH(const QByteArray, member);

        QVERIFY(!fileAround(TrialsText{}.without(member)));
    }

    void aMemberThatIsNullFailsTheWholeFile_data() { addMembers(); }
    void aMemberThatIsNullFailsTheWholeFile()
    {
        QFETCH(const QByteArray, member);

        QVERIFY(!fileAround(TrialsText{}.with(member, "null")));
    }

    void aBooleanIsNeitherANumberNorAText_data() { addMembers(); }
    void aBooleanIsNeitherANumberNorAText()
    {
        QFETCH(const QByteArray, member);

        QVERIFY(!fileAround(TrialsText{}.with(member, "true")));
        QVERIFY(!fileAround(TrialsText{}.with(member, "false")));
    }

    void anObjectAsAMembersValueFailsTheWholeFile_data() { addMembers(); }
    void anObjectAsAMembersValueFailsTheWholeFile()
    {
        QFETCH(const QByteArray, member);

        QVERIFY(!fileAround(TrialsText{}.with(member, "{}")));
    }

    void aMemberNameInAnotherCaseIsAnotherMember_data() { addMembers(); }
    void aMemberNameInAnotherCaseIsAnotherMember()
    {
        QFETCH(const QByteArray, member);

        QVERIFY(!fileAround(TrialsText{}.renamed(member, member.toUpper())));
    }

    void aValueOfAnotherTypeFailsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("member");
        QTest::addColumn<QByteArray>("value");
        for (const char *const member : {"id", "name", "notes"}) {
            for (const char *const value : {"0", "1.5", "-0", "[]", "[\"\"]"}) {
                addRow(member, value);
            }
        }
        for (const char *const member : {"endDate", "cost", "createdAt"}) {
            for (const char *const value : {"\"12.99\"", "\"\"", "[]", "[1]"}) {
                addRow(member, value);
            }
        }
        for (const char *const value : {"\"\"", "0", "[1]", "[null]", "[true]", "[[]]", "[{}]",
                                        R"(["a",1])", R"(["a",["b"]])"}) {
            addRow("notificationIds", value);
        }
    }
    void aValueOfAnotherTypeFailsTheWholeFile()
    {
        QFETCH(const QByteArray, member);
        QFETCH(const QByteArray, value);

        QVERIFY(!fileAround(TrialsText{}.with(member, value)));
    }

    void anIdInAnyOtherFormFailsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::newRow("empty") << QByteArray{};
        QTest::newRow("in braces") << QByteArray{"{BA96CA62-A106-480E-9C02-EEBDC393F97E}"};
        QTest::newRow("without hyphens") << QByteArray{"BA96CA62A106480E9C02EEBDC393F97E"};
        QTest::newRow("a hyphen moved") << QByteArray{"BA96CA6-2A106-480E-9C02-EEBDC393F97E"};
        QTest::newRow("a digit short") << QByteArray{"BA96CA62-A106-480E-9C02-EEBDC393F97"};
        QTest::newRow("a digit more") << QByteArray{"BA96CA62-A106-480E-9C02-EEBDC393F97E0"};
        QTest::newRow("a leading blank") << QByteArray{" BA96CA62-A106-480E-9C02-EEBDC393F97E"};
        QTest::newRow("a trailing blank") << QByteArray{"BA96CA62-A106-480E-9C02-EEBDC393F97E "};
        QTest::newRow("a letter past F") << QByteArray{"GA96CA62-A106-480E-9C02-EEBDC393F97E"};
        QTest::newRow("as a name") << QByteArray{"urn:uuid:BA96CA62-A106-480E-9C02-EEBDC393F97E"};
        QTest::newRow("a ligature that is FF in upper case")
            << QByteArray{"BA96CA62-A106-480E-9C02-EEBDC393F9\xEF\xAC\x80"};
    }
    void anIdInAnyOtherFormFailsTheWholeFile()
    {
        QFETCH(const QByteArray, id);

        QVERIFY(!fileAround(TrialsText{}.with("id", "\"" + id + "\"")));
    }

    void aNumberThatJsonDoesNotKnowFailsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("digits");
        for (const char *const digits : {"+1", "01", "-01", "1.", ".5", "-.5", "1e", "0x10", "1,5",
                                         "--1", "1_000", "NaN", "nan", "Infinity", "-Infinity"}) {
            QTest::newRow(digits) << QByteArray{digits};
        }
    }
    void aNumberThatJsonDoesNotKnowFailsTheWholeFile()
    {
        QFETCH(const QByteArray, digits);

        QVERIFY(!fileAround(TrialsText{}.with("cost", digits)));
    }

    void aNumberThatNoDoubleHoldsFailsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("digits");
        QTest::newRow("1e309") << QByteArray{"1e309"};
        QTest::newRow("-1e309") << QByteArray{"-1e309"};
        QTest::newRow("1e99999999999999999999") << QByteArray{"1e99999999999999999999"};
        QTest::newRow("400 digits") << QByteArray(400, '9');
    }
    void aNumberThatNoDoubleHoldsFailsTheWholeFile()
    {
        QFETCH(const QByteArray, digits);

        QVERIFY(!fileAround(TrialsText{}.with("cost", digits)));
        QVERIFY(!fileAround(TrialsText{}.with("endDate", digits)));
        QVERIFY(!fileAround(TrialsText{}.with("createdAt", digits)));
    }

    void anIgnoredMemberMustBeValidJsonToo_data()
    {
        QTest::addColumn<QByteArray>("value");
        for (const char *const value :
             {"01e999", "1.e999", ".1e999", "+1e999", "1e999.5", "1e999e1", "--1e999", "-",
              "1e999x", "nu1e999", "1e999 1", "nul", "True", "'a'", "[1,]", "{\"a\"}", "\"a"}) {
            QTest::newRow(value) << QByteArray{value};
        }
    }
    void anIgnoredMemberMustBeValidJsonToo()
    {
        QFETCH(const QByteArray, value);

        QVERIFY(!fileAround(TrialsText{}.plus("\"other\":" + value)));
    }

    void aTextThatIsNoUnicodeFailsTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("a lone continuation byte") << QByteArray{"\x80"};
        QTest::newRow("a sequence cut off") << QByteArray{"\xC3"};
        QTest::newRow("an overlong solidus") << QByteArray{"\xC0\xAF"};
        QTest::newRow("a surrogate in UTF-8") << QByteArray{"\xED\xA0\x80"};
        QTest::newRow("beyond U+10FFFF") << QByteArray{"\xF4\x90\x80\x80"};
        QTest::newRow("byte FF") << QByteArray{"\xFF"};
        QTest::newRow("a lone high surrogate") << QByteArray{R"(\ud83d)"};
        QTest::newRow("a lone low surrogate") << QByteArray{R"(\ude00)"};
        QTest::newRow("surrogates in the wrong order") << QByteArray{R"(\ude00\ud83d)"};
        QTest::newRow("a high surrogate before a letter") << QByteArray{R"(\ud83dA)"};
        QTest::newRow("a control character") << QByteArray{"\n"};
        QTest::newRow("a raw NUL") << QByteArray(1, '\0');
        QTest::newRow("an unknown escape") << QByteArray{R"(\x41)"};
        QTest::newRow("an escape cut short") << QByteArray{R"(\u12)"};
    }
    void aTextThatIsNoUnicodeFailsTheWholeFile()
    {
        QFETCH(const QByteArray, text);

        QVERIFY(!fileAround(TrialsText{}.with("name", "\"" + text + "\"")));
        QVERIFY(!fileAround(TrialsText{}.with("notificationIds", "[\"" + text + "\"]")));
        QVERIFY(!fileAround(TrialsText{}.plus("\"other\":\"" + text + "\"")));
    }

    void nesting512DeepIsReadAndOneMoreFails_data()
    {
        QTest::addColumn<QByteArray>("open");
        QTest::addColumn<QByteArray>("close");
        QTest::newRow("arrays") << QByteArray{"["} << QByteArray{"]"};
        QTest::newRow("objects") << QByteArray{R"({"a":)"} << QByteArray{"}"};
    }
    void nesting512DeepIsReadAndOneMoreFails()
    {
        QFETCH(const QByteArray, open);
        QFETCH(const QByteArray, close);
        // The list and the record are two levels themselves; the innermost value is no level.
        const auto nested = [&](int levels) {
            return TrialsText{}.plus("\"other\":" + open.repeated(levels - 2) + "1" +
                                     close.repeated(levels - 2));
        };

        QVERIFY(fileAround(nested(512)));
        QVERIFY(!fileAround(nested(513)));
        QVERIFY(!fileAround(nested(1'000'000)));
    }

private:
    static void addMembers()
    {
        QTest::addColumn<QByteArray>("member");
        for (const char *const member : TrialsText::members) {
            QTest::newRow(member) << QByteArray{member};
        }
    }
    static void addRow(const char *member, const char *value)
    {
        QTest::addRow("%s is %s", member, value) << QByteArray{member} << QByteArray{value};
    }
    /// A file of three records, with this one between two sound ones, read.
    static std::optional<QList<Trial>> fileAround(const TrialsText &text)
    {
        const QByteArray sound = TrialsText{}.record();
        return TrialsFile::decode(TrialsText::fileOf({sound, text.record(), sound}));
    }
};

NORVANE_TEST(TestTrialsFileRefusing)
#include "tst_TrialsFileRefusing.moc"
