// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/LostFrames.h"

#include "Samples.h"
#include "support/host/TemporaryFolder.h"
#include "tags/TagField.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace samples;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> lost(const std::string& bytes, std::optional<int> genre = std::nullopt) {
    const test::TemporaryFolder folder;
    return lostFrames(folder.write("song.mp3", bytes + sound(3)), genre);
}

TEST(LostFrames, plainTextsAreKept) {
    EXPECT_THAT(lost(""), IsEmpty());
    EXPECT_THAT(lost("x" + tag(frame("APIC", "picture"))), IsEmpty()); // no tag to save over
    EXPECT_THAT(lost(tag(textFrame("TIT2", "Title") + textFrame("TXYZ", "any"))), IsEmpty());
    EXPECT_THAT(lost(head(sevenBits(300)) + textFrame("TIT2", std::string(200, 't')) +
                     std::string(90, '\0')),
                IsEmpty());
}

TEST(LostFrames, whatIsWrittenOtherwiseIsNamedOnce) {
    EXPECT_THAT(lost(tag(frame("APIC", "\0image/png\0\3\0\x89PNG"s) + textFrame("TIT2", "Title") +
                         frame("TXXX", "\0a\0b"s) + frame("TXXX", "\0c\0d"s) +
                         frame("TALB", "\1\xFF\xFE"s + "A\0"s) + frame("TPE1", "\3utf-8") +
                         frame("TYER", "\0ends\0"s) + frame("WOAR", "http://a") +
                         frame("TCOM", "\0packed"s, "\0\x80"s) + frame("TENC", ""))),
                ElementsAre("APIC", "TXXX", "TALB", "TPE1", "TYER", "WOAR", "TCOM", "TENC"));
}

TEST(LostFrames, commentAndGenreGoByTheFields) {
    const std::string comment = frame("COMM", "\0eng\0text"s);
    EXPECT_THAT(lost(tag(comment)), ElementsAre("COMM"));
    EXPECT_THAT(lost(tag(comment), 17), IsEmpty());
    EXPECT_THAT(lost(tag(comment + comment), 17), ElementsAre("COMM"));
    EXPECT_THAT(lost(tag(frame("COMM", "\0engdesc\0text"s)), 17), ElementsAre("COMM"));
    for (const std::string same : {"(17)", "(17)Rock", "Rock"}) {
        EXPECT_THAT(lost(tag(textFrame("TCON", same)), 17), IsEmpty()) << same;
    }
    for (const std::string other : {"(18)", "17", "Noise rock", "(17)Mine"}) {
        EXPECT_THAT(lost(tag(textFrame("TCON", other)), 17), ElementsAre("TCON")) << other;
        EXPECT_THAT(lost(tag(textFrame("TCON", other))), IsEmpty()) << other;
    }
}

TEST(LostFrames, otherVersionsByTheirOwnRules) {
    const std::string version2 = head(sevenBits(30), 2) + "TT2\0\0\6\0Title"s + "PIC\0\0\3abc"s;
    EXPECT_THAT(lost(version2 + std::string(9, '\0')), ElementsAre("TT2", "PIC"));
    // In version 4 sizes of 128 bytes and more are told in seven bits, which is not known here:
    // such a frame is read as a longer one, and what follows it is lost, too.
    const std::string big = std::string(1, '\0') + std::string(199, 'b');
    const std::string version4 = head(sevenBits(400), 4) + textFrame("TIT2", "Title") + "TALB" +
                                 sevenBits(200) + "\0\0"s + big + textFrame("TPE1", "Artist");
    EXPECT_THAT(lost(version4 + std::string(200, '\0')), ElementsAre("TALB", "TPE1"));
    EXPECT_THAT(lost(head(sevenBits(30), 5) + std::string(30, '\0')), ElementsAre("ID3v2.5"));
}

TEST(LostFrames, anExtendedHeadHidesTheFramesBehindIt) {
    const std::string extended = bigEndian(10) + "\x80\0\0\0\0\0\1\2\3\4"s;
    EXPECT_THAT(lost(head(sevenBits(200), 3, '\x40') + extended + textFrame("TIT2", "Title") +
                     std::string(100, '\0')),
                ElementsAre("TIT2"));
}

TEST(LostFrames, brokenTagsEndTheWalk) {
    for (const std::uint32_t size : {0x7FFFFFFFU, 0x80000000U, 5000U}) {
        EXPECT_THAT(lost(head(bigEndian(5000)) + "TALB" + bigEndian(size) + "\0\0"s + "\0Album"s),
                    ElementsAre("TALB"));
    }
    EXPECT_THAT(lost("ID3"), IsEmpty());
}

TEST(TagField, typedTextGoesIntoTheCodePageWhereItFits) {
    TagField field_("\xE4 and \xC3\xA4");
    EXPECT_EQ(field_.bytes(), "\xE4 and \xC3\xA4");
    EXPECT_EQ(field_.text(), "\xC3\xA4 and \xC3\x83\xC2\xA4");
    field_.type("\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(field_.bytes(), "\xE4\x80");
    field_.type("\xC5\xA1\xC4\x8D"); // there is no c with a caron in it
    EXPECT_EQ(field_.bytes(), "\xC5\xA1\xC4\x8D");
    field_.type("\xC3\x83\xC2\xA4"); // two letters that would come back as one
    EXPECT_EQ(field_.text(), "\xC3\x83\xC2\xA4");
}

} // namespace
} // namespace tovik::tags
