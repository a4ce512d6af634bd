// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/Bitmap.h"

#include "base/RuntimeError.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"
#include "support/skin/Bitmaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::skin {
namespace {

using namespace std::string_literals;
using testing::Each;
using testing::ElementsAre;

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kBlue = 0xFF0000FF;
constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

std::vector<std::uint32_t> pixelsOf(const BitmapParts& parts) {
    return readBitmap(parts.bytes()).pixels;
}

template <typename Call>
int numberRaisedIn(const Call& call) {
    try {
        static_cast<void>(call());
        return 0;
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
}

int refusal(const BitmapParts& parts) {
    return numberRaisedIn([&] { return readBitmap(parts.bytes()); });
}

TEST(Bitmap, rowsGoUpwardsAndFillWords) {
    const ui::PixelImage image = readBitmap(
        BitmapParts{.width = 2, .height = 2, .pixels = "\xFF\0\0\0\xFF\0??\0\0\xFF\1\2\3??"s}
            .bytes());
    EXPECT_EQ(image.width, 2);
    EXPECT_EQ(image.height, 2);
    EXPECT_THAT(image.pixels, ElementsAre(kRed, 0xFF030201, kBlue, kGreen));
}

TEST(Bitmap, orDownwardsWhenTheHeightIsNegative) {
    const ui::PixelImage image =
        readBitmap(BitmapParts{.width = 1, .height = -2, .pixels = "\xFF\0\0?\0\xFF\0?"s}.bytes());
    EXPECT_EQ(image.height, 2);
    EXPECT_THAT(image.pixels, ElementsAre(kBlue, kGreen));
}

TEST(Bitmap, theLastRowNeedsNoFilling) {
    EXPECT_THAT(pixelsOf({.pixels = "\xFF\0\0"s}), ElementsAre(kBlue));
    EXPECT_EQ(refusal({.pixels = "\xFF\0"s}), 481);
}

TEST(Bitmap, theKeyColourIsCutOutAndNothingElse) {
    const std::vector<std::uint32_t> pixels =
        pixelsOf({.width = 4, .pixels = "\x0E\xDE\xEB\x08\xDE\xEF\x0E\xDE\xEC\x0F\xDE\xEB"s});
    EXPECT_THAT(pixels, ElementsAre(0U, 0xFFEFDE08, 0xFFECDE0E, 0xFFEBDE0F));
}

TEST(Bitmap, aFourthByteHasNoMeaning) {
    EXPECT_THAT(pixelsOf({.width = 2, .bits = 32, .pixels = "\xFF\0\0\0\0\xFF\0\x80"s}),
                ElementsAre(kBlue, kGreen));
}

TEST(Bitmap, palettes) {
    EXPECT_THAT(
        pixelsOf(
            {.width = 9, .bits = 1, .extra = {0x00FF0000, 0x0000FF00}, .pixels = "\x50\x80??"s}),
        ElementsAre(kRed, kGreen, kRed, kGreen, kRed, kRed, kRed, kRed, kGreen));
    EXPECT_THAT(pixelsOf({.width = 3,
                          .bits = 4,
                          .coloursTold = 3,
                          .extra = {0, 0xFF, 0xFF00},
                          .pixels = "\x12\x0F??"s}),
                ElementsAre(kBlue, kGreen, kBlack));
    EXPECT_THAT(pixelsOf({.width = 3,
                          .bits = 8,
                          .coloursTold = 2,
                          .extra = {0xFF, 0xFFFFFF},
                          .pixels = "\1\0\xFF?"s}),
                ElementsAre(kWhite, kBlue, kBlack));
}

TEST(Bitmap, sixteenBits) {
    // Five bits a colour: 31 is 255, 16 is 132 (131.6).
    EXPECT_THAT(pixelsOf({.width = 2, .bits = 16, .pixels = "\x00\x7C\x10\x00"s}),
                ElementsAre(kRed, 0xFF000084));
    // Masks with six bits for green: 63 is 255.
    EXPECT_THAT(pixelsOf({.width = 2,
                          .bits = 16,
                          .coding = 3,
                          .extra = {0xF800, 0x07E0, 0x001F},
                          .pixels = "\xE0\x07\x00\xF8"s}),
                ElementsAre(kGreen, kRed));
}

TEST(Bitmap, masksOfThirtyTwoBits) {
    for (const std::uint32_t infoSize : {40U, 56U, 108U, 124U}) {
        EXPECT_THAT(pixelsOf({.width = 2,
                              .bits = 32,
                              .coding = 3,
                              .extra = {0x000000FF, 0x0000FF00, 0x00FF0000},
                              .pixels = "\xFF\0\0\0\0\0\xFF\xFF"s,
                              .infoSize = infoSize}),
                    ElementsAre(kRed, kBlue));
    }
    EXPECT_THAT(pixelsOf({.bits = 32, .coding = 3, .extra = {0, 0, 0}, .pixels = "????"}),
                ElementsAre(kBlack));
}

TEST(Bitmap, theShortHeader) {
    std::string file = "BM" + std::string(8, '\0');
    appendLittleEndian(file, std::uint32_t{14 + 12 + 6});
    appendLittleEndian(file, std::uint32_t{12});
    for (const std::uint16_t field :
         std::initializer_list<std::uint16_t>{2, 1, 1, 1}) { // size, planes, bits
        appendLittleEndian(file, field);
    }
    file += "\xFF\0\0\0\xFF\0\x40\0\0\0"s; // three bytes a colour
    EXPECT_THAT(readBitmap(file).pixels, ElementsAre(kBlue, kGreen));
}

TEST(Bitmap, runsOfBytes) {
    const BitmapParts parts{.width = 4,
                            .height = 3,
                            .bits = 8,
                            .coding = 1,
                            .extra = {0, 0xFF, 0xFF00, 0xFF0000},
                            .pixels = "\3\1\0\0"     // three blue ones, end of the row
                                      "\0\3\1\2\3\0" // three single ones, filled up
                                      "\0\2\0\1"     // one row on
                                      "\1\2"         // one green one in the last place
                                      "\0\1"s};
    BitmapParts full = parts;
    full.extra.resize(256);
    EXPECT_THAT(pixelsOf(full), ElementsAre(kBlack, kBlack, kBlack, kGreen, kBlue, kGreen, kRed,
                                            kBlack, kBlue, kBlue, kBlue, kBlack));
}

TEST(Bitmap, runsOfHalfBytes) {
    BitmapParts parts{.width = 5,
                      .height = 1,
                      .bits = 4,
                      .coding = 2,
                      .extra = {0, 0xFF, 0xFF00, 0xFF0000},
                      .pixels = "\2\x12\0\3\x31\x20\0\1"s};
    parts.extra.resize(16);
    EXPECT_THAT(pixelsOf(parts), ElementsAre(kBlue, kGreen, kRed, kBlue, kGreen));
}

TEST(Bitmap, runsStayInsideThePicture) {
    BitmapParts parts{.width = 2, .height = 1, .bits = 8, .coding = 1, .extra = {0, 0xFF}};
    parts.extra.resize(256);
    parts.pixels = "\xFF\1\0\2\xFF\0\xFF\1\0\0\xFF\1\0\1"s;
    EXPECT_THAT(pixelsOf(parts), Each(kBlue));
    parts.pixels = "\1\1"s; // neither the row nor the picture ends
    EXPECT_EQ(refusal(parts), 481);
    parts.height = -1;
    parts.pixels = "\1\1\0\1"s;
    EXPECT_EQ(refusal(parts), 481);
}

TEST(Bitmap, whatIsNoPictureIsRefused) {
    EXPECT_EQ(numberRaisedIn([] { return readBitmap(""); }), 481);
    EXPECT_EQ(numberRaisedIn([] { return readBitmap("no picture"); }), 481);
    const BitmapParts good{.pixels = "\xFF\0\0\0"s};
    const std::string whole = good.bytes();
    for (std::size_t length = 0; length < whole.size() - 1; ++length) {
        EXPECT_EQ(numberRaisedIn([&] { return readBitmap(whole.substr(0, length)); }), 481)
            << length;
    }
    std::string other = whole;
    other[0] = 'P';
    EXPECT_EQ(numberRaisedIn([&] { return readBitmap(other); }), 481);
    std::string far = whole;
    far.replace(10, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(numberRaisedIn([&] { return readBitmap(far); }), 481);
}

TEST(Bitmap, whatCannotBeReadIsRefused) {
    const std::string pixels(64, '\0');
    for (const std::uint16_t bits : std::initializer_list<std::uint16_t>{0, 2, 3, 12, 48, 64}) {
        EXPECT_EQ(refusal({.bits = bits, .pixels = pixels}), 481) << bits;
    }
    for (const std::uint32_t coding : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 0xFFFFFFFFU}) {
        EXPECT_EQ(refusal({.bits = 24, .coding = coding, .pixels = pixels}), 481) << coding;
    }
    for (const std::uint32_t infoSize : {0U, 11U, 13U, 39U, 125U, 0xFFFFFFFFU}) {
        std::string bytes = BitmapParts{.pixels = pixels}.bytes();
        std::string field;
        appendLittleEndian(field, infoSize);
        bytes.replace(14, 4, field);
        EXPECT_EQ(numberRaisedIn([&] { return readBitmap(bytes); }), 481) << infoSize;
    }
}

TEST(Bitmap, absurdSizesAreRefusedBeforeAnythingIsTaken) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    for (const auto& [width, height] : {std::pair{0, 1},
                                        {1, 0},
                                        {-1, 1},
                                        {kMost, kMost},
                                        {1, kLeast},
                                        {kMostBitmapSide + 1, 1},
                                        {1, -kMostBitmapSide - 1},
                                        {4097, 4096}}) {
        // Runs need no bytes for their pixels, so only the limit stands in the way.
        EXPECT_EQ(
            refusal({.width = width, .height = height, .bits = 8, .coding = 1, .pixels = "\0\1"s}),
            481)
            << width << " x " << height;
    }
    const ui::PixelImage largest = readBitmap(
        BitmapParts{.width = 4096, .height = 4096, .bits = 8, .coding = 1, .pixels = "\0\1"s}
            .bytes());
    EXPECT_EQ(largest.pixels.size(), 4096U * 4096U);
}

TEST(Bitmap, filesThatAreMissingOrUnreadable) {
    const test::TemporaryFolder folder;
    const auto load = [&](const char* name) {
        return numberRaisedIn([&] { return loadBitmap(folder / name); });
    };
    folder.write("good.bmp", plainBitmap(2, 1, 0x0000FF));
    EXPECT_THAT(loadBitmap(folder / "good.bmp").pixels, ElementsAre(kBlue, kBlue));
    EXPECT_EQ(load("none.bmp"), 53);
    folder.write("text.bmp", "text");
    EXPECT_EQ(load("text.bmp"), 481);
    std::filesystem::create_directory(folder / "folder.bmp");
    EXPECT_EQ(load("folder.bmp"), 75);
    folder.write("large.bmp", "BM");
    std::filesystem::resize_file(folder / "large.bmp", 80 << 20);
    EXPECT_EQ(load("large.bmp"), 481);
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder / "good.bmp", std::filesystem::perms::none);
    const test::Unprivileged user;
    EXPECT_EQ(load("good.bmp"), 70);
}

} // namespace
} // namespace tovik::skin
