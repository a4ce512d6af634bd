// SPDX-License-Identifier: GPL-3.0-or-later
// A list as a screen reader meets it: a table with a row for each of its rows, whose cells come
// into being when they are asked for. Interface thread.
#pragma once

#include "ui/qt/ListWidget.h"

#include <map>
#include <QAccessible>
#include <QAccessibleWidget>

namespace tovik::ui {

class ListAccess final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit ListAccess(ListWidget& list);
    ~ListAccess() override;
    ListAccess(const ListAccess&) = delete;
    ListAccess& operator=(const ListAccess&) = delete;

    [[nodiscard]] ListWidget& list() const noexcept { return list_; }

    /// The description of an empty list is what it says.
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    /// Cells count along the rows.
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // The table
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }

    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }

    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;

    [[nodiscard]] QString columnDescription(int /*column*/) const override { return {}; }

    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }

    [[nodiscard]] int selectedColumnCount() const override { return 0; }

    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;

    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }

    [[nodiscard]] QList<int> selectedRows() const override;

    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }

    [[nodiscard]] bool isRowSelected(int row) const override;

    /// Chooses that row alone.
    bool selectRow(int row) override;

    bool selectColumn(int /*column*/) override { return false; }

    bool unselectRow(int /*row*/) override { return false; }

    bool unselectColumn(int /*column*/) override { return false; }

    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

private:
    /// The cell of an index that there is, made if need be.
    [[nodiscard]] QAccessibleInterface* cell(int index) const;
    void forgetCells() const;

    ListWidget& list_;
    mutable std::map<int, QAccessible::Id> cells_; ///< by index
};

/// Tells screen readers, if there are any, the row that the keyboard is on, while the list has it.
void announceRow(ListWidget& list);

} // namespace tovik::ui
