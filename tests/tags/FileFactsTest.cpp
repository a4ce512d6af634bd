// SPDX-License-Identifier: GPL-3.0-or-later
// What files of all formats say of themselves.
#include "tags/FileFacts.h"

#include "tags/EditedBytes.h"
#include "tags/Samples.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tovik::tags {
namespace {

using namespace std::string_literals;

FileFacts factsOfMedia(const std::string& name) {
    return factsOfFile(std::getenv("TOVIK_MEDIA") + "/"s + name);
}

FileFacts factsOfText(const std::string& text, const std::string& name = {}) {
    EditedBytes bytes(text);
    return factsOfBytes(bytes, name);
}

std::string wide(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char letter : text) {
        bytes += letter + "\0"s;
    }
    return bytes;
}

std::string mp3(const std::string& frames) {
    return samples::head(samples::sevenBits(static_cast<std::uint32_t>(frames.size()))) + frames +
           samples::sound(20);
}

std::string v1(const std::string& title, const std::string& artist) {
    return "TAG" + samples::field(title, 30) + samples::field(artist, 30) + samples::field("", 30) +
           "1999" + samples::field("", 28) + "\0\7\x11"s;
}

TEST(FileFacts, bothTagsOfMp3) {
    const FileFacts facts = factsOfMedia("mp3_id3_both.mp3");
    EXPECT_EQ(facts.artist, "Tovik");
    EXPECT_EQ(facts.title, "Tagged tone");
    EXPECT_EQ(facts.album, "Test media");
    EXPECT_EQ(facts.year, "2004");
    EXPECT_EQ(facts.hertz, 44100);
    ASSERT_TRUE(facts.mpeg);
    EXPECT_EQ(facts.mpeg->version, "1.0");
    EXPECT_EQ(facts.mpeg->layer, "3");
    EXPECT_EQ(factsOfMedia("mp3_id3v1.mp3").genre, "Other");
    EXPECT_EQ(factsOfMedia("mp3_id3v1.mp3").title, "Tagged tone");
}

TEST(FileFacts, textsOfId3v2AreDecoded) {
    const FileFacts facts = factsOfText(
        mp3(samples::frame("TIT2", "\1"s + wide("Wide\nwords  ")) +
            samples::frame("TPE1", "\0Bj\xF6rk"s) + samples::frame("TALB", "\3Caf\xC3\xA9"s) +
            samples::frame("TCON", "\0(17)"s) + samples::frame("TRCK", "\0"s + "4/12") +
            samples::frame("TPOS", "\0"s + "2/2") + samples::frame("TYER", "\0"s + "1987")));
    EXPECT_EQ(facts.title, "Wide words") << "on one line, without blanks";
    EXPECT_EQ(facts.artist, "Bj\xC3\xB6rk");
    EXPECT_EQ(facts.album, "Caf\xC3\xA9");
    EXPECT_EQ(facts.genre, "Rock");
    EXPECT_EQ(facts.track, 4);
    EXPECT_EQ(facts.disc, 2);
    EXPECT_EQ(facts.year, "1987");
    EXPECT_EQ(facts.kilobits, 128);
}

TEST(FileFacts, textsOfId3v1) {
    const FileFacts facts = factsOfText(samples::sound(20) + v1("Ol\xE9 \x80", "Some\0junk"s));
    EXPECT_EQ(facts.title, "Ol\xC3\xA9 \xE2\x82\xAC") << "as Windows-1252";
    EXPECT_EQ(facts.artist, "Some");
    EXPECT_EQ(facts.genre, "Rock");
    EXPECT_EQ(facts.track, 7);
}

TEST(FileFacts, flacWithItsPicture) {
    const std::string picture = "\xFF\xD8\xFF\xE0 a jpeg";
    const std::string file = samples::flac({"TITLE=Song", "artist=Band", "ALBUM=Disc",
                                            "DATE=2001-05-01", "TRACKNUMBER=3", "GENRE=Shoegaze"},
                                           picture);
    const FileFacts facts = factsOfText(file);
    EXPECT_EQ(facts.title, "Song");
    EXPECT_EQ(facts.artist, "Band");
    EXPECT_EQ(facts.album, "Disc");
    EXPECT_EQ(facts.year, "2001");
    EXPECT_EQ(facts.track, 3);
    EXPECT_EQ(facts.genre, "Shoegaze");
    EXPECT_EQ(facts.seconds, 2);
    EXPECT_EQ(facts.bits, 16);
    EXPECT_FALSE(facts.mpeg);
    EditedBytes bytes(file);
    const auto found = pictureOfBytes(bytes, {});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->bytes, picture);
    EXPECT_EQ(found->form, PictureForm::jpeg);
}

TEST(FileFacts, lengthsOfAllFormats) {
    struct Row {
        const char* name;
        int seconds;
        int hertz;
    };

    for (const Row& row :
         {Row{"ogg_44100.ogg", 3, 44100}, Row{"ogg_48000.ogg", 3, 48000},
          Row{"wma_44100.wma", 3, 44100}, Row{"flac_24_48000.flac", 3, 48000},
          Row{"wav_s16_44100_stereo.wav", 3, 44100}, Row{"aiff_s16_44100_stereo.aif", 3, 44100},
          Row{"mp3_22050.mp3", 3, 22050}, Row{"layer2.mp2", 3, 44100}}) {
        const FileFacts facts = factsOfMedia(row.name);
        EXPECT_EQ(facts.seconds, row.seconds) << row.name;
        EXPECT_EQ(facts.hertz, row.hertz) << row.name;
    }
    EXPECT_EQ(factsOfMedia("mp3_22050.mp3").mpeg.value().version, "2.0");
    EXPECT_EQ(factsOfMedia("layer2.mp2").mpeg.value().layer, "2");
}

TEST(FileFacts, titlesOfModules) {
    for (const char* const name : {"song.mod", "song.xm", "song.it", "song.s3m"}) {
        EXPECT_EQ(factsOfMedia(name).title, "tovik test song") << name;
    }
}

TEST(FileFacts, aFileIsWhatItHolds) {
    const std::string file = samples::flac({"TITLE=Song"}, "x");
    EXPECT_EQ(factsOfText(file, "song.mp3").title, "Song");
    EXPECT_EQ(factsOfText(file, "song").title, "Song");
}

TEST(FileFacts, whatIsNoMusicSaysNothing) {
    for (const char* const name : {"noise.ogg", "noise_plain.mp3", "empty.mp3", "text.mp3",
                                   "noise.flac", "noise.wma", "missing.mp3"}) {
        const FileFacts facts = factsOfMedia(name);
        EXPECT_EQ(facts.title, "") << name;
        EXPECT_EQ(facts.artist, "") << name;
    }
}

TEST(FileFacts, anEmptyFileAndOneThatIsGoneCannotBePlayed) {
    EXPECT_TRUE(factsOfMedia("empty.mp3").nothing);
    EXPECT_TRUE(factsOfMedia("missing.mp3").nothing);
    EXPECT_FALSE(factsOfMedia("drive_that_is_away/missing.mp3").nothing);
    EXPECT_FALSE(factsOfMedia("text.mp3").nothing);
    EXPECT_FALSE(factsOfMedia("mp3_id3v1.mp3").nothing);
}

TEST(FileFacts, whatIsOnlyNamedAsAModuleIsNone) {
    std::string bytes(5000, 'x');
    EXPECT_EQ(factsOfText(bytes, "a.mod").title, "");
    bytes.replace(1080, 4, "M.K.");
    EXPECT_EQ(factsOfText(bytes, "a.mod").title, std::string(20, 'x'));
}

TEST(FileFacts, longTextsEndAtACharacter) {
    std::string title = "x";
    while (title.size() < 2 * kMostFactBytes) {
        title += "\xC3\xA9";
    }
    const FileFacts facts = factsOfText(samples::flac({"TITLE=" + title}, "x"));
    EXPECT_TRUE(facts.title == title.substr(0, kMostFactBytes - 1));
}

TEST(FileFacts, aLyingSizeCostsNothing) {
    const std::string head = samples::head(samples::sevenBits(0xFFFFFFF));
    EXPECT_EQ(factsOfText(head + samples::sound(3)).title, "");
    EXPECT_EQ(factsOfText("fLaC\4\xFF\xFF\xFF"s).title, "");
}

TEST(FileFacts, titlesOfRows) {
    EXPECT_EQ(listTitle({.artist = "A", .title = "T"}), "A - T");
    EXPECT_EQ(listTitle({.title = "T"}), "T");
    EXPECT_EQ(listTitle({.artist = "A"}), "");
}

TEST(FileFacts, whatFollowsOnAnAlbum) {
    const FileFacts one{.artist = "A", .album = "L", .track = 1, .disc = 1};
    const FileFacts two{.artist = "A", .album = "L", .track = 2, .disc = 1};
    EXPECT_TRUE(followsOnAlbum(one, two));
    EXPECT_FALSE(followsOnAlbum(two, one));
    EXPECT_FALSE(followsOnAlbum(one, one));
    EXPECT_FALSE(followsOnAlbum(one, {.artist = "B", .album = "L", .track = 2, .disc = 1}));
    EXPECT_FALSE(followsOnAlbum(one, {.artist = "A", .album = "M", .track = 2, .disc = 1}));
    EXPECT_FALSE(followsOnAlbum(one, {.artist = "A", .album = "L", .track = 2, .disc = 2}));
    EXPECT_FALSE(followsOnAlbum({.artist = "A", .track = 1}, {.artist = "A", .track = 2}));
    EXPECT_FALSE(followsOnAlbum({.album = "L"}, {.album = "L", .track = 1}));
}

} // namespace
} // namespace tovik::tags
