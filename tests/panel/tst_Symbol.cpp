// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Symbol.h"
#include "tests/support/TestProgram.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

using namespace norvane;

namespace {

constexpr int side = 16;
const QColor tint{0x20, 0x80, 0xc0};

QString file(const QString &name)
{
    return u":/norvane/symbols/" + name + u".svg";
}

/// What a symbol paints on a screen of that scale.
QImage painted(const QString &name, double scale)
{
    const int pixels = qRound(side * scale);
    QImage image{pixels, pixels, QImage::Format_ARGB32_Premultiplied};
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    Symbol symbol;
    symbol.setName(name);
    symbol.setColor(tint);
    symbol.setSize(side);
    QPainter painter{&image};
    symbol.paint(&painter);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

/// How much of each pixel the drawing covers when it is drawn at just that size.
QImage drawing(const QString &name, int pixels)
{
    QImage image{pixels, pixels, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    QPainter painter{&image};
    QSvgRenderer{file(name)}.render(&painter);
    painter.end();
    return image.convertToFormat(QImage::Format_Alpha8);
}

void addNames()
{
    QTest::addColumn<QString>("name");
    for (const char *const name : {"bell", "calendar", "checkmark", "chevron.left", "chevron.right",
                                   "clock.badge.exclamationmark", "exclamationmark.2",
                                   "plus.circle.fill", "shield.checkered", "trash", "xmark"}) {
        QTest::newRow(name) << name;
    }
}

} // namespace

class TestSymbol final : public QObject {
    Q_OBJECT

private slots:
    void everyNameHasItsDrawing_data() { addNames(); }
    void everyNameHasItsDrawing()
    {
        QFETCH(const QString, name);

        QVERIFY(QSvgRenderer{file(name)}.isValid());
        QVERIFY(painted(name, 1) != painted(QString{}, 1));
    }

    void everyPixelHasTheTint_data() { addNames(); }
    void everyPixelHasTheTint()
    {
        QFETCH(const QString, name);

        const QImage image = painted(name, 2).convertToFormat(QImage::Format_ARGB32);

        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() == 255) {
                    QCOMPARE(pixel.rgb(), tint.rgb());
                }
            }
        }
        QVERIFY(image.convertToFormat(QImage::Format_Alpha8) == drawing(name, 2 * side));
    }

    void itIsDrawnInDevicePixelsAtEveryScale_data()
    {
        QTest::addColumn<double>("scale");
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            QTest::addRow("%g", scale) << scale;
        }
    }
    void itIsDrawnInDevicePixelsAtEveryScale()
    {
        QFETCH(const double, scale);
        const QString name = QStringLiteral("trash");

        const QImage image = painted(name, scale).convertToFormat(QImage::Format_Alpha8);

        QVERIFY(image == drawing(name, qRound(side * scale)));
    }
};

NORVANE_GUI_TEST(TestSymbol)
#include "tst_Symbol.moc"
