// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/IconPixmap.h"

#include <QImage>
#include <QtEndian>

namespace norvane {

IconPixmap IconPixmap::of(const QImage &image)
{
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    IconPixmap pixmap{.width = source.width(), .height = source.height(), .argb = {}};
    pixmap.argb.resize(source.sizeInBytes());
    qToBigEndian<quint32>(source.constBits(), source.sizeInBytes() / 4, pixmap.argb.data());
    return pixmap;
}

QDBusArgument &operator<<(QDBusArgument &argument, const IconPixmap &pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.argb;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, IconPixmap &pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.argb;
    argument.endStructure();
    return argument;
}

} // namespace norvane
