// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>

class QImage;

namespace norvane {

/// An icon as it crosses the bus: 32-bit ARGB in network byte order, row by row.
struct IconPixmap {
    int width = 0;
    int height = 0;
    QByteArray argb;

    [[nodiscard]] static IconPixmap of(const QImage &image);
};

using IconPixmapList = QList<IconPixmap>;

QDBusArgument &operator<<(QDBusArgument &argument, const IconPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, IconPixmap &pixmap);

} // namespace norvane

Q_DECLARE_METATYPE(norvane::IconPixmap)
