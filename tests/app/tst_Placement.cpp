// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/Placement.h"
#include "tests/support/TestProgram.h"

#include <QTest>

using namespace norvane;

namespace {

constexpr QSize popover{360, 420};
constexpr QRect whole{0, 0, 1280, 800};

ScreenArea panelAtTop()
{
    return {.whole = whole, .work = whole.adjusted(0, 30, 0, 0)};
}

ScreenArea panelAtBottom()
{
    return {.whole = whole, .work = whole.adjusted(0, 0, 0, -30)};
}

/// Where a popover goes for an icon pressed at this place of a lone screen.
QPoint cornerFor(const ScreenArea &screen, const QPoint &place)
{
    const Placement placement{{screen}, popover};
    return placement.beside(placement.anchor(std::nullopt, place, QPoint{640, 400})).topLeft();
}

} // namespace

class TestPlacement final : public QObject {
    Q_OBJECT

private slots:
    void standsBesideThePanelCentredOnTheIcon_data()
    {
        QTest::addColumn<QRect>("work");
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QPoint>("corner");

        QTest::newRow("below a panel at the top")
            << whole.adjusted(0, 30, 0, 0) << QPoint{700, 15} << QPoint{520, 34};
        QTest::newRow("above a panel at the bottom")
            << whole.adjusted(0, 0, 0, -30) << QPoint{700, 785} << QPoint{520, 346};
        QTest::newRow("right of a panel at the left")
            << whole.adjusted(40, 0, 0, 0) << QPoint{20, 400} << QPoint{44, 190};
        QTest::newRow("left of a panel at the right")
            << whole.adjusted(0, 0, -40, 0) << QPoint{1260, 400} << QPoint{876, 190};
    }
    void standsBesideThePanelCentredOnTheIcon()
    {
        QFETCH(const QRect, work);
        QFETCH(const QPoint, place);
        QFETCH(const QPoint, corner);

        const QPoint found = cornerFor({.whole = whole, .work = work}, place);

        QVERIFY2((found - corner).manhattanLength() <= 2, qPrintable(QDebug::toString(found)));
    }

    void keepsTheSameDistanceFromBothEdgesAtACorner_data()
    {
        QTest::addColumn<ScreenArea>("screen");
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("top left") << panelAtTop() << QPoint{2, 15} << QPoint{4, 34};
        QTest::newRow("top right") << panelAtTop() << QPoint{1278, 15} << QPoint{916, 34};
        QTest::newRow("last pixel") << panelAtTop() << QPoint{1279, 0} << QPoint{916, 34};
        QTest::newRow("bottom left") << panelAtBottom() << QPoint{2, 785} << QPoint{4, 346};
        QTest::newRow("bottom right") << panelAtBottom() << QPoint{1278, 785} << QPoint{916, 346};
    }
    void keepsTheSameDistanceFromBothEdgesAtACorner()
    {
        QFETCH(const ScreenArea, screen);
        QFETCH(const QPoint, place);

        QTEST(cornerFor(screen, place), "corner");
    }

    void staysOnTheScreenOfTheIcon()
    {
        const ScreenArea left = panelAtTop();
        const ScreenArea right{.whole = whole.translated(1280, 0),
                               .work = whole.translated(1280, 0).adjusted(0, 0, 0, -30)};
        const Placement placement{{left, right}, popover};

        const QRect found =
            placement.beside(placement.anchor(std::nullopt, QPoint{1290, 790}, QPoint{5, 5}));

        QCOMPARE(found.topLeft(), QPoint(1284, 346));
    }

    void aPlaceOutsideEveryStripGivesWayToThePointer()
    {
        const Placement placement{{panelAtTop()}, popover};

        const QRect anchor = placement.anchor(std::nullopt, QPoint{12, 300}, QPoint{1000, 14});

        QVERIFY(anchor.contains(QPoint(1000, 14)));
    }

    void aPlaceOffEveryScreenGivesWayToThePointer()
    {
        const Placement placement{{panelAtTop()}, popover};

        const QRect anchor = placement.anchor(std::nullopt, QPoint{5000, -3}, QPoint{1000, 14});

        QVERIFY(anchor.contains(QPoint(1000, 14)));
    }

    void noPlaceAtAllGivesWayToThePointer()
    {
        const Placement placement{{panelAtTop()}, popover};

        const QRect anchor = placement.anchor(std::nullopt, std::nullopt, QPoint{1000, 14});

        QVERIFY(anchor.contains(QPoint(1000, 14)));
    }

    void aKnownIconIsTheAnchorWhereverThePointerIs()
    {
        const Placement placement{{panelAtTop()}, popover};
        const QRect icon{900, 3, 24, 24};

        QCOMPARE(placement.anchor(icon, std::nullopt, QPoint{5, 5}), icon);
    }

    void anAutoHidingPanelIsGuessedFromTheNearestEdge_data()
    {
        QTest::addColumn<QRect>("icon");
        QTest::addColumn<QPoint>("corner");

        QTest::newRow("top") << QRect{690, 4, 20, 20} << QPoint{519, 28};
        QTest::newRow("bottom") << QRect{690, 774, 20, 20} << QPoint{519, 350};
        QTest::newRow("left") << QRect{4, 390, 20, 20} << QPoint{28, 189};
        QTest::newRow("right") << QRect{1256, 390, 20, 20} << QPoint{892, 189};
    }
    void anAutoHidingPanelIsGuessedFromTheNearestEdge()
    {
        QFETCH(const QRect, icon);
        QFETCH(const QPoint, corner);
        const Placement placement{{{.whole = whole, .work = whole}}, popover};

        const QRect found = placement.beside(icon);

        QVERIFY2((found.topLeft() - corner).manhattanLength() <= 2,
                 qPrintable(QDebug::toString(found)));
        QVERIFY(!found.intersects(icon));
    }

    void inTheMiddleOfAScreenItHangsBelowOrWhereThereIsRoom_data()
    {
        QTest::addColumn<QRect>("anchor");
        QTest::addColumn<bool>("below");
        QTest::newRow("room below") << QRect{600, 100, 24, 24} << true;
        QTest::newRow("room above only") << QRect{600, 600, 24, 24} << false;
    }
    void inTheMiddleOfAScreenItHangsBelowOrWhereThereIsRoom()
    {
        QFETCH(const QRect, anchor);
        QFETCH(const bool, below);
        const Placement placement{{{.whole = whole, .work = whole}}, popover};

        const QRect found = placement.beside(anchor);

        QCOMPARE(found.top() > anchor.bottom(), below);
        QCOMPARE(found.bottom() < anchor.top(), !below);
    }

    void isAsHighAsAWorkAreaThatIsLower_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<QRect>("geometry");
        QTest::newRow("lower") << 300 << QRect{436, 30, 360, 300};
        QTest::newRow("a pixel lower") << 419 << QRect{436, 30, 360, 419};
        QTest::newRow("just as high") << 420 << QRect{436, 30, 360, 420};
        QTest::newRow("a little higher") << 424 << QRect{436, 32, 360, 420};
        QTest::newRow("with room for the gaps") << 428 << QRect{436, 34, 360, 420};
    }
    void isAsHighAsAWorkAreaThatIsLower()
    {
        QFETCH(const int, height);
        const ScreenArea low{.whole = {0, 0, 800, height + 30}, .work = {0, 30, 800, height}};
        const Placement placement{{low}, popover};

        QTEST(placement.beside(QRect{770, 5, 20, 20}), "geometry");
    }

    void aWorkAreaNarrowerThanThePopoverShowsItsLeft()
    {
        const ScreenArea small{.whole = {0, 0, 300, 300}, .work = {0, 30, 300, 270}};

        QCOMPARE(cornerFor(small, QPoint{290, 10}), QPoint(0, 30));
    }

    void withoutAnIconItStandsAtTheEndOfThePanel_data()
    {
        QTest::addColumn<QRect>("work");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("no panel") << whole << QPoint{916, 4};
        QTest::newRow("top") << whole.adjusted(0, 30, 0, 0) << QPoint{916, 34};
        QTest::newRow("bottom") << panelAtBottom().work << QPoint{916, 346};
        QTest::newRow("left") << whole.adjusted(40, 0, 0, 0) << QPoint{44, 376};
        QTest::newRow("right") << whole.adjusted(0, 0, -40, 0) << QPoint{876, 376};
    }
    void withoutAnIconItStandsAtTheEndOfThePanel()
    {
        QFETCH(const QRect, work);
        QFETCH(const QPoint, corner);
        const Placement placement{{{.whole = whole, .work = work}}, popover};

        QCOMPARE(placement.withoutAnchor(), QRect(corner, popover));
    }

    void knowsWhenAnUnpluggedScreenTookThePopoverAlong()
    {
        const Placement placement{{panelAtTop()}, popover};

        QVERIFY(placement.isWhole({{100, 40}, popover}));
        QVERIFY(!placement.isWhole({{1400, 40}, popover}));
        QVERIFY(!placement.isWhole({{1000, 40}, popover}));
        QVERIFY(!placement.isWhole({{100, 40}, QSize{360, 300}})); // It can be higher again.
        QVERIFY(!placement.isOnScreen(QRect{1500, 4, 24, 24}));
    }
};

NORVANE_TEST(TestPlacement)
#include "tst_Placement.moc"
