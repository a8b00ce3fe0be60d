// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Phrase.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <limits>

using namespace norvane;

class TestPhrase final : public QObject {
    Q_OBJECT

private slots:
    void aValueTakesThePlaceOfThePlaceholder_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("expected");

        QTest::newRow("a number") << "%lld active"
                                  << "12"
                                  << "12 active";
        QTest::newRow("letters right behind it") << "%lldd left"
                                                 << "-2"
                                                 << "-2d left";
        QTest::newRow("a name") << "Remove \"%@\"?"
                                << "Acme"
                                << "Remove \"Acme\"?";
        QTest::newRow("a text that lacks it") << "aktiv"
                                              << "12"
                                              << "aktiv";
        QTest::newRow("a text that has it twice") << "%lld of %lld"
                                                  << "12"
                                                  << "12 of 12";
        QTest::newRow("an empty text") << ""
                                       << "12"
                                       << "";
        QTest::newRow("other directives in the text") << "%s %n %lld %d %1"
                                                      << "12"
                                                      << "%s %n 12 %d %1";
        QTest::newRow("a placeholder in the value") << "Remove %@?"
                                                    << "%@ %lld"
                                                    << "Remove %@ %lld?";
        QTest::newRow("a replacement pattern in the value") << "Remove %@?"
                                                            << "$& \\1"
                                                            << "Remove $& \\1?";
    }
    void aValueTakesThePlaceOfThePlaceholder()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, value);

        QTEST(Phrase::with(text, value), "expected");
    }

    void aPluralIsAskedForWithTheCountOrItsLastDigits()
    {
        QCOMPARE(Phrase::pluralNumber(0), 0);
        QCOMPARE(Phrase::pluralNumber(-21), 21);
        QCOMPARE(Phrase::pluralNumber(999'999), 999'999);
        QCOMPARE(Phrase::pluralNumber(5'000'000'001), 1'000'001);
        QCOMPARE(Phrase::pluralNumber(std::numeric_limits<qint64>::min()), 1'775'808);
    }
};

NORVANE_TEST(TestPhrase)
#include "tst_Phrase.moc"
