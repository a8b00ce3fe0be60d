// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/IconDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <array>

namespace norvane {

QList<QImage> IconDrawing::inAllSizes(const QString &iconName)
{
    static constexpr std::array<int, 6> sizes{16, 22, 24, 32, 48, 64};
    const QString path = u":/norvane/icons/" + iconName + u".svg";
    QList<QImage> images;
    if (!QFile::exists(path)) {
        return images;
    }
    QSvgRenderer drawing{path};
    for (const int size : sizes) {
        QImage image{size, size, QImage::Format_ARGB32_Premultiplied};
        image.fill(Qt::transparent);
        QPainter painter{&image};
        drawing.render(&painter);
        images.append(image);
    }
    return images;
}

} // namespace norvane
