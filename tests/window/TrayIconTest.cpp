// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TrayIcon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tovik::window {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class OneArea final : public NotifyArea {
public:
    NotifyIconData last;
    std::vector<NotifyCommand> commands;
    bool answer = true;
    bool has = true;
    bool waits = false;

    bool notify(NotifyCommand command, const NotifyIconData& data) override {
        commands.push_back(command);
        last = data;
        return answer;
    }

    [[nodiscard]] bool taken() const override { return has; }

    [[nodiscard]] bool asking() const override { return waits; }
};

class TrayIconTest : public testing::Test {
protected:
    TrayIconTest() {
        icon_.Mouse = [this](int button, bool twice) { seen_.emplace_back(button, twice); };
    }

    void tell(int message) { icon_.MouseMove(message * 15); }

    OneArea area_;
    TrayIcon icon_{area_, 4711};
    std::vector<std::pair<int, bool>> seen_;
};

TEST_F(TrayIconTest, theShellGetsTheWholeRecord) {
    icon_.Icon(3);
    icon_.Tooltip("what plays");
    icon_.Add();
    EXPECT_EQ(area_.last.cbSize, 88U);
    EXPECT_EQ(area_.last.hWnd, 4711U);
    EXPECT_EQ(area_.last.uID, 1U);
    EXPECT_EQ(area_.last.uFlags, 7U);
    EXPECT_EQ(area_.last.uCallbackMessage, 512U);
    EXPECT_EQ(area_.last.hIcon, 3);
    EXPECT_STREQ(area_.last.szTip.data(), "what plays");
    icon_.Modify();
    icon_.Remove();
    EXPECT_THAT(area_.commands,
                ElementsAre(NotifyCommand::add, NotifyCommand::modify, NotifyCommand::remove));
}

TEST_F(TrayIconTest, theTooltipComesBackAsItWasSet) {
    EXPECT_EQ(icon_.Tooltip(), "");
    const std::string words(100, 'x');
    icon_.Tooltip(words);
    EXPECT_EQ(icon_.Tooltip(), words);
}

TEST_F(TrayIconTest, aLongTooltipIsCutToSixtyThreeBytes) {
    icon_.Tooltip(std::string(64, 'x'));
    icon_.Add();
    EXPECT_EQ(std::strlen(area_.last.szTip.data()), 63U);
    EXPECT_EQ(area_.last.szTip.back(), '\0');
    icon_.Tooltip(std::string(63, 'x'));
    icon_.Modify();
    EXPECT_EQ(std::strlen(area_.last.szTip.data()), 63U);
}

TEST_F(TrayIconTest, noCharacterIsCutInHalf) {
    icon_.Tooltip(std::string(62, 'x') + "\u017E");
    icon_.Add();
    EXPECT_EQ(std::strlen(area_.last.szTip.data()), 62U);
    // Shorter words leave nothing of the longer ones.
    icon_.Tooltip("y");
    icon_.Modify();
    EXPECT_STREQ(area_.last.szTip.data(), "y");
    EXPECT_EQ(area_.last.szTip[1], '\0');
    EXPECT_EQ(area_.last.szTip[10], '\0');
}

TEST_F(TrayIconTest, theStateIsThatOfTheLastCall) {
    EXPECT_FALSE(icon_.State());
    icon_.Add();
    EXPECT_TRUE(icon_.State());
    area_.answer = false;
    icon_.Modify();
    EXPECT_FALSE(icon_.State());
}

TEST_F(TrayIconTest, anIconThatNobodyTookFailed) {
    area_.has = false;
    area_.waits = true;
    icon_.Add();
    EXPECT_TRUE(icon_.State()) << "nobody has refused it yet";
    area_.waits = false;
    EXPECT_FALSE(icon_.State());
    icon_.Remove();
    EXPECT_TRUE(icon_.State()) << "nothing is left to be taken";
}

TEST_F(TrayIconTest, sixMessagesAreToldAndNoOthers) {
    for (const int message : {513, 514, 515, 516, 517, 518}) {
        tell(message);
    }
    EXPECT_THAT(seen_, ElementsAre(Pair(1, false), Pair(1, false), Pair(1, true), Pair(3, false),
                                   Pair(2, false), Pair(2, true)));
    seen_.clear();
    for (const int message : {0, 512, 519, 520, 521, 522, -513}) {
        tell(message);
    }
    EXPECT_THAT(seen_, IsEmpty());
}

TEST_F(TrayIconTest, aMessageWithinAnotherIsDropped) {
    icon_.Mouse = [this](int button, bool twice) {
        seen_.emplace_back(button, twice);
        tell(514);
    };
    tell(513);
    EXPECT_EQ(seen_.size(), 1U);
    tell(513);
    EXPECT_EQ(seen_.size(), 2U);
}

TEST_F(TrayIconTest, anErrorOfTheHandlerLeavesNoGuardBehind) {
    icon_.Mouse = [](int, bool) { throw std::runtime_error("no"); };
    EXPECT_THROW(tell(513), std::runtime_error);
    icon_.Mouse = [this](int button, bool twice) { seen_.emplace_back(button, twice); };
    tell(513);
    EXPECT_EQ(seen_.size(), 1U);
}

} // namespace
} // namespace tovik::window
