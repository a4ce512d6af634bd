// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagPicture.h"

#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace std::string_literals;

const std::string kJpeg = "\xFF\xD8\xFF\xE0 a jpeg";
const std::string kPng = "\x89PNG\r\n\x1A\n a png";

std::string number(std::size_t value, unsigned bits, std::size_t bytes = 4) {
    std::string text;
    for (std::size_t i = bytes; i-- > 0;) {
        const std::size_t mask = (std::size_t{1} << bits) - 1;
        text += static_cast<char>((value >> (bits * i)) & mask);
    }
    return text;
}

std::string tag(int version, const std::string& frames, char flags = '\0') {
    return "ID3"s + static_cast<char>(version) + '\0' + flags + number(frames.size(), 7) + frames;
}

std::string frame(const std::string& id, const std::string& content, unsigned bits = 8,
                  const std::string& flags = "\0\0"s) {
    return id + number(content.size(), bits) + flags + content;
}

std::string content(const std::string& picture, char shows = '\3',
                    const std::string& head = "\0image/jpeg\0"s, const std::string& words = "\0"s) {
    return head + shows + words + picture;
}

std::string bytesOf(const std::string& bytes) {
    const auto picture = pictureOfTag(bytes);
    return picture ? picture->bytes : "(none)";
}

TEST(TagPicture, ofEachVersion) {
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", content(kJpeg)))), kJpeg);
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", content(kPng), 7))), kPng);
    const std::string old = "\0JPG\3words\0"s + kJpeg;
    EXPECT_EQ(bytesOf(tag(2, "PIC" + number(old.size(), 8, 3) + old)), kJpeg);
    EXPECT_EQ(bytesOf(tag(5, frame("APIC", content(kJpeg)))), "(none)");
    EXPECT_EQ(bytesOf(tag(2, "PIC" + number(old.size(), 8, 3) + old, '\x40')), "(none)");
}

TEST(TagPicture, itsOwnFirstBytesTellWhatItIs) {
    const auto picture = pictureOfTag(tag(3, frame("APIC", content(kPng))));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->form, PictureForm::png);
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", content("GIF89a")))), "(none)");
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", content("http://a", '\3', "\0-->\0"s)))), "(none)");
}

TEST(TagPicture, theFrontCoverElseTheFirst) {
    const std::string back = frame("APIC", content(kPng, '\4'));
    const std::string front = frame("APIC", content(kJpeg, '\3'));
    EXPECT_EQ(bytesOf(tag(3, frame("TIT2", "\0a"s) + back + front + back)), kJpeg);
    EXPECT_EQ(bytesOf(tag(3, back + frame("APIC", content(kJpeg, '\5')))), kPng);
}

TEST(TagPicture, wordsInAnyEncodingStandInFrontOfIt) {
    EXPECT_EQ(
        bytesOf(tag(3, frame("APIC", content(kJpeg, '\3', "\1image/jpeg\0"s, "\xFF\xFE\0a\0\0"s)))),
        kJpeg);
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", content(kJpeg, '\3', "\2\0"s, "\0a\0\0"s), 7))), kJpeg);
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", content(kJpeg, '\3', "\3\0"s, "abc\0"s), 7))), kJpeg);
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", content(kJpeg, '\3', "\4image/jpeg\0"s)))), "(none)");
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", content(kJpeg, '\3', "\1image/jpeg\0"s, "a\0b"s)))),
              "(none)")
        << "words that do not end";
}

TEST(TagPicture, zerosAgainstFalseSoundAreTakenOut) {
    const std::string picture = kJpeg + "\xFF\0"s;
    std::string hidden;
    for (const char byte : picture) {
        hidden += byte;
        if (byte == '\xFF') {
            hidden += '\0';
        }
    }
    const std::string plain = frame("APIC", content(picture));
    std::string whole = plain.substr(0, plain.size() - picture.size()) + hidden;
    EXPECT_EQ(bytesOf(tag(3, whole, '\x80')), picture);
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", content(hidden), 7, "\0\2"s), '\x80')), picture);
    const std::string measured = number(content(picture).size(), 7) + content(hidden);
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", measured, 7, "\0\3"s))), picture);
}

TEST(TagPicture, framesThatCannotBeReadArePassedOver) {
    for (const char flag : {'\x80', '\x40'}) {
        EXPECT_EQ(bytesOf(tag(3, frame("APIC", content(kJpeg), 8, "\0"s + flag) +
                                     frame("APIC", content(kPng)))),
                  kPng);
    }
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", "g" + content(kJpeg), 8, "\0\x20"s))), kJpeg);
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", "", 7, "\0\1"s))), "(none)");
}

TEST(TagPicture, anExtendedHeadIsPassedOver) {
    const std::string picture = frame("APIC", content(kJpeg));
    EXPECT_EQ(bytesOf(tag(3, "\0\0\0\6\0\0\0\0\0\0"s + picture, '\x40')), kJpeg);
    EXPECT_EQ(bytesOf(tag(4, "\0\0\0\6\1\0"s + frame("APIC", content(kJpeg), 7), '\x40')), kJpeg);
    EXPECT_EQ(bytesOf(tag(4, "\x7F\x7F\x7F\x7F"s, '\x40')), "(none)");
    EXPECT_EQ(bytesOf(tag(3, "\0"s, '\x40')), "(none)");
}

TEST(TagPicture, sizesOfEightBitsWhereSevenAreMeantAreTaken) {
    const std::string large = kJpeg + std::string(300, 'x');
    EXPECT_EQ(bytesOf(tag(4, frame("APIC", content(large), 8) + frame("TIT2", "\3a"))), large);
    // The head of the tag, too: as this program writes it.
    const std::string frames = frame("TIT2", std::string(200, 'a')) + frame("APIC", content(large));
    EXPECT_EQ(bytesOf("ID3\3\0\0"s + number(frames.size(), 8) + frames + "\xFF\xFB sound"), large);
}

TEST(TagPicture, nothingIsReadOutsideOfTheTag) {
    const std::string whole = tag(3, frame("APIC", content(kJpeg)));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(bytesOf(whole.substr(0, length)), "(none)") << length;
    }
    EXPECT_EQ(bytesOf(tag(3, "APIC\xFF\xFF\xFF\xFF\0\0"s)), "(none)");
    EXPECT_EQ(bytesOf(tag(4, "APIC\x7F\x7F\x7F\x7F\0\0"s)), "(none)");
    EXPECT_EQ(bytesOf(tag(3, frame("APIC", ""))), "(none)");
    EXPECT_EQ(bytesOf(tag(2, "PIC\0\0\2\0J"s)), "(none)");
    EXPECT_EQ(bytesOf("no tag, and long enough for one"), "(none)");
}

TEST(TagPicture, ofAFile) {
    const test::TemporaryFolder folder;
    folder.write("a.mp3", tag(3, frame("APIC", content(kJpeg))) + "\xFF\xFB sound");
    const auto picture = pictureOfFile(folder / "a.mp3");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->bytes, kJpeg);
    EXPECT_FALSE(pictureOfFile(folder / "none.mp3"));
    EXPECT_FALSE(pictureOfFile(folder.path()));
    folder.write("empty.mp3", "");
    EXPECT_FALSE(pictureOfFile(folder / "empty.mp3"));
}

} // namespace
} // namespace tovik::tags
