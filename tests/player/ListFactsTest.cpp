// SPDX-License-Identifier: GPL-3.0-or-later
// What files say of themselves, in the rows of the list.
#include "player/ListFacts.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using playlist::RowText;

class ListFactsTest : public PlayerRig {
protected:
    ListFactsTest() {
        state_.comfort.readsListAhead = true;
        watches_.nothing = false;
    }

    void add(const std::string& name, const tags::FileFacts& facts) {
        const std::string path = "/music/" + name;
        known_[path] = facts;
        list_.AddItem("", path, name, "", 0);
    }

    [[nodiscard]] std::string title(playlist::Row row) const {
        return std::string(list_.text(row, RowText::Title));
    }

    [[nodiscard]] std::string time(playlist::Row row) const {
        return std::string(list_.text(row, RowText::TimeText));
    }

    /// Until nothing more comes in.
    void settle() {
        while (watches_.wait(std::chrono::milliseconds(desk_.waiting() > 0 ? 10000 : 0))) {
        }
        ASSERT_EQ(desk_.waiting(), 0U);
    }

    struct Loop : host::MessagePump {
        bool Step() override { return true; }

        [[nodiscard]] bool stepping() const override { return goesOn; }

        bool goesOn = false;
    };

    Loop loop_;
    player::ListFacts rows_{core_, loop_, desk_};
};

TEST_F(ListFactsTest, rowsGetTitleAndLength) {
    add("1.ogg", {.artist = "Band", .title = "Song", .seconds = 75});
    add("2.flac", {.title = "Alone", .seconds = 3700});
    add("3.wav", {.seconds = 5});
    rows_.begin();
    EXPECT_EQ(title(1), "1.ogg") << "not before events were handled";
    settle();
    EXPECT_EQ(title(1), "Band - Song");
    EXPECT_EQ(list_.seconds(1), 75);
    EXPECT_EQ(time(1), "01:15");
    EXPECT_EQ(title(2), "Alone");
    EXPECT_EQ(title(3), "3.wav");
    EXPECT_EQ(list_.seconds(3), 5);
    EXPECT_EQ(list_.TotalSeconds(), 75 + 3700 + 5);
}

TEST_F(ListFactsTest, aListThatIsBeingLoadedIsLeftAlone) {
    rows_.begin();
    loop_.goesOn = true;
    for (const char* const name : {"1.ogg", "2.ogg", "3.ogg"}) {
        add(name, {.title = "Song"});
        settle();
    }
    EXPECT_FALSE(watches_.wait(std::chrono::milliseconds(0))) << "no event holds the loop up";
    EXPECT_EQ(title(1), "1.ogg");
    rows_.rowSeen(2);
    settle();
    EXPECT_EQ(title(2), "Song") << "but for what is in sight";
    advance(player::ListFacts::kLookMs);
    settle();
    EXPECT_EQ(title(1), "1.ogg");
    loop_.goesOn = false;
    advance(player::ListFacts::kLookMs);
    settle();
    EXPECT_EQ(title(1), "Song");
    EXPECT_EQ(title(3), "Song");
}

TEST_F(ListFactsTest, nothingIsReadWithoutTheSwitch) {
    state_.comfort.readsListAhead = false;
    add("1.ogg", {.artist = "Band", .title = "Song", .seconds = 75});
    rows_.begin();
    rows_.rowSeen(1);
    settle();
    EXPECT_EQ(title(1), "1.ogg");
    state_.comfort.readsListAhead = true;
    rows_.follow();
    settle();
    EXPECT_EQ(title(1), "Band - Song") << "until it is turned on";
}

TEST_F(ListFactsTest, whatAListToldStays) {
    known_["/music/1.ogg"] = {.artist = "Band", .title = "Song", .seconds = 75};
    list_.AddItem("", "/music/1.ogg", "My own name", "03:00", 180);
    list_.AddItem("", "/music/1.ogg", "My own name", "", -1);
    list_.AddItem("", "/music/1.ogg", "1.ogg", "03:00", 180);
    rows_.begin();
    settle();
    EXPECT_EQ(title(1), "My own name");
    EXPECT_EQ(list_.seconds(1), 180);
    EXPECT_EQ(title(2), "My own name");
    EXPECT_EQ(list_.seconds(2), 75);
    EXPECT_EQ(title(3), "Band - Song");
    EXPECT_EQ(list_.seconds(3), 180);
}

TEST_F(ListFactsTest, addressesAndDiscsAreNotAskedFor) {
    for (const char* const path : {"http://radio/a", "/cd/Track01.cda", ""}) {
        known_[path] = {.title = "Wrong"};
        list_.AddItem("", path, path, "", 0);
    }
    rows_.begin();
    settle();
    for (playlist::Row row = 1; row <= 3; ++row) {
        EXPECT_NE(title(row), "Wrong");
    }
}

TEST_F(ListFactsTest, rowsInSightComeFirst) {
    constexpr playlist::Row kRows = 500;
    for (playlist::Row row = 1; row <= kRows; ++row) {
        add(std::to_string(row) + ".ogg", {.title = "T" + std::to_string(row), .seconds = 1});
    }
    rows_.begin();
    rows_.rowSeen(kRows);
    ASSERT_TRUE(watches_.waitUntil([&] { return title(kRows) != "500.ogg"; }));
    EXPECT_EQ(title(400), "400.ogg");
    settle();
    for (playlist::Row row = 1; row <= kRows; ++row) {
        ASSERT_EQ(title(row), "T" + std::to_string(row));
    }
}

TEST_F(ListFactsTest, noMoreThanAFewAreAskedForAhead) {
    for (int row = 1; row <= 500; ++row) {
        add(std::to_string(row) + ".ogg", {.seconds = 1});
    }
    rows_.begin();
    while (list_.seconds(500) == 0) {
        ASSERT_TRUE(watches_.wait());
        ASSERT_LE(desk_.waiting(), player::ListFacts::kAhead);
    }
}

TEST_F(ListFactsTest, rowsThatMoveOrGoMeanwhileGetTheirOwn) {
    for (int row = 1; row <= 60; ++row) {
        add(std::to_string(row) + ".ogg", {.title = "T" + std::to_string(row), .seconds = row});
    }
    rows_.begin();
    ASSERT_TRUE(watches_.wait());
    list_.Remove(1);
    list_.MoveRow(50, 2);
    add("61.ogg", {.title = "T61", .seconds = 61});
    settle();
    for (playlist::Row row = 1; row <= list_.ListCount(); ++row) {
        const std::string name = std::string(list_.text(row, RowText::FileName)).substr(7);
        EXPECT_EQ(title(row) + ".ogg", "T" + name);
    }
    list_.Clear();
    add("62.ogg", {.title = "T62"});
    settle();
    EXPECT_EQ(title(1), "T62");
}

TEST_F(ListFactsTest, whatCannotBePlayedIsMarked) {
    state_.comfort.skipsUnplayable = true;
    add("empty.ogg", {.nothing = true});
    add("1.ogg", {});
    rows_.begin();
    settle();
    EXPECT_TRUE(list_.isUnplayable(1));
    EXPECT_FALSE(list_.isUnplayable(2));
    state_.comfort.skipsUnplayable = false;
    add("other.ogg", {.nothing = true});
    settle();
    EXPECT_TRUE(list_.factsTaken(3));
    EXPECT_FALSE(list_.isUnplayable(3)) << "another switch's";
}

TEST_F(ListFactsTest, theMarkGoesWhenItPlays) {
    state_.comfort.skipsUnplayable = true;
    const std::string path = track("a.wav", {.seconds = 9});
    known_[path] = {.nothing = true};
    list_.AddItem("", path, "a.wav", "", 0);
    rows_.begin();
    settle();
    ASSERT_TRUE(list_.isUnplayable(1));
    rowPlayer_.PlayRow(1, 0);
    EXPECT_FALSE(list_.isUnplayable(1));
}

TEST_F(ListFactsTest, aFileWithoutFactsIsAskedForOnce) {
    add("1.ogg", {});
    rows_.begin();
    settle();
    EXPECT_TRUE(list_.factsTaken(1));
    known_["/music/1.ogg"] = {.title = "Late"};
    rows_.rowSeen(1);
    rows_.follow();
    settle();
    EXPECT_EQ(title(1), "1.ogg");
    list_.AddFileName2(1, "/music/1.ogg");
    rows_.rowSeen(1);
    settle();
    EXPECT_EQ(title(1), "Late") << "another file in its place is asked";
}

} // namespace
} // namespace tovik::test
