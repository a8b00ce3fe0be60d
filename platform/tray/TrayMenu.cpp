// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/TrayMenu.h"

#include "TrayMenuAdaptor.h"

#include <QDBusError>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace norvane {

namespace {

constexpr int root = 0;
constexpr int open = 1;
constexpr uint revision = 1;

bool exists(int id)
{
    return id == root || id == open;
}

/// The item's properties: those in `names`, or all if `names` is empty.
QVariantMap properties(int id, const QStringList &names)
{
    QVariantMap all;
    if (id == root) {
        all.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    } else {
        //: The one entry of the menu of the icon in the tray.
        all.insert(QStringLiteral("label"),
                   QCoreApplication::translate("TrayMenu", "Open Norvane"));
        all.insert(QStringLiteral("enabled"), true);
        all.insert(QStringLiteral("visible"), true);
    }
    if (!names.isEmpty()) {
        all.removeIf([&names](const QVariantMap::iterator &property) {
            return !names.contains(property.key());
        });
    }
    return all;
}

} // namespace

TrayMenu::TrayMenu(QDBusConnection bus) : bus_{std::move(bus)}
{
    registerTrayTypes();
    new TrayMenuAdaptor{this}; // Owned by this object.
    if (bus_.isConnected() && !bus_.registerObject(path(), this, QDBusConnection::ExportAdaptors)) {
        qWarning("The menu of the icon cannot be put on the session bus.");
    }
}

TrayMenu::~TrayMenu()
{
    bus_.unregisterObject(path());
}

QString TrayMenu::textDirection()
{
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

uint TrayMenu::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                         MenuLayout &layout)
{
    if (!exists(parentId)) {
        refuse(parentId);
        return revision;
    }
    layout = {.id = parentId, .properties = properties(parentId, propertyNames), .children = {}};
    if (parentId == root && recursionDepth != 0) {
        const MenuLayout entry{
            .id = open, .properties = properties(open, propertyNames), .children = {}};
        layout.children.append(QDBusVariant{QVariant::fromValue(entry)});
    }
    return revision;
}

MenuEntryList TrayMenu::GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames)
{
    MenuEntryList entries;
    for (const int id : ids.isEmpty() ? QList<int>{root, open} : ids) {
        if (exists(id)) {
            entries.append({.id = id, .properties = properties(id, propertyNames)});
        }
    }
    return entries;
}

QDBusVariant TrayMenu::GetProperty(int id, const QString &name)
{
    const QVariant value = exists(id) ? properties(id, {name}).value(name) : QVariant{};
    if (!value.isValid()) {
        refuse(id);
        return QDBusVariant{QString{}};
    }
    return QDBusVariant{value};
}

void TrayMenu::Event(int id, const QString &eventId, const QDBusVariant & /*data*/,
                     uint /*timestamp*/)
{
    if (!exists(id)) {
        refuse(id);
    } else if (id == open && eventId == u"clicked") {
        emit openChosen();
    }
}

QList<int> TrayMenu::EventGroup(const MenuEventList &events)
{
    QList<int> unknown;
    for (const MenuEvent &event : events) {
        if (exists(event.id)) {
            Event(event.id, event.eventId, event.data, event.timestamp);
        } else {
            unknown.append(event.id);
        }
    }
    return unknown;
}

bool TrayMenu::AboutToShow(int id)
{
    if (!exists(id)) {
        refuse(id);
    }
    return false; // What the host knows is still true.
}

QList<int> TrayMenu::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors)
{
    std::ranges::remove_copy_if(ids, std::back_inserter(idErrors), exists);
    return {};
}

void TrayMenu::refuse(int id)
{
    if (calledFromDBus()) {
        sendErrorReply(QDBusError::InvalidArgs,
                       QStringLiteral("The menu has no such item or property: %1").arg(id));
    }
}

} // namespace norvane
