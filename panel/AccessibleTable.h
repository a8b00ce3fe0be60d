// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "panel/AccessibleItem.h"

#include <QAccessibleTableCellInterface>
#include <QAccessibleTableInterface>

#include <utility>

namespace norvane {

/// What a screen reader is told of items in rows and columns: how many of each there are, and which
/// item is where.
///
/// The cells are the items in the grid with `Accessible` properties, row by row. Cells are selected
/// one by one, never whole rows or columns, and not from here.
class AccessibleTable final : public AccessibleItem, public QAccessibleTableInterface {
public:
    /// For a QML Grid, whose property `columns` says how many there are.
    using AccessibleItem::AccessibleItem;

    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;

    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] int columnCount() const override;
    /// Nothing outside of the table.
    [[nodiscard]] QAccessibleInterface *cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface *> selectedCells() const override;

    [[nodiscard]] QAccessibleInterface *caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *summary() const override { return nullptr; }
    [[nodiscard]] QString columnDescription(int /*column*/) const override { return {}; }
    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override { return 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int /*row*/) const override { return false; }
    [[nodiscard]] bool selectRow(int /*row*/) override { return false; }
    [[nodiscard]] bool selectColumn(int /*column*/) override { return false; }
    [[nodiscard]] bool unselectRow(int /*row*/) override { return false; }
    [[nodiscard]] bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent * /*event*/) override {}

protected:
    void *interface_cast(QAccessible::InterfaceType type) override;

private:
    [[nodiscard]] QList<QAccessibleInterface *> cells() const;
};

/// One of the items of an AccessibleTable.
class AccessibleCell final : public AccessibleItem, public QAccessibleTableCellInterface {
public:
    /// For an item directly in a Grid, of the role Cell; its property `selected` says whether it
    /// is.
    using AccessibleItem::AccessibleItem;

    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] bool isSelected() const override;
    /// Both -1 outside of a table.
    [[nodiscard]] int rowIndex() const override;
    [[nodiscard]] int columnIndex() const override;
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    [[nodiscard]] QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    [[nodiscard]] QAccessibleInterface *table() const override;

protected:
    void *interface_cast(QAccessible::InterfaceType type) override;

private:
    /// The place among the cells of the table, and how many of them a row has; -1 and 1 outside.
    [[nodiscard]] std::pair<int, int> place() const;
};

} // namespace norvane
