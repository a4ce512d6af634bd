// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LineReader.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace tovik::base {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> linesOf(std::string_view text) {
    LineReader reader(text);
    std::vector<std::string> lines;
    while (const auto line = reader.next()) {
        lines.emplace_back(*line);
    }
    return lines;
}

TEST(LineReader, allThreeLineEnds) {
    EXPECT_THAT(linesOf("a\r\nb\nc\rd"), ElementsAre("a", "b", "c", "d"));
}

TEST(LineReader, emptyLinesAreLines) {
    EXPECT_THAT(linesOf("\r\n\r\n"), ElementsAre("", ""));
    EXPECT_THAT(linesOf("\n\na"), ElementsAre("", "", "a"));
    EXPECT_THAT(linesOf("\n\ra"), ElementsAre("", "", "a"));
}

TEST(LineReader, theLastLineNeedsNoEnd) {
    EXPECT_THAT(linesOf("a\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(linesOf("a\nb\n"), ElementsAre("a", "b"));
}

TEST(LineReader, nothingHasNoLines) {
    EXPECT_THAT(linesOf(""), IsEmpty());
}

TEST(LineReader, otherBytesStay) {
    using namespace std::string_literals;
    EXPECT_THAT(linesOf("\0\x1A\xFF \n"s), ElementsAre("\0\x1A\xFF "s));
}

} // namespace
} // namespace tovik::base
