// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListAccess.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <QPointer>

namespace tovik::ui {

namespace {

/// A reader that walks through a long list leaves that many cells behind before they are dropped.
constexpr std::size_t kCellsKept = 2000;

class CellAccess final : public QAccessibleInterface,
                         public QAccessibleTableCellInterface,
                         public QAccessibleActionInterface {
public:
    CellAccess(ListWidget& list, int row, int column)
        : list_(list), alive_(&list), row_(row), column_(column) {}

    [[nodiscard]] bool isValid() const override {
        return !alive_.isNull() && static_cast<std::size_t>(row_) < list_.model().rows() &&
               column_ < list_.columns();
    }

    [[nodiscard]] QObject* object() const override { return nullptr; }

    [[nodiscard]] QWindow* window() const override {
        return alive_.isNull() ? nullptr : list_.window()->windowHandle();
    }

    [[nodiscard]] QAccessibleInterface* parent() const override { return table(); }

    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }

    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Value)) {
            return {};
        }
        const ListModel& model = list_.model();
        return displayString(column_ == 0 ? model.numberText(row()) + model.text(row())
                                          : model.timeText(row()));
    }

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect place = list_.cellPlace(row(), column_);
        return {list_.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.selected = isSelected();
        state.focusable = true;
        state.focused = list_.hasFocus() && column_ == 0 && list_.model().current() == row();
        const bool inSight = list_.viewport()->rect().intersects(list_.cellPlace(row(), column_));
        state.invisible = !list_.isVisible();
        state.offscreen = !inSight;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface) {
            return static_cast<QAccessibleTableCellInterface*>(this);
        }
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    [[nodiscard]] bool isSelected() const override {
        return isValid() && list_.model().selected(row());
    }

    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }

    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }

    [[nodiscard]] int columnIndex() const override { return column_; }

    [[nodiscard]] int rowIndex() const override { return row_; }

    [[nodiscard]] int columnExtent() const override { return 1; }

    [[nodiscard]] int rowExtent() const override { return 1; }

    [[nodiscard]] QAccessibleInterface* table() const override {
        return alive_.isNull() ? nullptr : QAccessible::queryAccessibleInterface(&list_);
    }

    [[nodiscard]] QStringList actionNames() const override {
        return {pressAction(), setFocusAction()};
    }

    void doAction(const QString& action) override {
        if (!isValid()) {
            return;
        }
        if (action == setFocusAction()) {
            list_.setFocus(Qt::OtherFocusReason);
            list_.chooseRow(row());
        } else if (action == pressAction()) {
            list_.startRow(row());
        }
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override {
        return {};
    }

private:
    [[nodiscard]] std::size_t row() const noexcept { return static_cast<std::size_t>(row_); }

    ListWidget& list_;
    QPointer<ListWidget> alive_; ///< null once the list is gone
    int row_;
    int column_;
};

} // namespace

ListAccess::ListAccess(ListWidget& list)
    : QAccessibleWidget(&list, QAccessible::Table), list_(list) {}

ListAccess::~ListAccess() {
    forgetCells();
}

QString ListAccess::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Description && rowCount() == 0 && isValid()) {
        return list_.hint();
    }
    return QAccessibleWidget::text(kind);
}

void ListAccess::forgetCells() const {
    for (const auto& [index, id] : cells_) {
        QAccessible::deleteAccessibleInterface(id);
    }
    cells_.clear();
}

int ListAccess::rowCount() const {
    return isValid() ? static_cast<int>(list_.model().rows()) : 0;
}

int ListAccess::columnCount() const {
    return isValid() ? list_.columns() : 0;
}

int ListAccess::childCount() const {
    return rowCount() * columnCount();
}

QAccessibleInterface* ListAccess::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    if (!cells_.contains(index) && cells_.size() >= kCellsKept) {
        forgetCells();
    }
    return cell(index);
}

QAccessibleInterface* ListAccess::cell(int index) const {
    if (const auto found = cells_.find(index); found != cells_.end()) {
        return QAccessible::accessibleInterface(found->second);
    }
    const int columns = std::max(columnCount(), 1);
    auto* const made = new CellAccess(list_, index / columns, index % columns);
    cells_[index] = QAccessible::registerAccessibleInterface(made);
    return made;
}

int ListAccess::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const cell = dynamic_cast<const CellAccess*>(child);
    return cell == nullptr ? -1 : cell->rowIndex() * columnCount() + cell->columnIndex();
}

QAccessibleInterface* ListAccess::childAt(int x, int y) const {
    const QPoint inside = list_.viewport()->mapFromGlobal(QPoint(x, y));
    if (rowCount() == 0 || !list_.viewport()->rect().contains(inside)) {
        return nullptr;
    }
    const int row = (inside.y() - list_.cellPlace(0, 0).top()) / list_.rowHeight();
    const int column = list_.cellPlace(0, 0).right() < inside.x() ? columnCount() - 1 : 0;
    return cellAt(row, column);
}

QAccessibleInterface* ListAccess::focusChild() const {
    const auto row = isValid() && list_.hasFocus() ? list_.model().current() : std::nullopt;
    return row ? cellAt(static_cast<int>(*row), 0) : nullptr;
}

void* ListAccess::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* ListAccess::cellAt(int row, int column) const {
    const bool there = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return there ? child(row * columnCount() + column) : nullptr;
}

bool ListAccess::isRowSelected(int row) const {
    return row >= 0 && row < rowCount() && list_.model().selected(static_cast<std::size_t>(row));
}

QList<int> ListAccess::selectedRows() const {
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        if (isRowSelected(row)) {
            rows << row;
        }
    }
    return rows;
}

int ListAccess::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

int ListAccess::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> ListAccess::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            // None is dropped on the way: all of them are handed out together.
            cells << cell(row * columnCount() + column);
        }
    }
    return cells;
}

bool ListAccess::selectRow(int row) {
    if (row < 0 || row >= rowCount()) {
        return false;
    }
    list_.chooseRow(static_cast<std::size_t>(row));
    return true;
}

void announceRow(ListWidget& list) {
    if (!QAccessible::isActive() || !list.hasFocus()) {
        return;
    }
    const QAccessibleInterface* const table = QAccessible::queryAccessibleInterface(&list);
    QAccessibleInterface* const cell = table == nullptr ? nullptr : table->focusChild();
    if (cell != nullptr) {
        QAccessibleEvent event(cell, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace tovik::ui
