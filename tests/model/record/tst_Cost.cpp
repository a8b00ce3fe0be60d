// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/Cost.h"
#include "tests/support/ReferenceCases.h"
#include "tests/support/TestProgram.h"

#include <QJsonObject>
#include <QTest>

#include <cmath>
#include <limits>

using namespace norvane;

class TestCost final : public QObject {
    Q_OBJECT

private slots:
    void aReferenceCostHasItsText_data()
    {
        QTest::addColumn<double>("cost");
        QTest::addColumn<QString>("text");
        ReferenceCases cases{QStringLiteral("prices.json")};
        for (const QJsonValue &each : cases.all()) {
            const QString bits = each[u"cost"].toString();
            QTest::newRow(cases.rowName(bits).constData())
                << ReferenceCases::fromBits(bits) << each[u"text"].toString();
        }
    }
    void aReferenceCostHasItsText()
    {
        QFETCH(const double, cost);
        QFETCH(const QString, text);

        QCOMPARE(Cost::text(cost), text);
    }

    void aCostHasTwoDecimalsAndNoGroups_data()
    {
        QTest::addColumn<double>("cost");
        QTest::addColumn<QString>("text");
        QTest::newRow("9.5") << 9.5 << QStringLiteral("9.50");
        QTest::newRow("9.999") << 9.999 << QStringLiteral("10.00");
        QTest::newRow("1234.5") << 1234.5 << QStringLiteral("1234.50");
        QTest::newRow("0") << 0.0 << QStringLiteral("0.00");
        QTest::newRow("-3.25") << -3.25 << QStringLiteral("-3.25");
        QTest::newRow("0.125, a tie to even") << 0.125 << QStringLiteral("0.12");
        QTest::newRow("0.375, a tie to even") << 0.375 << QStringLiteral("0.38");
        QTest::newRow("1e300") << 1e300 << QString::asprintf("%.2f", 1e300);
        QTest::newRow("the largest")
            << -std::numeric_limits<double>::max()
            << QString::asprintf("%.2f", -std::numeric_limits<double>::max());
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity()
                                  << QStringLiteral("inf");
    }
    void aCostHasTwoDecimalsAndNoGroups()
    {
        QFETCH(const double, cost);
        QFETCH(const QString, text);

        QCOMPARE(Cost::text(cost), text);
    }

    void aWholeTextThatIsANumberIsItsCost_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("cost");
        QTest::newRow("9.99") << QStringLiteral("9.99") << 9.99;
        QTest::newRow("12") << QStringLiteral("12") << 12.0;
        QTest::newRow("-3") << QStringLiteral("-3") << -3.0;
        QTest::newRow("+4") << QStringLiteral("+4") << 4.0;
        QTest::newRow(".5") << QStringLiteral(".5") << 0.5;
        QTest::newRow("5.") << QStringLiteral("5.") << 5.0;
        QTest::newRow("1e3") << QStringLiteral("1e3") << 1000.0;
        QTest::newRow("1E-2") << QStringLiteral("1E-2") << 0.01;
        QTest::newRow("hexadecimal") << QStringLiteral("0x1F") << 31.0;
        QTest::newRow("hexadecimal with an exponent") << QStringLiteral("0x1.8p1") << 3.0;
        QTest::newRow("inf") << QStringLiteral("inf") << std::numeric_limits<double>::infinity();
        QTest::newRow("-Infinity")
            << QStringLiteral("-Infinity") << -std::numeric_limits<double>::infinity();
        QTest::newRow("too large")
            << QStringLiteral("1e999") << std::numeric_limits<double>::infinity();
        QTest::newRow("too small") << QStringLiteral("1e-999") << 0.0;
    }
    void aWholeTextThatIsANumberIsItsCost()
    {
        QFETCH(const QString, text);
        QFETCH(const double, cost);

        QCOMPARE(ReferenceCases::bitsOf(Cost::fromText(text)), ReferenceCases::bitsOf(cost));
    }

    void theTextNanIsNotANumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("nan") << QStringLiteral("nan");
        QTest::newRow("NaN") << QStringLiteral("NaN");
        QTest::newRow("nan with a payload") << QStringLiteral("nan(1)");
    }
    void theTextNanIsNotANumber()
    {
        QFETCH(const QString, text);

        QVERIFY(std::isnan(Cost::fromText(text)));
    }

    void anyOtherTextIsZero_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString{};
        QTest::newRow("a comma") << QStringLiteral("9,99");
        QTest::newRow("groups") << QStringLiteral("1,234.50");
        QTest::newRow("a dollar sign") << QStringLiteral("$5");
        QTest::newRow("a unit") << QStringLiteral("5 €");
        QTest::newRow("a word") << QStringLiteral("abc");
        QTest::newRow("a leading blank") << QStringLiteral(" 5");
        QTest::newRow("a leading tab") << QStringLiteral("\t5");
        QTest::newRow("a leading line break") << QStringLiteral("\n5");
        QTest::newRow("a leading no-break space") << QStringLiteral("\u00a05");
        QTest::newRow("a trailing blank") << QStringLiteral("5 ");
        QTest::newRow("a blank inside") << QStringLiteral("1 000");
        QTest::newRow("a blank alone") << QStringLiteral(" ");
        QTest::newRow("two points") << QStringLiteral("1.2.3");
        QTest::newRow("two signs") << QStringLiteral("--1");
        QTest::newRow("a sign alone") << QStringLiteral("-");
        QTest::newRow("a point alone") << QStringLiteral(".");
        QTest::newRow("an exponent without digits") << QStringLiteral("1e");
        QTest::newRow("a prefix without digits") << QStringLiteral("0x");
        QTest::newRow("a NUL at the end") << QStringLiteral("5\0");
        QTest::newRow("Arabic digits") << QStringLiteral("٥");
        QTest::newRow("full-width digits") << QStringLiteral("５");
    }
    void anyOtherTextIsZero()
    {
        QFETCH(const QString, text);

        QCOMPARE(ReferenceCases::bitsOf(Cost::fromText(text)), ReferenceCases::bitsOf(0));
    }
};

NORVANE_TEST(TestCost)
#include "tst_Cost.moc"
