// SPDX-License-Identifier: GPL-3.0-or-later
// The page of shortcuts of the preferences: a list of the commands with their keys, and a field
// that takes new ones. Interface thread.
#pragma once

#include "dialogs/ShortcutEdit.h"
#include "preferences/ShortcutList.h"
#include "ui/qt/DialogTexts.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QWidget>

namespace tovik::dialogs {

class ShortcutsPage final : public QWidget {
public:
    /// Both outlive the page.
    ShortcutsPage(preferences::ShortcutList& list, const ui::DialogTexts& texts, QWidget* parent);

    /// Shows the rows anew, with the words of the language; nothing was said yet.
    void showRows();

protected:
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] std::size_t row() const;
    void showRow();
    void take(const menus::AcceleratorKey& key);
    void showKeys();
    void say(int text, const QString& name = {});

    preferences::ShortcutList& list_;
    const ui::DialogTexts& texts_;
    QTreeWidget* rows_; ///< the page's object tree owns all of them
    ShortcutEdit* edit_;
    QPushButton* clear_;
    QLabel* said_;
};

} // namespace tovik::dialogs
