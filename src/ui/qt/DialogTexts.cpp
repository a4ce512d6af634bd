// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/DialogTexts.h"

#include "ui/Mnemonic.h"
#include "ui/qt/DisplayText.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

namespace tovik::ui {

namespace {

using config::TextKind;

template <typename Widget, typename Operation>
bool as(QWidget* widget, const Operation& operation) {
    auto* const known = qobject_cast<Widget*>(widget);
    if (known != nullptr) {
        operation(*known);
    }
    return known != nullptr;
}

void setOwnText(QWidget* widget, const QString& text) {
    as<QAbstractButton>(widget, [&](auto& button) { button.setText(text); }) ||
        as<QLabel>(widget, [&](auto& label) { label.setText(text); }) ||
        as<QLineEdit>(widget, [&](auto& edit) { edit.setText(text); }) ||
        as<QGroupBox>(widget, [&](auto& box) { box.setTitle(text); });
}

void setTab(QWidget* widget, int index, const QString& text) {
    as<QTabWidget>(widget, [&](auto& tabs) { tabs.setTabText(index, text); }) ||
        as<QTabBar>(widget, [&](auto& tabs) { tabs.setTabText(index, text); });
}

/// An entry behind the last one is added.
void setEntry(QWidget* widget, int index, const QString& text) {
    const auto into = [&](auto& list, const auto& change) {
        if (index < list.count()) {
            change(list);
        } else {
            list.addItem(text);
        }
    };
    as<QComboBox>(
        widget,
        [&](auto& box) { into(box, [&](auto& combo) { combo.setItemText(index, text); }); }) ||
        as<QListWidget>(
            widget,
            [&](auto& box) { into(box, [&](auto& list) { list.item(index)->setText(text); }); }) ||
        as<QTreeWidget>(widget, [&](auto& tree) {
            if (QTreeWidgetItem* const item = tree.topLevelItem(index); item != nullptr) {
                item->setText(0, text);
            }
        });
}

} // namespace

QWidget* DialogTexts::find(std::string_view element, int index) const {
    const QString name = displayString(element);
    auto* const indexed = dialog_.findChild<QWidget*>(name + '_' + QString::number(index));
    return indexed == nullptr && index == 0 ? dialog_.findChild<QWidget*>(name) : indexed;
}

void DialogTexts::setText(std::string_view element, int index, TextKind kind,
                          std::string_view text) {
    const QString shown = displayString(text);
    switch (kind) {
    case TextKind::Kept:
        kept_.insert_or_assign({std::string(element), index}, std::string(text));
        return;
    case TextKind::Tab:
        setTab(find(element, 0), index, shown);
        return;
    case TextKind::ListEntry:
        setEntry(find(element, 0), index, shown);
        return;
    case TextKind::Tooltip:
        as<QWidget>(find(element, index), [&](auto& widget) { widget.setToolTip(shown); });
        return;
    case TextKind::Name:
        if (QWidget* const widget = find(element, index); widget != nullptr) {
            // The word may serve as a caption, too.
            widget->setAccessibleName(displayString(mnemonicOf(text).text));
        }
        return;
    case TextKind::Caption:
    case TextKind::Text:
        break;
    }
    if (element.empty()) {
        dialog_.setWindowTitle(shown);
    } else {
        setOwnText(find(element, index), shown);
    }
}

std::string DialogTexts::keptText(std::string_view element, int index) const {
    const auto found = kept_.find({std::string(element), index});
    return found == kept_.end() ? "" : found->second;
}

} // namespace tovik::ui
