// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/AccessibleTable.h"

#include <QQuickItem>

#include <algorithm>

namespace norvane {

QList<QAccessibleInterface *> AccessibleTable::cells() const
{
    QList<QAccessibleInterface *> cells;
    for (QQuickItem *const inside : item()->childItems()) {
        QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(inside);
        if (found != nullptr && found->tableCellInterface() != nullptr) {
            cells.append(found);
        }
    }
    return cells;
}

QAccessibleInterface *AccessibleTable::child(int index) const
{
    return cells().value(index);
}

int AccessibleTable::childCount() const
{
    return static_cast<int>(cells().size());
}

int AccessibleTable::indexOfChild(const QAccessibleInterface *child) const
{
    const QList<QAccessibleInterface *> all = cells();
    const auto found = std::ranges::find(all, child);
    return found != all.cend() ? static_cast<int>(found - all.cbegin()) : -1;
}

QAccessibleInterface *AccessibleTable::childAt(int x, int y) const
{
    const QList<QAccessibleInterface *> all = cells();
    const auto found = std::ranges::find_if(
        all, [x, y](const QAccessibleInterface *cell) { return cell->rect().contains(x, y); });
    return found != all.cend() ? *found : nullptr;
}

int AccessibleTable::rowCount() const
{
    const int columns = columnCount();
    return (childCount() + columns - 1) / columns;
}

int AccessibleTable::columnCount() const
{
    return std::max(1, item()->property("columns").toInt());
}

QAccessibleInterface *AccessibleTable::cellAt(int row, int column) const
{
    const bool inside = row >= 0 && column >= 0 && column < columnCount();
    return inside ? child(row * columnCount() + column) : nullptr;
}

int AccessibleTable::selectedCellCount() const
{
    return static_cast<int>(selectedCells().size());
}

QList<QAccessibleInterface *> AccessibleTable::selectedCells() const
{
    QList<QAccessibleInterface *> selected = cells();
    selected.removeIf(
        [](QAccessibleInterface *cell) { return !cell->tableCellInterface()->isSelected(); });
    return selected;
}

void *AccessibleTable::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface *>(this)
                                               : AccessibleItem::interface_cast(type);
}

QAccessible::State AccessibleCell::state() const
{
    QAccessible::State state = AccessibleItem::state();
    state.selectable = true;
    state.selected = isSelected();
    return state;
}

bool AccessibleCell::isSelected() const
{
    return item()->property("selected").toBool();
}

std::pair<int, int> AccessibleCell::place() const
{
    QAccessibleInterface *const around = table();
    return around != nullptr
               ? std::pair{around->indexOfChild(this), around->tableInterface()->columnCount()}
               : std::pair{-1, 1};
}

int AccessibleCell::rowIndex() const
{
    const auto [index, columns] = place();
    return index >= 0 ? index / columns : -1;
}

int AccessibleCell::columnIndex() const
{
    const auto [index, columns] = place();
    return index >= 0 ? index % columns : -1;
}

QAccessibleInterface *AccessibleCell::table() const
{
    QAccessibleInterface *const around = parent();
    return around != nullptr && around->tableInterface() != nullptr ? around : nullptr;
}

void *AccessibleCell::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableCellInterface
               ? static_cast<QAccessibleTableCellInterface *>(this)
               : AccessibleItem::interface_cast(type);
}

} // namespace norvane
