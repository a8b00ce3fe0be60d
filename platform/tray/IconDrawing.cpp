// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/IconDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <array>

namespace norvane {

namespace {

/// The same shapes in one colour.
QImage tinted(QImage shapes, const QColor &color)
{
    QPainter painter{&shapes};
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shapes.rect(), color);
    return shapes;
}

/// There is a drawing for each of the small sizes; the larger sizes are whole multiples of the
/// smallest one.
QImage shapes(const QString &iconName, int size)
{
    constexpr int smallest = 16;
    const int drawn = size % smallest == 0 ? smallest : size;
    QImage image{size, size, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    QPainter painter{&image};
    QSvgRenderer{QStringLiteral(":/norvane/icons/%1/%2.svg").arg(drawn).arg(iconName)}.render(
        &painter);
    return image;
}

} // namespace

QList<QImage> IconDrawing::inAllSizes(const QString &iconName)
{
    static constexpr std::array<int, 6> sizes{16, 22, 24, 32, 48, 64};
    QList<QImage> images;
    if (!QFile::exists(QStringLiteral(":/norvane/icons/16/%1.svg").arg(iconName))) {
        return images;
    }
    // Panels show these pixels unchanged, on a background whose colour is unknown here: the white
    // shape stands out on a dark panel, its dark edge on a light one.
    const QColor face{0xf6, 0xf6, 0xf6};
    const QColor edge{0x26, 0x26, 0x26, 0xc0};
    for (const int size : sizes) {
        const QImage drawing = shapes(iconName, size);
        const QImage dark = tinted(drawing, edge);
        const int width = std::max(1, size / 32);
        QImage image{size, size, QImage::Format_ARGB32_Premultiplied};
        image.fill(Qt::transparent);
        QPainter painter{&image};
        for (const QPoint &shift :
             {QPoint{-width, 0}, QPoint{width, 0}, QPoint{0, -width}, QPoint{0, width}}) {
            painter.drawImage(shift, dark);
        }
        painter.drawImage(QPoint{}, tinted(drawing, face));
        painter.end();
        images.append(image);
    }
    return images;
}

} // namespace norvane
