// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/tray/TrayTypes.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>

namespace norvane {

/// The menu of the status item on the bus: one entry, which opens Norvane.
///
/// Some hosts hide an item without a menu, and some panels can be set to open menus only. The menu
/// never changes, and neither does its revision number.
class TrayMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    /// Puts the menu on the bus at path().
    explicit TrayMenu(QDBusConnection bus);
    ~TrayMenu() override;

    [[nodiscard]] static QString path() { return QStringLiteral("/MenuBar"); }

    [[nodiscard]] static uint version() { return 3; }
    [[nodiscard]] static QString textDirection();
    [[nodiscard]] static QString status() { return QStringLiteral("normal"); }
    [[nodiscard]] static QStringList iconThemePath() { return {}; }

public slots: // What hosts call, under the names the bus knows.
    uint GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                   norvane::MenuLayout &layout);
    norvane::MenuEntryList GetGroupProperties(const QList<int> &ids,
                                              const QStringList &propertyNames);
    QDBusVariant GetProperty(int id, const QString &name);
    void Event(int id, const QString &eventId, const QDBusVariant &data, uint timestamp);
    QList<int> EventGroup(const norvane::MenuEventList &events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors);

signals:
    /// Emitted when the user chooses the entry.
    void openChosen();

private:
    void refuse(int id);

    QDBusConnection bus_;
};

} // namespace norvane
