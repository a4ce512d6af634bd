// SPDX-License-Identifier: GPL-3.0-or-later
// The pick of the shuffle.
#include "host/SeededRandom.h"
#include "player/PlayerRig.h"

#include <array>
#include <limits>

namespace tovik::test {
namespace {

using testing::Each;
using testing::IsEmpty;

class GenShuffle : public PlayerRig {
protected:
    /// The nine numbers for the cells 1 to 9, and the one that says which cell is taken.
    playlist::Row pick(playlist::Row count, const std::vector<double>& cells, double taken) {
        host_.random.script.assign(cells.begin(), cells.end());
        host_.random.script.push_back(taken);
        return advance_.gen_shuffle(count);
    }

    const std::vector<double> kCells = {0.05, 0.15, 0.25, 0.35, 0.45, 0.55, 0.65, 0.75, 0.85};
};

TEST_F(GenShuffle, theLastNumberSaysWhichCell) {
    EXPECT_EQ(pick(20, kCells, 0.12), 2);
    EXPECT_EQ(pick(20, kCells, 0.5), 8);
    EXPECT_EQ(pick(20, kCells, 0.999), 16); // cell 8: cell 9 is never taken
}

TEST_F(GenShuffle, cellZeroIsNoRow) {
    EXPECT_EQ(pick(20, kCells, 0), 0);
    EXPECT_EQ(pick(20, kCells, 0.11), 0);
}

TEST_F(GenShuffle, withItsSwitchEveryPickIsARow) {
    state_.comfort.alwaysPicksRow = true;
    EXPECT_EQ(pick(20, kCells, 0), 2);
    EXPECT_EQ(pick(20, kCells, 0.11), 2);
    EXPECT_EQ(pick(20, kCells, 0.12), 4);
    EXPECT_EQ(pick(20, kCells, 0.999), 18); // the last of the nine cells
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(GenShuffle, aCellIsARowFromOneToTheCount) {
    EXPECT_EQ(pick(3, std::vector<double>(9, 0), 0.5), 1);
    EXPECT_EQ(pick(3, std::vector<double>(9, 0.999), 0.5), 3);
    EXPECT_EQ(pick(1, std::vector<double>(9, 0.999), 0.5), 1);
}

TEST_F(GenShuffle, withMoreThanTenRowsACellIsDrawnAgainUntilItDiffersFromTheOneBefore) {
    const std::vector<double> cells = {0.1, 0.1, 0.1, 0.9, 0.1, 0.9, 0.1, 0.9, 0.1, 0.9, 0.1};
    EXPECT_EQ(pick(11, cells, 0.23), 10); // cell 2: the first that is not 2
    EXPECT_THAT(host_.random.script, IsEmpty());
}

TEST_F(GenShuffle, withTenRowsNeighboursMayBeEqual) {
    EXPECT_EQ(pick(10, std::vector<double>(9, 0.1), 0.23), 2);
    EXPECT_THAT(host_.random.script, IsEmpty());
}

TEST_F(GenShuffle, ofNoRowsIsOneOrNone) {
    EXPECT_EQ(pick(0, std::vector<double>(9, 0.9), 0.5), 1);
    EXPECT_EQ(pick(0, std::vector<double>(9, 0.9), 0), 0);
}

TEST_F(GenShuffle, theLargestCounts) {
    constexpr double kLast = 0.9999999999;
    const std::vector<double> cells = {0, kLast, 0, kLast, 0, kLast, 0, kLast, 0};
    constexpr playlist::Row kMost = std::numeric_limits<playlist::Row>::max();
    for (const playlist::Row count : {32767, 32768, 100000, kMost}) {
        EXPECT_EQ(pick(count, cells, 0.23), count);
    }
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(GenShuffle, onePickInNineIsNone) {
    host::SeededRandom random(7);
    std::array<int, 21> picks{};
    constexpr int kPicks = 9000;
    for (int i = 0; i < kPicks; ++i) {
        host_.random.script.clear();
        for (int n = 0; n < 40; ++n) {
            host_.random.script.push_back(random.next());
        }
        ++picks.at(static_cast<std::size_t>(advance_.gen_shuffle(20)));
    }
    EXPECT_NEAR(picks[0], kPicks / 9, 100);
    EXPECT_THAT(std::vector(picks.begin() + 1, picks.end()),
                Each(testing::AllOf(testing::Gt(300), testing::Lt(500)))); // 400 of each row
    EXPECT_THAT(logged(), IsEmpty());
}

} // namespace
} // namespace tovik::test
