// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialPresentation.h"
#include "tests/support/TestProgram.h"
#include "time/Calendar.h"

#include <QTest>
#include <QTextBoundaryFinder>

#include <limits>

using namespace norvane;
using urgencies::Urgency;

namespace {

int clustersIn(const QString &text)
{
    QTextBoundaryFinder finder{QTextBoundaryFinder::Grapheme, text};
    int clusters = 0;
    while (finder.toNextBoundary() > 0) {
        ++clusters;
    }
    return clusters;
}

} // namespace

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
        QCOMPARE(of(36, 9.5).sentence(), u"Acme, 1d left, $9.50");
        QCOMPARE(of(36, 0).sentence(), u"Acme, 1d left");
    }

    void aNameOfFourMegabytesIsShownAndSpokenAsAThousandClusters_data()
    {
        QTest::addColumn<QString>("cluster");
        QTest::addColumn<int>("clusters");

        QTest::newRow("a letter") << "x" << 1000;
        QTest::newRow("a letter of two code units") << "𝒳" << 1000;
        QTest::newRow("a letter with an accent of its own") << QString::fromUtf8("e\u0301") << 1000;
        QTest::newRow("a family") << "👨‍👩‍👧‍👦" << 1000;
        QTest::newRow("a letter with forty accents")
            << u'a' + QString::fromUtf8("\u0301").repeated(40) << 781;
        QTest::newRow("a letter with a million accents")
            << u'a' + QString::fromUtf8("\u0301").repeated(1'000'000) << 1;
    }
    void aNameOfFourMegabytesIsShownAndSpokenAsAThousandClusters()
    {
        QFETCH(const QString, cluster);

        const TrialPresentation row = named(cluster.repeated(4'000'000 / cluster.size()));

        QTEST(clustersIn(row.spokenName), "clusters");
        const QString kept = row.spokenName.chopped(1);
        QCOMPARE(row.spokenName.back(), u'…');
        QCOMPARE(kept, cluster.repeated(kept.size() / cluster.size()));
        QCOMPARE(row.shownName, u'\u2068' + row.spokenName + u'\u2069');
    }

    void aNameOfAThousandClustersStaysWhole_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("letters") << QStringLiteral("x").repeated(1000);
        QTest::newRow("letters with accents") << QString::fromUtf8("e\u0301").repeated(1000);
        QTest::newRow("families") << QStringLiteral("👨‍👩‍👧‍👦").repeated(1000);
    }
    void aNameOfAThousandClustersStaysWhole()
    {
        QFETCH(const QString, name);

        QCOMPARE(named(name).spokenName, name);
    }

    void lineBreaksAndTabsInANameAreBlanks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("spoken");

        QTest::newRow("behind") << "Netflix\n"
                                << "Netflix ";
        QTest::newRow("before") << "\nNetflix Premium"
                                << " Netflix Premium";
        QTest::newRow("of two characters") << "a\r\nb"
                                           << "a b";
        QTest::newRow("two of them") << "a\n\nb"
                                     << "a  b";
        QTest::newRow("tabs and pages") << "a\tb\vc\fd"
                                        << "a b c d";
        QTest::newRow("of Unicode") << QString::fromUtf8("a\u2028b\u2029c\u0085d") << "a b c d";
    }
    void lineBreaksAndTabsInANameAreBlanks()
    {
        QFETCH(const QString, name);

        QTEST(named(name).spokenName, "spoken");
    }

    void marksThatIsolateCannotReachBeyondTheName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");

        QTest::newRow("none") << QStringLiteral("a") << QStringLiteral("\u2068a\u2069");
        QTest::newRow("balanced") << QStringLiteral("a\u2067b\u2069c")
                                  << QStringLiteral("\u2068a\u2067b\u2069c\u2069");
        QTest::newRow("one that closes")
            << QStringLiteral("a\u2069b") << QStringLiteral("\u2068ab\u2069");
        QTest::newRow("some that open")
            << QStringLiteral("\u2066a\u2067b\u2068c")
            << QStringLiteral("\u2068\u2066a\u2067b\u2068c\u2069\u2069\u2069\u2069");
        QTest::newRow("one that closes and one that opens")
            << QStringLiteral("\u2069a\u2068") << QStringLiteral("\u2068a\u2068\u2069\u2069");
    }
    void marksThatIsolateCannotReachBeyondTheName()
    {
        QFETCH(const QString, name);

        QTEST(named(name).shownName, "shown");
    }

private:
    [[nodiscard]] static TrialPresentation named(const QString &name)
    {
        constexpr PointInTime now{758'017'815};
        return TrialPresentation::of(Trial::make(name, now, 0, {}, now), now,
                                     Calendar{QTimeZone::utc()});
    }
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
