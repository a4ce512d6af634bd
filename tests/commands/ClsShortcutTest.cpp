// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/ClsShortcut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <set>

namespace tovik::commands {
namespace {

using Id = CommandId;

/// The map as users know it, told once more by hand.
struct Key {
    int shift;
    int code;
    Id command;
};

const std::vector<Key> kKeys = {
    {0, 0x4A, Id::musicSearch},
    {0, 0x70, Id::about},
    {0, 0x31, Id::mainPanel},
    {0, 0x32, Id::equalizerPanel},
    {0, 0x33, Id::playlistPanel},
    {0, 0x34, Id::ripPanel},
    {0, 0x35, Id::radioPanel},
    {0, 0x36, Id::preferences},
    {0, 0x5A, Id::previous},
    {0, 0x58, Id::play},
    {0, 0x43, Id::pause},
    {0, 0x56, Id::stop},
    {0, 0x42, Id::next},
    {0, 0x25, Id::backFiveSeconds},
    {0, 0x27, Id::forwardFiveSeconds},
    {0, 0x61, Id::tenTracksBack},
    {0, 0x63, Id::tenTracksForward},
    {2, 0x44, Id::addFolder},
    {2, 0x46, Id::addFile},
    {2, 0x50, Id::preferences},
    {2, 0x57, Id::miniMode},
    {2, 0x4A, Id::jumpToTrack},
    {2, 0x53, Id::loadPreset},
    {2, 0x4D, Id::stopAfterCurrent},
    {4, 0x58, Id::exit},
    {4, 0x33, Id::editTag},
    {4, 0x41, Id::jumpToTime},
    {2, 0x5A, Id::undoList},
};

class Shortcut : public testing::Test {
protected:
    Shortcut() {
        for (const Command& command : commandTable()) {
            commands_.bind(command.id, [this, id = command.id] { ran_.push_back(id); });
        }
    }

    Commands commands_;
    ClsShortcut shortcuts_{commands_};
    std::vector<Id> ran_;
};

TEST_F(Shortcut, everyKeyOfTheMap) {
    for (const Key& key : kKeys) {
        EXPECT_TRUE(shortcuts_.ShortCut(key.code, key.shift));
        ASSERT_FALSE(ran_.empty());
        EXPECT_EQ(ran_.back(), key.command) << key.shift << " " << key.code;
    }
    EXPECT_EQ(ran_.size(), kKeys.size());
    EXPECT_EQ(ClsShortcut::map().size(), kKeys.size());
}

TEST_F(Shortcut, everyOtherKeyAndEveryOtherShiftStateDoesNothing) {
    std::set<std::pair<int, int>> known;
    for (const Key& key : kKeys) {
        known.emplace(key.shift, key.code);
    }
    for (int shift = 0; shift < 8; ++shift) {
        for (int code = 0; code < 256; ++code) {
            if (!known.contains({shift, code})) {
                EXPECT_FALSE(shortcuts_.ShortCut(code, shift)) << shift << " " << code;
            }
        }
    }
    EXPECT_THAT(ran_, testing::IsEmpty());
}

TEST_F(Shortcut, aKeyOfTheMapIsUsedEvenWhenItsCommandCanDoNothing) {
    const Commands unbound;
    EXPECT_TRUE(ClsShortcut(unbound).ShortCut('X', 0));
}

TEST(UnloadShortCut, onlyEscapeClosesAWindow) {
    int unloaded = 0;
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(ClsShortcut::UnloadShortCut([&] { ++unloaded; }, code), code == 27);
    }
    EXPECT_EQ(unloaded, 1);
}

} // namespace
} // namespace tovik::commands
