// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PointerRouter.h"
#include "SmallWindow.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using test::kSmallLayout;
using test::Small;
using testing::ElementsAre;

class PointerRouterTest : public testing::Test {
protected:
    ElementTable<Small> table_{kSmallLayout};
    test::Notes notes_;
    PointerRouter router_{table_, notes_};

    static PointerState at(double x, double y, bool held = false) {
        return {.x = x, .y = y, .leftHeld = held, .anyHeld = held};
    }
};

TEST_F(PointerRouterTest, movesEnterAndLeaveElements) {
    router_.moved(at(5, 5));
    router_.moved(at(42, 45));
    router_.moved(at(43, 45));
    router_.hover(std::nullopt);
    router_.hover(std::nullopt);
    EXPECT_THAT(notes_.lines,
                ElementsAre("enter ground(0)", "move ground(0) 5,5", "leave ground(0)",
                            "enter up(0)", "move up(0) 2,5", "move up(0) 3,5", "leave up(0)"));
    EXPECT_TRUE(notes_.events.back().over(Small::up));
    EXPECT_FALSE(notes_.events.back().over(Small::down));
    EXPECT_EQ(notes_.events.back().windowX, 43);
}

TEST_F(PointerRouterTest, whoWasPressedKeepsThePointerEvenWhenItHides) {
    router_.moved(at(50, 50));
    notes_.lines.clear();
    notes_.onMouseDown = [&] {
        table_.touch(Small::up).visible = false;
        table_.touch(Small::down).visible = true;
    };
    router_.pressed(at(50, 50, true), MouseButton::Left, false);
    router_.moved(at(-20, 50, true));
    EXPECT_TRUE(notes_.events.back().leftHeld);
    router_.released(at(15, 72), MouseButton::Left);
    EXPECT_EQ(notes_.events.back().button, MouseButton::Left);
    EXPECT_THAT(notes_.lines, ElementsAre("down up(0) 10,10", "move up(0) -60,10",
                                          "up up(0) -25,32", "leave up(0)", "enter lamp(0)"));
}

TEST_F(PointerRouterTest, placesFollowAnElementThatMovesUnderThePointer) {
    router_.pressed(at(12, 12, true), MouseButton::Left, false);
    table_.touch(Small::title).left = 30;
    router_.moved(at(12, 12, true));
    EXPECT_THAT(notes_.lines, ElementsAre("down title(0) 2,2", "move title(0) -18,2"));
}

TEST_F(PointerRouterTest, theLastReleaseFreesThePointer) {
    router_.pressed(at(12, 72, true), MouseButton::Left, false);
    router_.pressed(at(45, 45, true), MouseButton::Right, false);
    router_.released(at(45, 45, true), MouseButton::Left);
    router_.released(at(45, 45, false), MouseButton::Right);
    router_.moved(at(45, 45));
    EXPECT_THAT(notes_.lines,
                ElementsAre("down lamp(0) 2,2", "down lamp(0) 35,-25", "up lamp(0) 35,-25",
                            "up lamp(0) 35,-25", "enter up(0)", "move up(0) 5,5"));
}

TEST_F(PointerRouterTest, aReleaseThatWentElsewhereDoesNotHoldThePointer) {
    router_.pressed(at(12, 72, true), MouseButton::Left, false);
    router_.moved(at(45, 45, false));
    EXPECT_EQ(notes_.lines.back(), "move up(0) 5,5");
    router_.pressed(at(12, 72, true), MouseButton::Left, false);
    router_.turned(at(45, 45, false), 1);
    EXPECT_EQ(notes_.lines.back(), "wheel up(0) 5,5 by 1");
}

TEST_F(PointerRouterTest, theSecondPressOfADoubleClickIsAPressToo) {
    router_.pressed(at(45, 45, true), MouseButton::Left, true);
    router_.released(at(45, 45), MouseButton::Left);
    EXPECT_THAT(notes_.lines,
                ElementsAre("down up(0) 5,5", "double up(0) 5,5", "up up(0) 5,5", "enter up(0)"));
}

TEST_F(PointerRouterTest, whatTheMouseDoesOnADisabledElementIsLost) {
    table_.touch(Small::up).enabled = false;
    router_.moved(at(45, 45));
    router_.pressed(at(45, 45, true), MouseButton::Left, false);
    router_.moved(at(5, 5, true)); // on the ground, which must not take it for its own
    router_.released(at(45, 45), MouseButton::Left);
    EXPECT_THAT(notes_.lines, ElementsAre("move nothing 45,45", "down nothing 45,45",
                                          "move nothing 5,5", "up nothing 45,45"));
}

TEST_F(PointerRouterTest, theWheelGoesToWhatIsUnderThePointer) {
    router_.turned(at(31, 71), -0.5);
    router_.turned(at(900, 1), 2);
    EXPECT_THAT(notes_.lines,
                ElementsAre("wheel lamp(1) 0.5,1 by -0.5", "wheel nothing 900,1 by 2"));
}

} // namespace
} // namespace tovik::ui
