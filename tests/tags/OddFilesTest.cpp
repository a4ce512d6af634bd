// SPDX-License-Identifier: GPL-3.0-or-later
// Tags as other programs leave them, whole and broken: whatever stands in front, a new tag costs no
// sound, and what was set comes back.
#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"
#include "tags/LostFrames.h"

#include <gtest/gtest.h>

#include <random>

namespace tovik::tags {
namespace {

using namespace samples;

struct OddFile {
    const char* name;
    std::string before; ///< what stands in front of the sound
    std::string behind{};
};

std::string sized(std::string body, char version = 3, char flags = 0) {
    return head(sevenBits(static_cast<std::uint32_t>(body.size())), version, flags) + body;
}

std::string picture(std::size_t bytes) {
    std::mt19937 random(7);
    std::string data = "\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0"s;
    while (data.size() < bytes) {
        data += static_cast<char>(random() & 0x7FU); // no sync bytes, as in a picture's data
    }
    return data;
}

std::string sevenBitFrame(std::string_view id, const std::string& content) {
    return std::string(id) + sevenBits(static_cast<std::uint32_t>(content.size())) + "\0\0"s +
           content;
}

std::string apeTag() {
    const std::string item = "\5\0\0\0\0\0\0\0Title\0Title"s;
    const std::string foot =
        "\xD0\7\0\0"s + static_cast<char>(item.size() + 32) + "\0\0\0\1\0\0\0"s;
    return "APETAGEX" + foot + "\0\0\0\xA0"s + std::string(8, '\0') + item + "APETAGEX" + foot +
           "\0\0\0\x80"s + std::string(8, '\0');
}

std::vector<OddFile> oddFiles() {
    const std::string title = textFrame("TIT2", "Title");
    const std::string version1 = "TAG" + field("Title", 122) + "\0\1\1"s;
    return {
        {"nothing", ""},
        {"unsynchronised", sized(frame("TIT2", "\1\xFF\0\xFE"s + "T\0i\0"s) + title, 3, '\x80')},
        {"compressed", sized(frame("TIT2", bigEndian(20) + "\x78\x9C\x01\x02\x03", "\0\x80"s))},
        {"encrypted", sized(frame("TIT2", "\x01secret", "\0\x40"s) + title)},
        {"extended head", sized(bigEndian(6) + std::string(6, '\0') + title, 3, '\x40')},
        {"extended head with a checksum",
         sized(bigEndian(10) + "\x80\0\0\0\0\0\1\2\3\4"s + title, 3, '\x40')},
        {"footer",
         sized(sevenBitFrame("TIT2", "\3Title"), 4, '\x10') + "3DI\4\0\x10"s + sevenBits(16)},
        {"2.2", sized("TT2\0\0\6\0Title"s + "PIC\0\0\x0A\0PNG\3\0abcd"s, 2)},
        {"2.3", sized(title + frame("COMM", "\0eng\0text"s) + std::string(500, '\0'))},
        {"2.4", sized(sevenBitFrame("TIT2", "\3" + std::string(300, 't')) +
                          sevenBitFrame("TDRC", "\3"
                                                "2001-01-01"),
                      4)},
        {"two in a row", sized(title) + sized(textFrame("TALB", "Album"))},
        {"a picture of 5 MB", sized(title + frame("APIC", picture(5000000)))},
        {"frames of no size", sized(frame("TIT2", "") + frame("TALB", "") + title)},
        {"a frame of 2 GB", sized(title + "TALB" + bigEndian(0x80000000U) + "\0\0"s + "\0A"s)},
        {"a frame just below", sized(title + "TALB" + bigEndian(0x7FFFFFFFU) + "\0\0"s + "\0A"s)},
        {"a tag of 2 GB", head(bigEndian(0x80000000U)) + title},
        {"a frame over the end", sized(title + "TALB" + bigEndian(100) + "\0\0"s + "\0A"s)},
        {"only a head", head(sevenBits(0))},
        {"half a head", "ID3\3"},
        {"APEv2 in front of version 1", "", apeTag() + version1},
        {"a mark far inside", std::string(100, 'x') + sized(title)},
        {"sync bytes in a picture",
         sized(title + frame("APIC", "\0image/jpeg\0\3\0"s + std::string(500, '\xFF')))},
    };
}

class OddFiles : public testing::TestWithParam<OddFile> {
protected:
    std::string load(const std::string& bytes) {
        tag_.MP3File(folder_.write("song.mp3", bytes));
        return bytes;
    }

    test::TemporaryFolder folder_;
    test::RecordingDialogs dialogs_;
    TagWarning warning_{dialogs_};
    cMP3ID3v2 tag_{warning_};
};

TEST_P(OddFiles, aNewTagCostsNoSound) {
    const std::string whole = sound(30) + GetParam().behind;
    for (const std::size_t length : {5U, 700U, 3000U, 100000U}) {
        load(GetParam().before + whole);
        const std::string text(length, 't');
        tag_.Title(text);
        tag_.Comment("comment");
        ASSERT_TRUE(tag_.Update());
        const std::string saved = folder_.read("song.mp3");
        ASSERT_TRUE(saved.ends_with(whole)) << length;
        tag_.MP3File(folder_ / "song.mp3");
        EXPECT_EQ(tag_.Title(), text);
        EXPECT_EQ(tag_.Comment(), "comment");
        // Once more, now over a tag of our own.
        tag_.Title("again");
        ASSERT_TRUE(tag_.Update());
        EXPECT_EQ(folder_.read("song.mp3").size(), saved.size());
        EXPECT_TRUE(folder_.read("song.mp3").ends_with(whole));
    }
    EXPECT_TRUE(dialogs_.boxes.empty());
}

TEST_P(OddFiles, version1ComesAndGoesBehindTheSound) {
    const std::string bytes = load(GetParam().before + sound(5) + GetParam().behind);
    cMP3ID3v1 first(warning_);
    first.MP3File(folder_ / "song.mp3");
    const bool had = first.HasID3v1Tag();
    first.Title("New");
    first.Update();
    const std::string saved = folder_.read("song.mp3");
    EXPECT_EQ(saved.size(), bytes.size() + (had ? 0 : 128));
    EXPECT_TRUE(saved.starts_with(bytes.substr(0, bytes.size() - (had ? 128 : 0))));
    EXPECT_TRUE(first.RemoveTag());
    EXPECT_EQ(folder_.read("song.mp3").size(), saved.size());
    EXPECT_TRUE(folder_.read("song.mp3").starts_with(saved.substr(0, saved.size() - 128)));
}

TEST_P(OddFiles, whatWouldBeLostIsFoundWithoutHarm) {
    load(GetParam().before + sound(5) + GetParam().behind);
    for (const std::string& id : lostFrames(folder_ / "song.mp3", std::nullopt)) {
        EXPECT_FALSE(id.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(All, OddFiles, testing::ValuesIn(oddFiles()),
                         [](const testing::TestParamInfo<OddFile>& file) {
                             std::string name;
                             for (const char sign : std::string(file.param.name)) {
                                 if (std::isalnum(static_cast<unsigned char>(sign)) != 0) {
                                     name += sign;
                                 }
                             }
                             return name;
                         });

/// Bytes made of what tags and frames are made of, cut anywhere.
TEST(RandomTags, costNoSound) {
    const std::string whole = sound(12);
    std::mt19937 random(12);
    const auto upTo = [&random](std::size_t most) { return random() % (most + 1); };
    const std::array<std::string, 8> pieces{
        head(sevenBits(600)),       head(bigEndian(600)),      textFrame("TIT2", "Title"),
        textFrame("TCON", "(17)A"), "\0\0\0\0\0\0\0\0\0\0\0"s, "TALB" + bigEndian(0x80000001U),
        std::string(400, '\xFF'),   frame("COMM", "\0eng\0c"s)};
    test::RecordingDialogs dialogs;
    TagWarning warning(dialogs);
    const test::TemporaryFolder folder;
    for (int round = 0; round < 400; ++round) {
        std::string before = round % 3 == 0 ? "" : pieces.at(upTo(1));
        for (std::size_t count = upTo(6); count > 0; --count) {
            before += pieces.at(upTo(pieces.size() - 1));
        }
        before.resize(before.size() - upTo(before.size() / 4));
        cMP3ID3v2 tag(warning);
        tag.MP3File(folder.write("song.mp3", before + whole));
        const std::string title(upTo(round % 10 == 0 ? 5000 : 50), 'x');
        tag.Title(title);
        ASSERT_TRUE(tag.Update());
        ASSERT_TRUE(folder.read("song.mp3").ends_with(whole)) << round;
        tag.MP3File(folder / "song.mp3");
        ASSERT_EQ(tag.Title(), title) << round;
    }
}

} // namespace
} // namespace tovik::tags
