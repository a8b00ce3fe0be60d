// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TextStyles.h"
#include "tests/support/TestProgram.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

using namespace norvane;

class TestTextStyles final : public QObject {
    Q_OBJECT

private slots:
    void allStylesAreMadeFromTheDesktopsFont()
    {
        QFont font{QStringLiteral("DejaVu Sans")};
        font.setPixelSize(20);
        QGuiApplication::setFont(font);

        QCOMPARE(TextStyles::body().pixelSize(), 20);
        QCOMPARE(TextStyles::headline().pixelSize(), 20);
        QCOMPARE(TextStyles::headline().weight(), QFont::DemiBold);
        QCOMPARE(TextStyles::caption().pixelSize(), 17);
        QCOMPARE(TextStyles::captionMedium().weight(), QFont::Medium);
        QCOMPARE(TextStyles::title3().pixelSize(), 24);
        QCOMPARE(TextStyles::largeTitle().pixelSize(), 40);
        QCOMPARE(TextStyles::largeTitle().family(), QStringLiteral("DejaVu Sans"));
    }

    void aFontInPointsCountsInThePixelsItHasOnTheScreen()
    {
        QFont font;
        font.setPointSizeF(15);
        QGuiApplication::setFont(font);

        QCOMPARE(TextStyles::body().pixelSize(), QFontInfo{font}.pixelSize());
    }

    void anotherFontOfTheDesktopIsAnnounced()
    {
        const TextStyles styles;
        const QSignalSpy changed{&styles, &TextStyles::changed};
        QFont font;
        font.setPixelSize(31);

        QGuiApplication::setFont(font);

        QTRY_VERIFY(changed.count() > 0);
        QCOMPARE(TextStyles::body().pixelSize(), 31);
    }
};

NORVANE_GUI_TEST(TestTextStyles)
#include "tst_TextStyles.moc"
