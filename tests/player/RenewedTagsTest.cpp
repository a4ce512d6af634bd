// SPDX-License-Identifier: GPL-3.0-or-later
// What was taken from a file's tags follows them when they are saved.
#include "player/TagEditorRig.h"

namespace tovik::test {
namespace {

using namespace tags::samples;
using playlist::RowText;

class RenewedTags : public SafeTags {
protected:
    RenewedTags() {
        state_.comfort.readsListAhead = state_.comfort.readsEveryFormat = true;
        load(trueTag(textFrame("TIT2", "Old") + textFrame("TPE1", "Band")) + mp3_);
        for (const char* const title : {"Band - Old", "My own name", "song", "song.mp3"}) {
            list_.AddItem(path_, path_, title, "00:01", 1);
        }
        list_.AddItem("", "/other.mp3", "Band - Old", "00:01", 1);
        list_.Remove(1);
        list_.SelectIndex(1);
        dialog_.Form_Load();
    }

    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (playlist::Row row = 1; row <= list_.ListCount(); ++row) {
            all.emplace_back(list_.text(row, RowText::Title));
        }
        return all;
    }

    void saveAs(const std::string& title) {
        form().Text4[0].type(title);
        ASSERT_TRUE(save());
    }
};

TEST_F(RenewedTags, rowsThatBoreTheOldTitle) {
    saveAs("New");
    EXPECT_THAT(titles(), testing::ElementsAre("Band - New", "My own name", "Band - New",
                                               "Band - New", "Band - Old"));
}

TEST_F(RenewedTags, withoutATitleTheyBearTheirNameAgain) {
    dialog_.Check2_Click(false);
    ASSERT_TRUE(save());
    EXPECT_EQ(titles().front(), "song.mp3");
    EXPECT_EQ(titles().at(2), "song");
}

TEST_F(RenewedTags, aSaveWithoutAChangeLeavesRowsAlone) {
    const auto before = titles();
    ASSERT_TRUE(save());
    EXPECT_EQ(titles(), before);
}

TEST_F(RenewedTags, notWithoutTheSwitch) {
    state_.comfort.readsListAhead = state_.comfort.readsEveryFormat = false;
    const auto before = titles();
    saveAs("New");
    EXPECT_EQ(titles(), before);
}

TEST_F(RenewedTags, alsoWhatASaveByTheLetterWrites) {
    state_.comfort = {};
    state_.comfort.readsListAhead = true;
    load(mp3_);
    list_.RefreshTitle(1, "song");
    dialog_.Check1_Click(true);
    form().Text2[0].type("Letter");
    ASSERT_TRUE(save());
    EXPECT_EQ(titles().front(), "Letter");
}

TEST_F(RenewedTags, theTrackThatPlaysShowsThem) {
    sound_.files[path_] = {.seconds = 9};
    known_[path_] = {.artist = "Band", .title = "Old", .seconds = 9};
    rowPlayer_.PlayRow(1, 0);
    ASSERT_EQ(view_.last.fields[1], "Old");
    ASSERT_EQ(state_.CurrentTitle, "Band - Old");
    known_[path_].title = "New";
    saveAs("New");
    EXPECT_EQ(view_.last.fields[1], "New");
    EXPECT_EQ(state_.CurrentTitle, "Band - New");
    EXPECT_EQ(events_.told.back(), "facts");
    const std::size_t told = events_.told.size();
    desk_.ask(path_, tags::FactsDesk::Urgency::first);
    EXPECT_EQ(events_.told.size(), told) << "the same is not told twice";
}

} // namespace
} // namespace tovik::test
