// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard on a window: Tab, the ring, the keys of sliders and buttons.
#include "WindowRig.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

namespace tovik::ui {
namespace {

using test::Small;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Colour kRing{255, 156, 0};

class Actions final : public AccessInput {
public:
    std::vector<std::string> lines;
    bool buttonsAct = true;

    [[nodiscard]] ElementFacts factsOf(ElementAddress element) const override {
        ElementFacts facts;
        facts.enabled = buttonsAct || element.as<Small>() != Small::up;
        return facts;
    }

    void activate(ElementAddress element) override { note("act", element); }

    void adjust(ElementAddress element, Adjustment adjustment) override {
        note("move", element);
        lines.back() += " " + std::to_string(static_cast<int>(adjustment));
    }

    void setValue(ElementAddress element, double /*value*/) override { note("set", element); }

private:
    void note(const char* what, ElementAddress element) {
        lines.push_back(what + (" " + std::to_string(element.name)));
    }
};

class ElementFocusTest : public testing::Test, protected test::WindowRig {
protected:
    Actions actions;
    QLineEdit* field = new QLineEdit;

    void SetUp() override {
        window.hostControl(Small::list, 0, field);
        window.setAccess(
            {{.element = addressOf(Small::title), .role = ElementRole::Label},
             {.element = addressOf(Small::up), .role = ElementRole::Button},
             {.element = addressOf(Small::lamp), .parts = 3, .role = ElementRole::Slider},
             {.element = addressOf(Small::list), .role = ElementRole::Control}},
            actions, kRing);
        ASSERT_TRUE(show());
        QApplication::setActiveWindow(&window);
        settle();
        static_cast<void>(painted.take());
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }

    /// Whether the ring is drawn round that box.
    [[nodiscard]] bool ringed(const QRect& box) {
        const QImage picture = window.grab().toImage();
        const QRect ring = box.adjusted(-1, -1, 1, 1);
        return picture.pixelColor(ring.topLeft()) == QColor(255, 156, 0) &&
               picture.pixelColor(ring.bottomRight()) == QColor(255, 156, 0);
    }

    static constexpr QRect kUp{40, 40, 30, 20};
    static constexpr QRect kList{120, 10, 60, 40};
};

TEST_F(ElementFocusTest, tabGoesRoundAndTheRingGoesWithIt) {
    EXPECT_FALSE(ringed(kUp));
    press(Qt::Key_Tab);
    EXPECT_TRUE(ringed(kUp));
    press(Qt::Key_Tab);
    EXPECT_FALSE(ringed(kUp));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), field);
    EXPECT_TRUE(ringed(kList));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &window);
    EXPECT_TRUE(ringed(kUp));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), field);
}

TEST_F(ElementFocusTest, theRingIsPaintedOnceAChange) {
    press(Qt::Key_Tab);
    EXPECT_FALSE(painted.take().isEmpty());
    table.touch(Small::title).caption = "other";
    settle();
    EXPECT_FALSE(painted.take().intersects(kUp.adjusted(0, -1, 0, 2)));
    settle();
    EXPECT_TRUE(painted.take().isEmpty());
}

TEST_F(ElementFocusTest, enterAndSpaceActAndOtherKeysGoOn) {
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_THAT(actions.lines, ElementsAre("act 1", "act 1"));
    EXPECT_THAT(notes.keys, IsEmpty());
    press(Qt::Key_X);
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    EXPECT_EQ(notes.keys.size(), 3U);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(actions.lines.size(), 2U);
}

TEST_F(ElementFocusTest, aSliderTakesSixKeys) {
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
        press(key);
    }
    EXPECT_THAT(actions.lines, ElementsAre("move 3 0", "move 3 1", "move 3 2", "move 3 3",
                                           "move 3 4", "move 3 5"));
    EXPECT_THAT(notes.keys, IsEmpty());
    press(Qt::Key_Left);
    press(Qt::Key_Return);
    EXPECT_EQ(notes.keys.size(), 2U);
}

TEST_F(ElementFocusTest, whatIsTypedInAFieldIsNoShortcut) {
    field->setFocus();
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_2, Qt::Key_F1, Qt::Key_Left}) {
        press(key);
    }
    EXPECT_EQ(field->text(), QStringLiteral("x2"));
    press(Qt::Key_X, Qt::AltModifier);
    EXPECT_THAT(notes.keys, IsEmpty());
    press(Qt::Key_Escape);
    ASSERT_EQ(notes.keys.size(), 1U);
    EXPECT_EQ(notes.keys[0].code, 27);
}

TEST_F(ElementFocusTest, keysThatAComboBoxHasNoUseForAreNoShortcutsEither) {
    QComboBox box;
    window.hostControl(Small::down, 0, &box);
    table.touch(Small::down).visible = true;
    settle();
    box.setFocus();
    press(Qt::Key_Right);
    press(Qt::Key_F1);
    EXPECT_THAT(notes.keys, IsEmpty());
    box.setParent(nullptr);
}

TEST_F(ElementFocusTest, aPressOfTheMouseEndsTheRingAndTabGoesOnFromThere) {
    press(Qt::Key_Tab);
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(15, 75));
    settle();
    EXPECT_FALSE(ringed(kUp));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), field) << "the lamp was pressed, the list is next";
}

TEST_F(ElementFocusTest, whatIsHiddenOrDoesNothingIsPassedOver) {
    press(Qt::Key_Tab);
    table.touch(Small::up).visible = false;
    settle();
    EXPECT_FALSE(ringed(kUp));
    press(Qt::Key_Return);
    EXPECT_THAT(actions.lines, IsEmpty());
    table.touch(Small::up).visible = true;
    actions.buttonsAct = false;
    settle();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Home);
    EXPECT_THAT(actions.lines, ElementsAre("move 3 4"));
}

} // namespace
} // namespace tovik::ui
