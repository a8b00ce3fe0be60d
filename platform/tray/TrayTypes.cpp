// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/TrayTypes.h"

#include <QDBusMetaType>
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

void registerTrayTypes()
{
    qDBusRegisterMetaType<IconPixmap>();
    qDBusRegisterMetaType<IconPixmapList>();
    qDBusRegisterMetaType<ToolTip>();
    qDBusRegisterMetaType<MenuEntry>();
    qDBusRegisterMetaType<MenuEntryList>();
    qDBusRegisterMetaType<MenuLayout>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<MenuEventList>();
    qDBusRegisterMetaType<QList<QDBusVariant>>();
}

} // namespace norvane
