// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "panel/AccessibleItem.h"

#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>

class QAbstractItemModel;

namespace norvane {

class UnseenRow;

/// What a screen reader is told of a list: one child for each row of the model, in its order.
///
/// A ListView makes items only for the rows in view, in whatever order they come into view. Those
/// rows are described by their items, all others by an UnseenRow.
class AccessibleList final : public AccessibleItem {
public:
    /// For a ListView over a QAbstractItemModel whose delegate has a property `index`.
    explicit AccessibleList(QQuickItem *list);

    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;

private:
    ~AccessibleList() override;

    [[nodiscard]] const QAbstractItemModel *model() const;
    [[nodiscard]] QQuickItem *itemOf(int row) const;
    [[nodiscard]] QAccessibleInterface *unseen(const QModelIndex &row) const;

    /// The rows' interfaces that were asked for so far. Some rows may be gone from the model.
    mutable QHash<QPersistentModelIndex, QAccessible::Id> unseen_;
};

/// A row of a list that is not in view. It has the name and the description that the model gives it
/// as Qt::AccessibleTextRole and Qt::AccessibleDescriptionRole.
///
/// Becomes invalid with its row and with the list.
class UnseenRow final : public QAccessibleInterface {
public:
    UnseenRow(QQuickItem *list, const QModelIndex &row);

    /// The row's current place in the list.
    [[nodiscard]] int row() const { return row_.row(); }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QWindow *window() const override;
    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override
    {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override
    {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    [[nodiscard]] QRect rect() const override { return {}; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override;

private:
    ~UnseenRow() override = default;

    const QPointer<QQuickItem> list_;
    const QPersistentModelIndex row_;
};

} // namespace norvane
