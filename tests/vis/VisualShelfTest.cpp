// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/VisualShelf.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

class VisualShelf : public PlayerRig {
protected:
    int filled_ = 0;
    vis::VisualShelf shelf_{core_, host_.watches, [this] { ++filled_; }};
};

TEST_F(VisualShelf, isFilledOnceWhenAllIsKnown) {
    sound_.shelf = {{"/a.svp", "A"}, {"/b.svp", ""}};
    sound_.shelfIsReady = false;
    shelf_.look({.knownNames = "/names", .folders = {"/one", "/two"}});
    shelf_.look({.knownNames = "/names", .folders = {"/one"}});
    ASSERT_EQ(sound_.looked.size(), 1U);
    EXPECT_EQ(sound_.looked[0].folders, (std::vector<std::string>{"/one", "/two"}));
    EXPECT_TRUE(host_.watches.fire(FakeVisuals::listDescriptor()));
    EXPECT_EQ(filled_, 0);
    EXPECT_FALSE(shelf_.files());
    sound_.shelfIsReady = true;
    EXPECT_TRUE(host_.watches.fire(FakeVisuals::listDescriptor()));
    EXPECT_EQ(filled_, 1);
    EXPECT_EQ(*shelf_.files(), sound_.shelf);
    EXPECT_EQ(host_.watches.count(), 0U);
}

TEST_F(VisualShelf, isEmptyWhereNothingCanDraw) {
    sound_.canDraw = false;
    shelf_.look({});
    EXPECT_EQ(filled_, 1);
    EXPECT_TRUE(shelf_.files()->empty());
}

TEST_F(VisualShelf, isEmptyAtOnceWhereItCannotBeToldWhatThereIs) {
    sound_.canTalk = false;
    shelf_.look({});
    EXPECT_EQ(filled_, 1);
    EXPECT_EQ(host_.watches.count(), 0U);
}

} // namespace
} // namespace tovik::test
