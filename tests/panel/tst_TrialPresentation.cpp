// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialPresentation.h"
#include "tests/support/TestProgram.h"
#include "time/Calendar.h"

#include <QTest>

#include <limits>

using namespace norvane;
using urgencies::Urgency;

class TestTrialPresentation final : public QObject {
    Q_OBJECT

private slots:
    void theTimeLeftGivesDaysUrgencyAndSymbol_data()
    {
        QTest::addColumn<double>("hours");
        QTest::addColumn<QString>("days");
        QTest::addColumn<Urgency>("urgency");
        QTest::addColumn<QString>("symbol");

        QTest::newRow("3 days and 1 hour") << 73.0 << "3d left" << Urgency::Soon << "bell";
        QTest::newRow("2 days") << 48.0 << "2d left" << Urgency::Soon << "bell";
        QTest::newRow("47 hours") << 47.0 << "1d left" << Urgency::Tomorrow << "exclamationmark.2";
        QTest::newRow("36 hours") << 36.0 << "1d left" << Urgency::Tomorrow << "exclamationmark.2";
        QTest::newRow("20 hours") << 20.0 << "0d left" << Urgency::Over << "xmark";
        QTest::newRow("4 days") << 96.0 << "4d left" << Urgency::Relaxed << "checkmark";
        QTest::newRow("10 hours ago") << -10.0 << "0d left" << Urgency::Over << "xmark";
        QTest::newRow("50 hours ago") << -50.0 << "-2d left" << Urgency::Over << "xmark";
        QTest::newRow("3 days ago") << -72.0 << "-3d left" << Urgency::Over << "xmark";
        QTest::newRow("never") << 1e300 << "0d left" << Urgency::Over << "xmark";
    }
    void theTimeLeftGivesDaysUrgencyAndSymbol()
    {
        QFETCH(const double, hours);

        const TrialPresentation row = of(hours, 0);

        QTEST(row.daysText, "days");
        QTEST(row.urgency, "urgency");
        QTEST(row.badgeSymbol, "symbol");
    }

    void theCostIsShownWhereThereIsOne_data()
    {
        QTest::addColumn<double>("cost");
        QTest::addColumn<QString>("text");

        QTest::newRow("one decimal") << 9.5 << "· $9.50";
        QTest::newRow("no decimal") << 12.0 << "· $12.00";
        QTest::newRow("less than a cent") << 0.001 << "· $0.00";
        QTest::newRow("zero") << 0.0 << "";
        QTest::newRow("negative") << -3.0 << "";
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "";
    }
    void theCostIsShownWhereThereIsOne()
    {
        QFETCH(const double, cost);

        QTEST(of(100, cost).costText, "text");
    }

    void aScreenReaderSaysNameDaysAndCostInOneSentence()
    {
        QCOMPARE(of(36, 9.5).sentence(QStringLiteral("Acme")), u"Acme, 1d left, $9.50");
        QCOMPARE(of(36, 0).sentence(QStringLiteral("Acme")), u"Acme, 1d left");
    }

private:
    [[nodiscard]] static TrialPresentation of(double hours, double cost)
    {
        constexpr PointInTime now{758'017'815};
        const Trial trial =
            Trial::make(QStringLiteral("Acme"), now.advanced(hours * 3600), cost, {}, now);
        return TrialPresentation::of(trial, now, Calendar{QTimeZone::utc()});
    }
};

NORVANE_TEST(TestTrialPresentation)
#include "tst_TrialPresentation.moc"
