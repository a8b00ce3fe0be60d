// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Symbol.h"

#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace norvane {

Symbol::Symbol(QQuickItem *parent) : QQuickPaintedItem{parent}
{
    setSize(16);
}

void Symbol::paint(QPainter *painter)
{
    const qreal side = std::min(width(), height());
    const qreal scale = std::abs(painter->deviceTransform().m11());
    const int pixels = static_cast<int>(std::lround(side * scale));
    if (pixels <= 0 || name_.isEmpty()) {
        return;
    }
    // Rendered at the screen's resolution, so that edges on whole pixels stay sharp; cached, so
    // that all rows share one image.
    const QString key = QStringLiteral("norvane %1 %2 %3")
                            .arg(name_, color_.name(QColor::HexArgb), QString::number(pixels));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = drawn(pixels);
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(pixels / side);
    painter->drawPixmap(QPointF{(width() - side) / 2, (height() - side) / 2}, pixmap);
}

QPixmap Symbol::drawn(int pixels) const
{
    QPixmap pixmap{pixels, pixels};
    pixmap.fill(Qt::transparent);
    QPainter painter{&pixmap};
    QSvgRenderer{u":/norvane/symbols/" + name_ + u".svg"}.render(&painter);
    // The drawing gives the shape; the text it stands beside gives the colour.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color_);
    return pixmap;
}

void Symbol::setName(const QString &name)
{
    if (name_ != name) {
        name_ = name;
        emit nameChanged();
        update();
    }
}

void Symbol::setColor(const QColor &color)
{
    if (color_ != color) {
        color_ = color;
        emit colorChanged();
        update();
    }
}

void Symbol::setSize(qreal size)
{
    if (!qFuzzyCompare(implicitWidth(), size)) {
        setImplicitSize(size, size);
        emit sizeChanged();
        update();
    }
}

} // namespace norvane
