// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Contrast.h"
#include "tests/support/TestProgram.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <utility>

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

        QCOMPARE(Contrast::ensured(blue, Qt::white, 4.5), blue);
    }

    void everyColourCanBeReadOnEveryBackground()
    {
        for (int background = 0; background < 256; background += 5) {
            const QColor grey{background, background, background};
            for (const QColor &color : {QColor{0xf0, 0xbe, 0x00}, QColor{0xff, 0x6b, 0x61}, grey}) {
                for (const double wanted : {3.0, 4.5}) {
                    QVERIFY(Contrast::ratio(Contrast::ensured(color, grey, wanted), grey) >=
                            wanted);
                }
            }
        }
    }

    void whereNoMixtureHasTheRatioBlackOrWhiteIsTaken()
    {
        QCOMPARE(Contrast::ensured(Qt::red, QColor{0x80, 0x80, 0x80}, 7), QColor{Qt::black});
    }

    void aLineCanHaveEnoughContrastToSeveralBackgrounds()
    {
        const QColor grey{0x80, 0x80, 0x80};

        const QColor line = Contrast::ensuredOnAll(Qt::darkGray, grey, Qt::black, grey, 3);

        QVERIFY(Contrast::ratio(line, grey) >= 3.0);
        QVERIFY(Contrast::ratio(line, Qt::black) >= 3.0);
    }

    void aHueHasEnoughContrastInEachOfItsUses()
    {
        const QList<std::pair<QColor, QColor>> grounds{
            {QColor{0xf7, 0xf7, 0xf8}, QColor{0xe8, 0xe8, 0xe9}},
            {QColor{0x2a, 0x2a, 0x2e}, QColor{0x38, 0x38, 0x3c}}};
        for (const auto &[background, lit] : grounds) {
            const Hue hue = Contrast::hue(QColor{0xf0, 0xbe, 0x00}, background, lit, 4.5, 3);

            for (const QColor &ground : {background, lit}) {
                QVERIFY(Contrast::ratio(hue.text, ground) >= 4.5);
                QVERIFY(Contrast::ratio(hue.symbol, ground) >= 3.0);
            }
            QVERIFY(Contrast::ratio(hue.symbolOnPatch, hue.patch) >= 3.0);
        }
    }

    void textOnAnyGroundCanBeReadWithLittleChangeToIt()
    {
        QCOMPARE(Contrast::onGround(QColor{0x35, 0x84, 0xe4}), QColor{Qt::white});
        QCOMPARE(Contrast::onGround(QColor{0xc8, 0x88, 0x00}), QColor{Qt::black});
        for (int hue = 0; hue < 360; hue += 10) {
            const QColor ground = QColor::fromHsl(hue, 200, 120);
            const QColor text = Contrast::onGround(ground);

            QVERIFY(Contrast::ratio(Contrast::ensured(ground, text, 4.5), text) >= 4.5);
        }
    }

    void aChangeOfTheContrastSettingIsSignalledOnce()
    {
        const Contrast contrast;
        const QSignalSpy told{&contrast, &Contrast::moreChanged};

        Contrast::setMore(true);
        Contrast::setMore(true);
        QVERIFY(Contrast::more());
        Contrast::setMore(false);

        QVERIFY(!Contrast::more());
        QCOMPARE(told.count(), 2);
    }

    void blendingAtLowOpacityStaysCloseToTheBackground()
    {
        QCOMPARE(Contrast::blended(Qt::black, 0.2, Qt::white).name(), QStringLiteral("#cccccc"));
    }
};

NORVANE_TEST(TestContrast)
#include "tst_Contrast.moc"
