// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/bus/BusStruct.h"

#include <QByteArray>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

#include <tuple>

class QImage;

/// What the icon and its menu exchange with the part of the desktop that shows them.
namespace norvane {

/// An icon: 32-bit ARGB in network byte order, row by row.
struct IconPixmap {
    int width = 0;
    int height = 0;
    QByteArray argb;

    [[nodiscard]] static IconPixmap of(const QImage &image);
    static auto fields(auto &self) { return std::tie(self.width, self.height, self.argb); }
};
using IconPixmapList = QList<IconPixmap>;

/// What a host shows while the pointer rests on the icon. Hosts may parse its texts as markup, so
/// they must not contain anything that a user typed.
struct ToolTip {
    QString iconName;
    IconPixmapList iconPixmap;
    QString title;
    QString text;

    static auto fields(auto &self)
    {
        return std::tie(self.iconName, self.iconPixmap, self.title, self.text);
    }
};

/// One item of a menu and its properties.
struct MenuEntry {
    int id = 0;
    QVariantMap properties;

    static auto fields(auto &self) { return std::tie(self.id, self.properties); }
};
using MenuEntryList = QList<MenuEntry>;

/// An item of a menu with those below it; each child is again a MenuLayout.
struct MenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<QDBusVariant> children;

    static auto fields(auto &self) { return std::tie(self.id, self.properties, self.children); }
};

/// Something that the user did to an item of a menu.
struct MenuEvent {
    int id = 0;
    QString eventId;
    QDBusVariant data;
    uint timestamp = 0;

    static auto fields(auto &self)
    {
        return std::tie(self.id, self.eventId, self.data, self.timestamp);
    }
};
using MenuEventList = QList<MenuEvent>;

/// Registers the types with Qt's D-Bus bindings; call it before using any of them.
void registerTrayTypes();

} // namespace norvane

Q_DECLARE_METATYPE(norvane::IconPixmap)
Q_DECLARE_METATYPE(norvane::ToolTip)
Q_DECLARE_METATYPE(norvane::MenuEntry)
Q_DECLARE_METATYPE(norvane::MenuLayout)
Q_DECLARE_METATYPE(norvane::MenuEvent)
