// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences on the screen, and hands that change their controls.
#pragma once

#include "app/DialogRig.h"
#include "dialogs/PreferencesDialog.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

namespace tovik::test {

class PreferencesDialogRig : public DialogRig {
protected:
    PreferencesDialogRig() { begin(); }

    void open(const std::function<void(QDialog&)>& act) {
        with(window::WindowId::preferences, act);
    }

    [[nodiscard]] preferences::PreferenceValues& values() {
        return player().choices().preferences.values();
    }

    static void press(QDialog& dialog, const char* button) {
        QTest::mouseClick(&control<QPushButton>(dialog, button), Qt::LeftButton);
    }

    enum class By { keyboard, mouse };

    static QString nameOf(const preferences::ControlRow& row) {
        return QString::fromUtf8(row.name.data(), qsizetype(row.name.size()));
    }

    static void turnTo(QDialog& dialog, preferences::Page page, By by) {
        auto& tabs = control<QTabWidget>(dialog, "TabStrip1");
        if (by == By::mouse) {
            QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {},
                              tabs.tabBar()->tabRect(static_cast<int>(page)).center());
        } else {
            tabs.setCurrentIndex(static_cast<int>(page));
        }
        EXPECT_EQ(tabs.currentIndex(), static_cast<int>(page));
    }

    static void click(QWidget& widget, QPoint place) {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
    }

    /// Changes a control as a user would; returns whether it is one that can be changed.
    bool change(QDialog& dialog, const preferences::ControlRow& row, By by = By::keyboard) {
        turnTo(dialog, row.page, by);
        auto& widget = control<QWidget>(dialog, nameOf(row));
        EXPECT_TRUE(widget.isVisible()) << row.name;
        if (!widget.isEnabled()) {
            return false;
        }
        if (row.kind == preferences::ControlKind::folder) {
            next([&](QDialog& folder) {
                control<QLineEdit>(folder, "Text1").setText("/music/" + nameOf(row));
                press(folder, "Command1_0");
            });
        }
        if (by == By::mouse) {
            changeByMouse(widget, row.kind);
        } else {
            widget.setFocus();
            changeByKey(widget, row.kind);
        }
        return true;
    }

    static void changeByKey(QWidget& widget, preferences::ControlKind kind) {
        using preferences::ControlKind;
        if (kind == ControlKind::ticks) {
            QTest::keyClick(&widget, Qt::Key_Home);
        }
        QTest::keyClick(&widget, kind == ControlKind::slider   ? Qt::Key_Right
                                 : kind == ControlKind::choice ? Qt::Key_Down
                                                               : Qt::Key_Space);
    }

    static void changeByMouse(QWidget& widget, preferences::ControlKind kind) {
        using preferences::ControlKind;
        switch (kind) {
        case ControlKind::check:
            click(widget, QPoint(8, widget.height() / 2));
            break;
        case ControlKind::slider:
            click(widget, QPoint(widget.width() - 3, widget.height() / 2)); // a page on
            break;
        case ControlKind::choice: {
            auto& box = static_cast<QComboBox&>(widget);
            box.showPopup();
            QAbstractItemView& list = *box.view();
            const QModelIndex other =
                list.model()->index((box.currentIndex() + 1) % box.count(), 0);
            QTest::mouseMove(list.viewport(), list.visualRect(other).center());
            QTest::qWait(QApplication::doubleClickInterval() / 2); // an earlier press opened it
            click(*list.viewport(), list.visualRect(other).center());
            break;
        }
        case ControlKind::ticks: {
            auto& list = static_cast<QListWidget&>(widget);
            const QRect row = list.visualItemRect(list.item(0));
            click(*list.viewport(), QPoint(row.left() + 8, row.center().y()));
            break;
        }
        case ControlKind::folder:
            click(widget, widget.rect().center());
            break;
        }
    }

    /// What a control holds, as text.
    [[nodiscard]] std::string held(preferences::Control control) {
        return control == preferences::Control::List1
                   ? values().types().to_string()
                   : std::to_string(values().number(control)) + " " + values().text(control);
    }
};

} // namespace tovik::test
