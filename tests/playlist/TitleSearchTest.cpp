// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/TitleSearch.h"
#include "Lists.h"

#include <gmock/gmock.h>

#include <random>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TitleSearchTest : public testing::Test {
protected:
    std::vector<Row> found(std::string_view text, TitleMatch match = TitleMatch::contains) {
        search_.find(text, match);
        return search_.hits();
    }

    stdSS list_;
    TitleSearch search_{list_};
};

TEST_F(TitleSearchTest, findsTitlesThatHoldTheTextWhateverItsCase) {
    fill(list_, {"Blue Song", "Red", "songs", "a SONG"});
    EXPECT_THAT(found("song"), ElementsAre(1, 3, 4));
    EXPECT_THAT(found("SONG"), ElementsAre(1, 3, 4));
    EXPECT_THAT(found("none"), IsEmpty());
}

TEST_F(TitleSearchTest, theFourWaysToCompare) {
    fill(list_, {"Song", "song", "a Song", "a song"});
    EXPECT_THAT(found("Song", TitleMatch::contains), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(found("Song", TitleMatch::containsExactCase), ElementsAre(1, 3));
    EXPECT_THAT(found("Song", TitleMatch::equals), ElementsAre(1, 2));
    EXPECT_THAT(found("Song", TitleMatch::equalsExactCase), ElementsAre(1));
}

TEST_F(TitleSearchTest, theEmptyTextIsInEveryTitleAndEqualsTheEmptyOne) {
    fill(list_, {"a", "", "b"});
    EXPECT_THAT(found(""), ElementsAre(1, 2, 3));
    EXPECT_THAT(found("", TitleMatch::containsExactCase), ElementsAre(1, 2, 3));
    EXPECT_THAT(found("", TitleMatch::equals), ElementsAre(2));
    EXPECT_THAT(found("", TitleMatch::equalsExactCase), ElementsAre(2));
}

TEST_F(TitleSearchTest, lettersOfOtherAlphabetsHaveCasesToo) {
    fill(list_, {"\u0160e en", "\u041C\u0443\u0437\u044B\u043A\u0430",
                 "\x8A"
                 "e en"});
    EXPECT_THAT(found("\u0161E"), ElementsAre(1, 3));
    EXPECT_THAT(found("\u0161E", TitleMatch::containsExactCase), IsEmpty());
    EXPECT_THAT(found("\u0160e", TitleMatch::containsExactCase), ElementsAre(1, 3));
    EXPECT_THAT(found("\u043C\u0423"), ElementsAre(2));
}

TEST_F(TitleSearchTest, noTextIsFoundAcrossTheEndOfATitle) {
    using namespace std::string_literals;
    fill(list_, {"ab", "cd", "ef"});
    EXPECT_THAT(found("bc"), IsEmpty());
    EXPECT_THAT(found("b\0c"s), IsEmpty());
    EXPECT_THAT(found("\0"s), IsEmpty());
    EXPECT_THAT(found("cd"), ElementsAre(2));
}

TEST_F(TitleSearchTest, aChangeOfTheListIsSeenAtTheNextSearch) {
    fill(list_, {"one", "two"});
    EXPECT_THAT(found("o"), ElementsAre(1, 2));
    EXPECT_FALSE(search_.stale());
    list_.Remove(1);
    EXPECT_TRUE(search_.stale());
    EXPECT_THAT(found("on"), IsEmpty());
    fill(list_, {"three one"});
    search_.refresh();
    EXPECT_THAT(search_.hits(), ElementsAre(2));
    list_.RefreshTitle(1, "one");
    EXPECT_TRUE(search_.stale());
    search_.refresh();
    EXPECT_THAT(search_.hits(), ElementsAre(1, 2));
    list_.Clear();
    EXPECT_TRUE(search_.stale());
    search_.refresh();
    EXPECT_THAT(search_.hits(), IsEmpty());
}

/// What a plain walk over all rows finds, for titles of ASCII letters.
std::vector<Row> walked(const stdSS& list, const std::string& text) {
    std::vector<Row> rows;
    for (Row row = 1; row <= list.ListCount(); ++row) {
        if (list.text(row, RowText::Title).find(text) != std::string_view::npos) {
            rows.push_back(row);
        }
    }
    return rows;
}

TEST_F(TitleSearchTest, keyByKeyItFindsWhatAWalkFinds) {
    std::minstd_rand random(7);
    for (int row = 0; row < 500; ++row) {
        std::string title;
        for (auto letters = random() % 12; letters > 0; --letters) {
            title += static_cast<char>('a' + random() % 3);
        }
        list_.AddItem("", "/x", title, "", 0);
    }
    std::string typed;
    int searches = 0;
    for (int key = 0; key < 400; ++key) {
        if (typed.size() > 5 || random() % 4 == 0) {
            typed = typed.substr(0, random() % (typed.size() + 1));
        } else {
            typed.insert(random() % (typed.size() + 1), 1, static_cast<char>('a' + random() % 3));
        }
        ASSERT_EQ(found(typed), walked(list_, typed)) << typed;
        ++searches;
    }
    EXPECT_EQ(searches, 400);
}

TEST_F(TitleSearchTest, wordsInAnyOrderWithoutAccents) {
    fill(list_, {"Help - The Beatles", "Caf\u00E9 Beat", "Beat", "HELP"});
    const auto any = [this](std::string_view text, TitleMatch match = TitleMatch::contains) {
        search_.find(text, match, TitleWords::anyOrder);
        return search_.hits();
    };
    EXPECT_THAT(found("beatles help"), IsEmpty());
    EXPECT_THAT(found("cafe"), IsEmpty());
    EXPECT_THAT(any("beat"), ElementsAre(1, 2, 3));
    EXPECT_THAT(any("beatles help"), ElementsAre(1));
    EXPECT_THAT(any(" beat  cafe "), ElementsAre(2));
    EXPECT_THAT(any("BEAT CAF\u00C9"), ElementsAre(2));
    EXPECT_THAT(any(""), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(any("Beat Help", TitleMatch::containsExactCase), ElementsAre(1));
    EXPECT_THAT(any("beat Help", TitleMatch::containsExactCase), IsEmpty());
    EXPECT_THAT(any("cafe beat", TitleMatch::equals), ElementsAre(2));
    EXPECT_THAT(any("beat cafe", TitleMatch::equals), IsEmpty());
    EXPECT_THAT(any("Help", TitleMatch::equalsExactCase), IsEmpty());
    EXPECT_THAT(found("cafe"), IsEmpty()) << "back to letters as they were typed";
}

} // namespace
} // namespace tovik::playlist
