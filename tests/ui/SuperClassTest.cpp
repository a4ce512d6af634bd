// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cSuperClass.h"

#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <string>

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Watcher final : public ISuperClass {
public:
    Watcher(std::vector<std::string>& calls, std::string name)
        : calls_(calls), name_(std::move(name)) {}

    void After(MessageResult& result, MessageWindow& /*window*/,
               const WindowMessage& message) override {
        calls_.push_back(name_ + " after " + std::to_string(message.number) + " with " +
                         std::to_string(result));
        if (onAfter) {
            onAfter(result);
        }
    }

    void Before(bool& handled, MessageResult& result, MessageWindow& /*window*/,
                const WindowMessage& message) override {
        calls_.push_back(name_ + " before " + std::to_string(message.number));
        if (onBefore) {
            onBefore(handled, result);
        }
    }

    std::function<void(MessageResult&)> onAfter;
    std::function<void(bool&, MessageResult&)> onBefore;

private:
    std::vector<std::string>& calls_;
    std::string name_;
};

struct SuperClass : testing::Test {
    std::vector<std::string> calls;
    MessageWindow window{[this](const WindowMessage& message) {
        calls.push_back("window " + std::to_string(message.number));
        return message.wParam + message.lParam;
    }};
    Watcher owner{calls, "owner"};
    cSuperClass superClass;
};

TEST_F(SuperClass, theOwnerSeesAListedMessageBeforeAndAfterTheWindow) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    EXPECT_EQ(window.send({7, 40, 2}), 42);
    EXPECT_THAT(calls, ElementsAre("owner before 7", "window 7", "owner after 7 with 42"));
}

TEST_F(SuperClass, otherMessagesDoNotTouchTheOwner) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    EXPECT_EQ(window.send({8, 1, 2}), 3);
    EXPECT_THAT(calls, ElementsAre("window 8"));
}

TEST_F(SuperClass, aHandledMessageNeverReachesTheWindowNorAfter) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    owner.onBefore = [](bool& handled, MessageResult& result) {
        EXPECT_FALSE(handled);
        EXPECT_EQ(result, 0);
        handled = true;
        result = 99;
    };
    EXPECT_EQ(window.send({7, 1, 1}), 99);
    EXPECT_THAT(calls, ElementsAre("owner before 7"));
}

TEST_F(SuperClass, afterMayChangeTheResult) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    owner.onBefore = [](bool& /*handled*/, MessageResult& result) { result = 5; };
    owner.onAfter = [](MessageResult& result) { result *= 2; };
    EXPECT_EQ(window.send({7, 4, 0}), 8) << "what Before writes does not count unless handled";
}

TEST_F(SuperClass, inAllMessagesModeThereIsOnlyAfter) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, true);
    owner.onAfter = [](MessageResult& result) { ++result; };
    EXPECT_EQ(window.send({8, 1, 2}), 4);
    EXPECT_THAT(calls, ElementsAre("window 8", "owner after 8 with 3"));
}

TEST_F(SuperClass, endingWhatNeverBeganDoesNothing) {
    superClass.UnSubclass();
    EXPECT_FALSE(superClass.IsSubclassed());
    superClass.AddMsg(7);
    superClass.UnSubclass();
    superClass.SubClass(window, owner, false);
    window.send({7});
    EXPECT_THAT(calls, ElementsAre("owner before 7", "window 7", "owner after 7 with 0"));
}

TEST_F(SuperClass, theEndGivesTheWindowBackAndForgetsTheMessages) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    EXPECT_TRUE(superClass.IsSubclassed());
    superClass.UnSubclass();
    EXPECT_FALSE(superClass.IsSubclassed());
    window.send({7});
    superClass.SubClass(window, owner, false);
    window.send({7});
    EXPECT_THAT(calls, ElementsAre("window 7", "window 7"));
}

TEST_F(SuperClass, aMessageOnItsWayDoesNotComeBackToAnOwnerThatLeft) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    owner.onBefore = [this](bool& /*handled*/, MessageResult& /*result*/) {
        superClass.UnSubclass();
    };
    EXPECT_EQ(window.send({7, 3, 0}), 3);
    EXPECT_THAT(calls, ElementsAre("owner before 7", "window 7"));
}

TEST_F(SuperClass, theListIsCutOff) {
    for (std::uint32_t message = 1; message <= cSuperClass::kMostMessages + 1; ++message) {
        superClass.AddMsg(message);
    }
    superClass.SubClass(window, owner, false);
    window.send({36});
    EXPECT_EQ(calls.size(), 3U);
    calls.clear();
    window.send({37});
    EXPECT_THAT(calls, ElementsAre("window 37"));
}

TEST_F(SuperClass, aSecondSubClassWhileItRunsDoesNothing) {
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    Watcher other(calls, "other");
    superClass.AddMsg(8);
    superClass.SubClass(window, other, true);
    window.send({8});
    EXPECT_THAT(calls, ElementsAre("window 8"));
}

TEST_F(SuperClass, theLastOneInFrontIsAskedFirstAndMayLeaveInAnyOrder) {
    Watcher second(calls, "second");
    cSuperClass inFront;
    superClass.AddMsg(7);
    superClass.SubClass(window, owner, false);
    inFront.AddMsg(7);
    inFront.SubClass(window, second, false);
    window.send({7});
    EXPECT_THAT(calls, ElementsAre("second before 7", "owner before 7", "window 7",
                                   "owner after 7 with 0", "second after 7 with 0"));
    calls.clear();
    superClass.UnSubclass();
    window.send({7});
    EXPECT_THAT(calls, ElementsAre("second before 7", "window 7", "second after 7 with 0"));
}

TEST_F(SuperClass, itMayOutliveTheWindowAndGoWithoutAnEnd) {
    {
        MessageWindow shortLived;
        superClass.AddMsg(7);
        superClass.SubClass(shortLived, owner, false);
        EXPECT_EQ(shortLived.send({7, 1, 1}), 0);
    }
    superClass.UnSubclass();
    calls.clear();
    {
        cSuperClass shortLived;
        shortLived.SubClass(window, owner, true);
    }
    window.send({7});
    EXPECT_THAT(calls, ElementsAre("window 7"));
}

} // namespace
} // namespace tovik::ui
