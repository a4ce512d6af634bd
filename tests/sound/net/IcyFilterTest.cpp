// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/IcyFilter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tovik::sound {
namespace {

struct Separated final : IcySink {
    void sound(std::span<const std::byte> bytes) override {
        for (const std::byte byte : bytes) {
            all.push_back(static_cast<char>(byte));
        }
    }

    void metadata(std::string_view text) override {
        all += "<" + std::string(text) + ">";
        titles.emplace_back(text);
    }

    std::string all;
    std::vector<std::string> titles;
};

/// What comes of it when it is fed in pieces of `piece` bytes.
Separated filtered(std::uint64_t interval, const std::string& stream, std::size_t piece = 1000) {
    IcyFilter filter(interval);
    Separated sink;
    for (std::size_t at = 0; at < stream.size(); at += piece) {
        const std::string part = stream.substr(at, piece);
        filter.feed(std::as_bytes(std::span(part)), sink);
    }
    return sink;
}

std::string block(std::string text, std::size_t units) {
    text.resize(units * 16, '\0');
    return static_cast<char>(units) + text;
}

TEST(IcyFilterOf, AStreamGivesSoundAndTitlesInOrderHoweverItIsCut) {
    const std::string stream = "abc" + block("StreamTitle='x';", 2) + "def" + block("", 0) + "gh";
    for (std::size_t piece = 1; piece < stream.size(); ++piece) {
        EXPECT_EQ(filtered(3, stream, piece).all, "abc<StreamTitle='x';>defgh") << piece;
    }
}

TEST(IcyFilterOf, NoIntervalLetsAllThrough) {
    EXPECT_EQ(filtered(0, "abc\1def").all, "abc\1def");
}

TEST(IcyFilterOf, AnIntervalOfOneSeparatesEachByte) {
    EXPECT_EQ(filtered(1, "a" + block("t", 1) + "b" + block("", 0) + "c").all, "a<t>bc");
}

TEST(IcyFilterOf, AHugeIntervalNeverEnds) {
    EXPECT_EQ(filtered(std::uint64_t{1} << 31, std::string(5000, '\1')).all.size(), 5000U);
    EXPECT_EQ(filtered(UINT64_MAX, "abc").all, "abc");
}

TEST(IcyFilterOf, TheLongestTitleIsWhole) {
    const std::string title(255 * 16, 't');
    const Separated separated = filtered(1, "a" + block(title, 255) + "b");
    EXPECT_EQ(separated.titles, std::vector{title});
    EXPECT_EQ(separated.all.back(), 'b');
}

TEST(IcyFilterOf, ATitleThatIsCutOffIsNotTold) {
    EXPECT_EQ(filtered(1, "a" + block("title", 2).substr(0, 20)).all, "a");
}

TEST(IcyFilterOf, ABlockOfNulsIsNotTold) {
    EXPECT_EQ(filtered(1, "a" + block("", 3) + "b").all, "ab");
}

} // namespace
} // namespace tovik::sound
