// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/windows/Struts.h"
#include "tests/support/TestProgram.h"

#include <QTest>

using namespace norvane;

namespace {

constexpr QSize display{2560, 800};
constexpr QRect leftScreen{0, 0, 1280, 800};
constexpr QRect rightScreen{1280, 0, 1280, 800};

} // namespace

class TestStruts final : public QObject {
    Q_OBJECT

private slots:
    void aStrutBelongsToTheScreenItSpans()
    {
        const auto strips = Struts::strips({0, 0, 30, 0, 0, 0, 0, 0, 1280, 2559, 0, 0}, display);

        QCOMPARE(Struts::workArea(leftScreen, strips), leftScreen);
        QCOMPARE(Struts::workArea(rightScreen, strips), rightScreen.adjusted(0, 30, 0, 0));
    }

    void everyEdgeCanBeReserved_data()
    {
        QTest::addColumn<QList<int>>("strut");
        QTest::addColumn<QRect>("work");
        QTest::newRow("left") << QList<int>{40, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0}
                              << leftScreen.adjusted(40, 0, 0, 0);
        QTest::newRow("top") << QList<int>{0, 0, 40, 0, 0, 0, 0, 0, 0, 1279, 0, 0}
                             << leftScreen.adjusted(0, 40, 0, 0);
        QTest::newRow("bottom") << QList<int>{0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1279}
                                << leftScreen.adjusted(0, 0, 0, -40);
    }
    void everyEdgeCanBeReserved()
    {
        QFETCH(const QList<int>, strut);
        QFETCH(const QRect, work);

        QCOMPARE(Struts::workArea(leftScreen, Struts::strips(strut, display)), work);
    }

    void aStrutAtTheRightDisplayEdgeAffectsOnlyTheRightScreen()
    {
        const auto strips = Struts::strips({0, 40, 0, 0, 0, 0, 0, 799, 0, 0, 0, 0}, display);

        QCOMPARE(Struts::workArea(rightScreen, strips), rightScreen.adjusted(0, 0, -40, 0));
        QCOMPARE(Struts::workArea(leftScreen, strips), leftScreen);
    }

    void aPanelBetweenScreensReservesNothingOfTheScreenBeforeIt()
    {
        // At the left edge of the right screen, so measured across all of the left one.
        const auto strips = Struts::strips({1320, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0}, display);

        QCOMPARE(Struts::workArea(leftScreen, strips), leftScreen);
        QCOMPARE(Struts::workArea(rightScreen, strips), rightScreen.adjusted(40, 0, 0, 0));
    }

    void aShortPanelReservesItsEdgeAndNoOther()
    {
        // A tray of one icon at the top right: deeper than it is long.
        const auto strips = Struts::strips({0, 0, 30, 0, 0, 0, 0, 0, 2536, 2559, 0, 0}, display);

        QCOMPARE(Struts::workArea(rightScreen, strips), rightScreen.adjusted(0, 30, 0, 0));
    }

    void aStrutOfFourNumbersReservesWholeEdges()
    {
        const auto strips = Struts::strips({0, 0, 30, 0}, display);

        QCOMPARE(Struts::workArea(leftScreen, strips), leftScreen.adjusted(0, 30, 0, 0));
        QCOMPARE(Struts::workArea(rightScreen, strips), rightScreen.adjusted(0, 30, 0, 0));
    }

    void aStrutOfAnyOtherLengthReservesNothing()
    {
        QVERIFY(Struts::strips({}, display).isEmpty());
        QVERIFY(Struts::strips({0, 0, 30}, display).isEmpty());
    }
};

NORVANE_TEST(TestStruts)
#include "tst_Struts.moc"
