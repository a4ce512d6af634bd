// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader meets in a window: roles, names, states, values, tables.
#include "ui/qt/WindowAccess.h"
#include "ui/qt/ListWidget.h"

#include "WindowRig.h"

#include <gmock/gmock.h>

#include <QApplication>

#include <set>

namespace tovik::ui {
namespace {

using test::Small;

class ReadableLogic final : public AccessInput {
public:
    std::vector<std::size_t> activated;
    ElementFacts up;
    ElementFacts lamp{.text = "Volume 30%", .range = ElementRange{.value = 30, .most = 100}};
    ElementFacts title{.text = " What plays "}; // as the caption goes round

    [[nodiscard]] ElementFacts factsOf(ElementAddress element) const override {
        const auto name = element.as<Small>();
        return name == Small::up ? up : name == Small::lamp ? lamp : title;
    }

    void activate(ElementAddress element) override { activated.push_back(element.name); }

    void adjust(ElementAddress /*element*/, Adjustment adjustment) override {
        lamp.range->value += adjustment == Adjustment::Up ? 1 : -1;
    }

    void setValue(ElementAddress /*element*/, double value) override { lamp.range->value = value; }
};

class Rows final : public ListModel, public ListInput {
public:
    std::size_t count = 3;
    std::size_t chosen = 1;
    bool allSelected = false;
    std::optional<std::size_t> started;

    [[nodiscard]] std::size_t rows() const override { return count; }

    [[nodiscard]] std::string text(std::size_t row) const override {
        return std::string(1, static_cast<char>('a' + row)) + "\xE8"; // Windows-1252
    }

    [[nodiscard]] std::string numberText(std::size_t row) const override {
        return std::to_string(row + 1) + ". ";
    }

    [[nodiscard]] std::string timeText(std::size_t /*row*/) const override { return "01:05"; }

    [[nodiscard]] std::optional<std::size_t> current() const override { return chosen; }

    [[nodiscard]] bool selected(std::size_t row) const override {
        return allSelected || row == chosen;
    }

    [[nodiscard]] bool marked(std::size_t /*row*/) const override { return false; }

    void selectRow(std::size_t row, Modifiers /*modifiers*/) override { chosen = row; }

    void activateRow(std::size_t row) override { started = row; }
};

class WindowAccessTest : public testing::Test, protected test::WindowRig {
protected:
    enum Child { kTitle, kUp, kLamp, kList };

    ReadableLogic logic;
    Rows rows;
    ListWidget* list = new ListWidget(rows, rows, dispatcher);

    void SetUp() override {
        list->showTimes();
        window.setAccessibleName(QStringLiteral("Tovik"));
        window.hostControl(Small::list, 0, list);
        table.touch(Small::up).name = "Play";
        table.touch(Small::up).tooltip = "Plays";
        table.touch(Small::lamp).name = "Volume";
        table.touch(Small::title).name = "Title";
        table.touch(Small::list).name = "Playlist";
        window.setAccess(
            {{.element = addressOf(Small::title), .role = ElementRole::Field},
             {.element = addressOf(Small::up), .role = ElementRole::Toggle},
             {.element = addressOf(Small::lamp), .parts = 3, .role = ElementRole::Slider},
             {.element = addressOf(Small::list), .role = ElementRole::Control}},
            logic, {});
        ASSERT_TRUE(show());
        QApplication::setActiveWindow(&window);
        settle();
    }

    QAccessibleInterface& tree() { return *QAccessible::queryAccessibleInterface(&window); }

    QAccessibleInterface& child(int index) { return *tree().child(index); }

    static std::string name(QAccessibleInterface& one) {
        return one.text(QAccessible::Name).toStdString();
    }
};

TEST_F(WindowAccessTest, theWindowHasANameThatItsCaptionDoesNotChange) {
    EXPECT_EQ(tree().role(), QAccessible::Window);
    for (const char* caption : {"one two", "ne two o", "e two on"}) {
        window.setCaption(caption);
        EXPECT_EQ(name(tree()), "Tovik");
        EXPECT_EQ(window.windowHandle()->title().toStdString(), caption);
    }
}

TEST_F(WindowAccessTest, everyPlaceIsAChildWithARoleAndAName) {
    ASSERT_EQ(tree().childCount(), 4);
    const std::vector<std::pair<QAccessible::Role, std::string>> expected = {
        {QAccessible::StaticText, "Title"},
        {QAccessible::CheckBox, "Play"},
        {QAccessible::Slider, "Volume"},
        {QAccessible::Table, "Playlist"}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(child(i).role(), expected[static_cast<std::size_t>(i)].first) << i;
        EXPECT_EQ(name(child(i)), expected[static_cast<std::size_t>(i)].second) << i;
        EXPECT_EQ(child(i).parent(), &tree());
        EXPECT_EQ(tree().indexOfChild(&child(i)), i);
    }
    EXPECT_EQ(tree().child(4), nullptr);
    EXPECT_EQ(child(kUp).text(QAccessible::Description), QStringLiteral("Plays"));
}

TEST_F(WindowAccessTest, placesAreWhereTheyAreOnTheScreen) {
    window.setScale(2);
    settle();
    const QPoint corner = window.mapToGlobal(QPoint(80, 80));
    EXPECT_EQ(child(kUp).rect(), QRect(corner, QSize(60, 40)));
    EXPECT_EQ(tree().childAt(corner.x() + 5, corner.y() + 5), &child(kUp));
    EXPECT_EQ(tree().childAt(corner.x() - 20, corner.y() + 5), nullptr);
}

TEST_F(WindowAccessTest, aToggleTellsItsStateAndIsToggled) {
    EXPECT_TRUE(child(kUp).state().checkable);
    EXPECT_FALSE(child(kUp).state().checked);
    logic.up.checked = true;
    EXPECT_TRUE(child(kUp).state().checked);
    QAccessibleActionInterface* const actions = child(kUp).actionInterface();
    ASSERT_NE(actions, nullptr);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(logic.activated, testing::ElementsAre(1U));
    logic.up.enabled = false;
    EXPECT_TRUE(child(kUp).state().disabled);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(logic.activated.size(), 1U);
    table.touch(Small::up).visible = false;
    EXPECT_TRUE(child(kUp).state().invisible);
}

TEST_F(WindowAccessTest, aSliderHasAValueThatCanBeSet) {
    QAccessibleValueInterface* const value = child(kLamp).valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 30);
    EXPECT_EQ(value->maximumValue().toDouble(), 100);
    EXPECT_EQ(child(kLamp).text(QAccessible::Value), QStringLiteral("Volume 30%"));
    value->setCurrentValue(55);
    EXPECT_EQ(logic.lamp.range->value, 55);
    child(kLamp).actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(logic.lamp.range->value, 56);
    EXPECT_EQ(child(kUp).valueInterface(), nullptr);
}

TEST_F(WindowAccessTest, aFieldCanBeRead) {
    QAccessibleTextInterface* const text = child(kTitle).textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, text->characterCount()), QStringLiteral("What plays"));
    EXPECT_EQ(text->text(5, 10), QStringLiteral("plays"));
    EXPECT_EQ(child(kTitle).text(QAccessible::Value), QStringLiteral("What plays"));
    EXPECT_FALSE(child(kTitle).state().focusable);
}

TEST_F(WindowAccessTest, aLabelThatSaysNothingIsNotThere) {
    window.setAccess({{.element = addressOf(Small::title), .role = ElementRole::Label}}, logic, {});
    table.touch(Small::title).name = "Stops after this track";
    EXPECT_FALSE(child(0).state().invisible);
    table.touch(Small::title).name = "";
    table.touch(Small::title).caption = "";
    EXPECT_TRUE(child(0).state().invisible);
}

TEST_F(WindowAccessTest, theFocusIsToldAndCanBeGiven) {
    EXPECT_TRUE(child(kUp).state().focusable);
    EXPECT_FALSE(child(kUp).state().focused);
    child(kUp).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(child(kUp).state().focused);
    EXPECT_EQ(tree().focusChild(), &child(kUp));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_FALSE(child(kUp).state().focused);
    EXPECT_EQ(tree().focusChild(), &child(kLamp));
}

TEST_F(WindowAccessTest, aListIsATableOfRowsAndColumns) {
    QAccessibleTableInterface* const cells = child(kList).tableInterface();
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(cells->rowCount(), 3);
    EXPECT_EQ(cells->columnCount(), 2);
    EXPECT_EQ(child(kList).childCount(), 6);
    QAccessibleInterface* const third = cells->cellAt(2, 0);
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(name(*third), "3. c\u00E8");
    EXPECT_EQ(name(*cells->cellAt(2, 1)), "01:05");
    EXPECT_EQ(third->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(child(kList).indexOfChild(third), 4);
    EXPECT_EQ(child(kList).child(4), third);
    EXPECT_EQ(cells->cellAt(3, 0), nullptr);
    EXPECT_EQ(third->rect().left(), child(kList).rect().left());
    EXPECT_EQ(cells->cellAt(0, 1)->rect().top(), child(kList).rect().top());
    EXPECT_TRUE(cells->isRowSelected(1));
    EXPECT_THAT(cells->selectedRows(), testing::ElementsAre(1));
    EXPECT_TRUE(cells->selectRow(2));
    EXPECT_TRUE(third->state().selected);
    third->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(rows.started, 2U);
}

TEST_F(WindowAccessTest, theRowUnderTheKeyboardHasTheFocus) {
    list->setFocus();
    QAccessibleInterface* const cell = child(kList).focusChild();
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(name(*cell), "2. b\u00E8");
    EXPECT_TRUE(cell->state().focused);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(name(*child(kList).focusChild()), "3. c\u00E8");
    EXPECT_EQ(QApplication::focusWidget(), list);
}

TEST_F(WindowAccessTest, allSelectedCellsOfALongListLiveTogether) {
    rows.count = 1500;
    rows.allSelected = true;
    const QList<QAccessibleInterface*> cells = child(kList).tableInterface()->selectedCells();
    EXPECT_EQ(cells.size(), 3000);
    EXPECT_EQ(std::set(cells.begin(), cells.end()).size(), 3000U);
}

TEST_F(WindowAccessTest, whatAReaderHoldsOutlivesTheWindow) {
    auto other = std::make_unique<SkinWindow>(table, pictures, notes, dispatcher);
    other->setAccess({{.element = addressOf(Small::up), .role = ElementRole::Button}}, logic, {});
    QAccessibleInterface* const held = QAccessible::queryAccessibleInterface(other.get())->child(0);
    const QAccessible::Id id = QAccessible::uniqueId(held);
    EXPECT_TRUE(held->isValid());
    other.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

} // namespace
} // namespace tovik::ui
