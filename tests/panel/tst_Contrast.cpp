// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Contrast.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <cmath>

using namespace norvane;

class TestContrast final : public QObject {
    Q_OBJECT

private slots:
    void blackOnWhiteIsTheMostAndAColourOnItselfTheLeast()
    {
        QCOMPARE(Contrast::ratio(Qt::black, Qt::white), 21.0);
        QCOMPARE(Contrast::ratio(Qt::white, Qt::black), 21.0);
        QCOMPARE(Contrast::ratio(Qt::red, Qt::red), 1.0);
    }

    void aKnownPairHasItsKnownRatio()
    {
        QVERIFY(std::abs(Contrast::ratio(QColor{0x76, 0x76, 0x76}, Qt::white) - 4.54) < 0.005);
    }

    void aColourThatCanBeReadIsLeftAlone()
    {
        const QColor blue{0x1d, 0x3b, 0x8b};

        QCOMPARE(Contrast::readable(blue, Qt::white), blue);
    }

    void everyColourCanBeReadOnEveryBackground()
    {
        for (int background = 0; background < 256; background += 5) {
            const QColor grey{background, background, background};
            for (const QColor &color : {QColor{0xf0, 0xbe, 0x00}, QColor{0xff, 0x6b, 0x61}, grey}) {
                QVERIFY(Contrast::ratio(Contrast::readable(color, grey), grey) >= 4.5);
                QVERIFY(Contrast::ratio(Contrast::visible(color, grey), grey) >= 3.0);
            }
        }
    }

    void aHueCanBeToldInEachOfItsUses()
    {
        for (const QColor &background : {QColor{0xf7, 0xf7, 0xf8}, QColor{0x2a, 0x2a, 0x2e}}) {
            const Hue hue = Contrast::hue(QColor{0xf0, 0xbe, 0x00}, background);

            QVERIFY(Contrast::ratio(hue.text, background) >= 4.5);
            QVERIFY(Contrast::ratio(hue.symbol, background) >= 3.0);
            QVERIFY(Contrast::ratio(hue.symbolOnPatch, hue.patch) >= 3.0);
        }
    }

    void aThinCoatIsMostlyWhatIsBelow()
    {
        QCOMPARE(Contrast::blended(Qt::black, 0.2, Qt::white).name(), QStringLiteral("#cccccc"));
    }
};

NORVANE_TEST(TestContrast)
#include "tst_Contrast.moc"
