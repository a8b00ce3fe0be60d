// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace norvane {

/// One item of a menu and its properties, as they cross the bus.
struct MenuEntry {
    int id = 0;
    QVariantMap properties;
};
using MenuEntryList = QList<MenuEntry>;

/// An item of a menu with those below it; each child is again a MenuLayout.
struct MenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<QDBusVariant> children;
};

/// Something that the user did to an item of a menu.
struct MenuEvent {
    int id = 0;
    QString eventId;
    QDBusVariant data;
    uint timestamp = 0;
};
using MenuEventList = QList<MenuEvent>;

/// Registers the types with Qt's D-Bus bindings.
void registerMenuTypes();

QDBusArgument &operator<<(QDBusArgument &argument, const MenuEntry &entry);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEntry &entry);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuLayout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLayout &layout);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event);

} // namespace norvane

Q_DECLARE_METATYPE(norvane::MenuEntry)
Q_DECLARE_METATYPE(norvane::MenuLayout)
Q_DECLARE_METATYPE(norvane::MenuEvent)
