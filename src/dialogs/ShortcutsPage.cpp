// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ShortcutsPage.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

enum Column { kCommand, kKeys, kFixedKey, kColumns };

/// What is said about a row and its keys, by the index of "ShortcutText".
enum Text { kPressKeys, kIsFixed, kHasOwner, kHides, kNoKeys, kNotKept, kIsTaken };

} // namespace

ShortcutsPage::ShortcutsPage(preferences::ShortcutList& list, const ui::DialogTexts& texts,
                             QWidget* parent)
    : QWidget(parent), list_(list), texts_(texts), rows_(new QTreeWidget(this)),
      edit_(new ShortcutEdit(this)), clear_(new QPushButton(this)), said_(new QLabel(this)) {
    rows_->setObjectName(QStringLiteral("Shortcuts"));
    rows_->setColumnCount(kColumns);
    rows_->setRootIsDecorated(false);
    rows_->setUniformRowHeights(true);
    rows_->setAllColumnsShowFocus(true);
    rows_->header()->setSectionsMovable(false);
    for (std::size_t row = 0; row < preferences::kShortcuts; ++row) {
        new QTreeWidgetItem(rows_);
    }
    edit_->setObjectName(QStringLiteral("ShortcutEdit"));
    clear_->setObjectName(QStringLiteral("ShortcutClear"));
    clear_->setAutoDefault(false);
    said_->setObjectName(QStringLiteral("ShortcutSaid"));
    said_->setWordWrap(true);
    said_->setMinimumHeight(2 * said_->fontMetrics().lineSpacing());
    said_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* const caption = new QLabel(this);
    caption->setObjectName(QStringLiteral("ShortcutLabel"));
    caption->setBuddy(edit_);

    auto* const line = new QHBoxLayout;
    line->addWidget(caption);
    line->addWidget(edit_, 1);
    line->addWidget(clear_);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(rows_, 1);
    layout->addLayout(line);
    layout->addWidget(said_);

    connect(rows_, &QTreeWidget::currentItemChanged, this, [this] { showRow(); });
    connect(clear_, &QPushButton::clicked, this, [this] {
        list_.clear(row());
        showKeys();
        say(kPressKeys);
    });
    edit_->onKeys([this](const menus::AcceleratorKey& key) { take(key); });
}

std::size_t ShortcutsPage::row() const {
    return static_cast<std::size_t>(std::max(0, rows_->indexOfTopLevelItem(rows_->currentItem())));
}

void ShortcutsPage::showRows() {
    QStringList headings;
    for (int column = 0; column < kColumns; ++column) {
        headings += ui::displayString(texts_.keptText("ShortcutHeading", column));
    }
    rows_->setHeaderLabels(headings);
    showKeys();
    for (int column = 0; column < kColumns; ++column) {
        rows_->resizeColumnToContents(column);
    }
    const int room = fontMetrics().horizontalAdvance(QStringLiteral("  Ctrl+Alt+Shift+W  "));
    rows_->setColumnWidth(kKeys, std::max(room, rows_->columnWidth(kKeys)));
    if (rows_->currentItem() == nullptr) {
        rows_->setCurrentItem(rows_->topLevelItem(0));
    }
    showRow();
}

void ShortcutsPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        showKeys();
    }
}

void ShortcutsPage::showKeys() {
    const std::vector<preferences::ShortcutRow>& rows = list_.rows();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        QTreeWidgetItem& item = *rows_->topLevelItem(static_cast<int>(row));
        item.setText(kKeys, ui::displayString(rows[row].accelerator));
        item.setText(kFixedKey, ui::displayString(rows[row].fixedKey));
        QFont font = item.font(kFixedKey);
        font.setStrikeOut(!list_.takerOf(row).empty());
        item.setFont(kFixedKey, font);
        // Without a brush of its own a row keeps its words readable when it is selected.
        const QBrush brush =
            list_.changeable(row) ? QBrush() : palette().brush(QPalette::Disabled, QPalette::Text);
        for (int column = 0; column < kColumns; ++column) {
            item.setForeground(column, brush);
        }
    }
    if (row() < rows.size()) {
        edit_->setText(ui::displayString(rows[row()].accelerator));
        clear_->setEnabled(list_.changeable(row()) && !rows[row()].accelerator.empty());
    }
}

void ShortcutsPage::showRow() {
    if (row() >= list_.rows().size()) {
        return;
    }
    const bool changeable = list_.changeable(row());
    edit_->setEnabled(changeable);
    showKeys();
    const std::string taker = list_.takerOf(row());
    if (!list_.kept()) {
        say(kNotKept);
    } else if (!taker.empty()) {
        say(kIsTaken, ui::displayString(taker));
    } else {
        say(changeable ? kPressKeys : kIsFixed);
    }
}

void ShortcutsPage::take(const menus::AcceleratorKey& key) {
    const preferences::ShortcutList::Answer answer = list_.set(row(), key);
    showKeys();
    if (!answer.taken) {
        say(answer.owner.empty() ? kNoKeys : kHasOwner, ui::displayString(answer.owner));
    } else if (answer.hidden) {
        say(kHides, rows_->topLevelItem(static_cast<int>(*answer.hidden))->text(kCommand));
    } else {
        say(kPressKeys);
    }
}

void ShortcutsPage::say(int text, const QString& name) {
    said_->setText(ui::displayString(texts_.keptText("ShortcutText", text))
                       .replace(QStringLiteral("[x]"), name));
}

} // namespace tovik::dialogs
