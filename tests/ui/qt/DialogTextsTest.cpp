// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/DialogTexts.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace tovik::ui {
namespace {

using config::TextKind;

class DialogTextsTest : public testing::Test {
protected:
    template <typename Widget>
    Widget* add(const char* name) {
        auto* const widget = new Widget(&dialog_);
        widget->setObjectName(name);
        return widget;
    }

    QDialog dialog_;
    DialogTexts texts_{dialog_};
};

TEST_F(DialogTextsTest, theDialogItself) {
    texts_.setText("", 0, TextKind::Caption, "Mo\u017Enosti");
    EXPECT_EQ(dialog_.windowTitle(), QStringLiteral("Mo\u017Enosti"));
}

TEST_F(DialogTextsTest, controlsByNameAndIndex) {
    auto* const first = add<QPushButton>("Command1_0");
    auto* const second = add<QPushButton>("Command1_1");
    auto* const label = add<QLabel>("Label1");
    auto* const frame = add<QGroupBox>("Frame1");
    auto* const box = add<QLineEdit>("Text1");
    texts_.setText("Command1", 0, TextKind::Caption, "&Load");
    texts_.setText("Command1", 1, TextKind::Caption, "&Cancel");
    texts_.setText("Label1", 0, TextKind::Caption, "Name");
    texts_.setText("Frame1", 0, TextKind::Caption, "Frame");
    texts_.setText("Text1", 0, TextKind::Text, "typed");
    texts_.setText("Label1", 0, TextKind::Tooltip, "tip");
    EXPECT_EQ(first->text(), QStringLiteral("&Load"));
    EXPECT_EQ(second->text(), QStringLiteral("&Cancel"));
    EXPECT_EQ(label->text(), QStringLiteral("Name"));
    EXPECT_EQ(label->toolTip(), QStringLiteral("tip"));
    EXPECT_EQ(frame->title(), QStringLiteral("Frame"));
    EXPECT_EQ(box->text(), QStringLiteral("typed"));
    texts_.setText("Label1", 0, TextKind::Caption, "");
    EXPECT_EQ(label->text(), QString());
}

TEST_F(DialogTextsTest, tabsAndEntries) {
    auto* const bar = add<QTabBar>("TabStrip1");
    bar->addTab("a");
    bar->addTab("b");
    auto* const pages = add<QTabWidget>("TabStrip2");
    pages->addTab(new QWidget, "a");
    auto* const combo = add<QComboBox>("Combo2");
    combo->addItem("a");
    combo->addItem("b");
    combo->setCurrentIndex(1);
    auto* const list = add<QListWidget>("List4");
    texts_.setText("TabStrip1", 1, TextKind::Tab, "General");
    texts_.setText("TabStrip2", 0, TextKind::Tab, "Page");
    texts_.setText("Combo2", 1, TextKind::ListEntry, "High");
    texts_.setText("List4", 0, TextKind::ListEntry, "One");
    texts_.setText("List4", 1, TextKind::ListEntry, "Two");
    texts_.setText("List4", 0, TextKind::ListEntry, "Other");
    EXPECT_EQ(bar->tabText(1), QStringLiteral("General"));
    EXPECT_EQ(bar->tabText(0), QStringLiteral("a"));
    EXPECT_EQ(pages->tabText(0), QStringLiteral("Page"));
    EXPECT_EQ(combo->itemText(1), QStringLiteral("High"));
    EXPECT_EQ(combo->currentIndex(), 1);
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("Other"));
    EXPECT_EQ(list->item(1)->text(), QStringLiteral("Two"));
}

TEST_F(DialogTextsTest, textsThatCodeAsksFor) {
    EXPECT_EQ(texts_.keptText("PublicText"), "");
    texts_.setText("PublicText", 0, TextKind::Kept, "[x] found");
    EXPECT_EQ(texts_.keptText("PublicText"), "[x] found");
}

TEST_F(DialogTextsTest, whatIsNotThereIsPassedOver) {
    auto* const label = add<QLabel>("Label1");
    label->setText("mine");
    for (const TextKind kind : {TextKind::Caption, TextKind::Tooltip, TextKind::Text, TextKind::Tab,
                                TextKind::ListEntry, TextKind::Name}) {
        texts_.setText("None", 0, kind, "x");
        texts_.setText("Label1", 1, kind, "x");
    }
    texts_.setText("Label1", 0, TextKind::Tab, "x");
    texts_.setText("Label1", 0, TextKind::ListEntry, "x");
    EXPECT_EQ(label->text(), QStringLiteral("mine"));
    EXPECT_EQ(label->toolTip(), QString());
}

} // namespace
} // namespace tovik::ui
