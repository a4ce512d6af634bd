// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/cMP3ID3v2.h"

#include "Samples.h"
#include "support/host/FullDisk.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace samples;

class Id3v2Update : public testing::Test {
protected:
    void load(const std::string& bytes) { tag_.MP3File(folder_.write("song.mp3", bytes)); }

    [[nodiscard]] std::string file() const { return folder_.read("song.mp3"); }

    /// What a tag with these frames looks like in front of everything, filled up to a size.
    [[nodiscard]] static std::string written(const std::string& frames, std::uint32_t size) {
        std::string bytes = head(bigEndian(size)) + frames + "\0\0\0\0"s;
        bytes.resize(size, '\0');
        return bytes;
    }

    test::TemporaryFolder folder_;
    test::RecordingDialogs dialogs_;
    TagWarning warning_{dialogs_};
    cMP3ID3v2 tag_{warning_};
    const std::string sound_ = sound(20);
};

TEST_F(Id3v2Update, aNewTagStandsInFrontOfTheSound) {
    load(sound_);
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file(), written("", 2048) + sound_);
    load(sound_);
    tag_.Title("Title");
    tag_.genre(17);
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file(),
              written(textFrame("TIT2", "Title") + textFrame("TCON", "(17)Rock"), 2048) + sound_);
    EXPECT_TRUE(dialogs_.boxes.empty());
}

TEST_F(Id3v2Update, theRoomIsAMultipleOf2048) {
    // Without its text the tag has 10 + 10 + 1 + 4 bytes.
    for (const auto& [text, size] : {std::pair{2022U, 2048U},
                                     {2023U, 4096U},
                                     {4070U, 4096U},
                                     {4071U, 6144U},
                                     {10000U, 10240U}}) {
        load(sound_);
        tag_.Title(std::string(text, 't'));
        EXPECT_TRUE(tag_.Update());
        EXPECT_EQ(file(), written(textFrame("TIT2", std::string(text, 't')), size) + sound_);
    }
}

TEST_F(Id3v2Update, aSmallerTagKeepsSizeAndRest) {
    load(sound_);
    tag_.Title(std::string(1000, 't'));
    tag_.Update();
    const std::string before = file();
    load(before);
    tag_.Title("short");
    EXPECT_TRUE(tag_.Update());
    const std::string fresh = head(bigEndian(2048)) + textFrame("TIT2", "short") + "\0\0\0\0"s;
    EXPECT_EQ(file(), fresh + before.substr(fresh.size()));
    load(file());
    EXPECT_EQ(tag_.Title(), "short");
    EXPECT_EQ(tag_.FrameCount(), 1); // what is left of old frames is not read
}

TEST_F(Id3v2Update, aTagThatDoesNotFitMovesTheSound) {
    load(sound_);
    tag_.Title("short");
    tag_.Update();
    load(file());
    tag_.Title(std::string(3000, 't'));
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file().size(), 4096 + sound_.size());
    EXPECT_EQ(file().substr(4096), sound_);
    load(file());
    EXPECT_EQ(tag_.Title(), std::string(3000, 't'));
}

TEST_F(Id3v2Update, theRoomEndsWhereSoundBegins) {
    // As other programs write it: 2048 bytes behind the head, which read plain are 4096.
    const std::string foreign = head(sevenBits(2048)) + textFrame("TALB", "Album");
    std::string padded = foreign;
    padded.resize(2058, '\0');
    load(padded + sound_);
    tag_.Title(std::string(1900, 't'));
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file().substr(2058), sound_);
    EXPECT_EQ(file().substr(6, 4), sevenBits(2048)); // others still find the sound
    load(padded + sound_);
    tag_.Title(std::string(2100, 't')); // less than the 4096 that the size tells
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file().size(), 4096 + sound_.size());
    EXPECT_EQ(file().substr(4096), sound_);
}

TEST_F(Id3v2Update, aSizeThatLiesCostsNoSound) {
    for (const std::uint32_t size :
         {0U, 1U, 9U, 500U, 5000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        std::string old = head(bigEndian(size)) + textFrame("TIT2", "old") + "\0\0\0\0"s;
        old.resize(300, '\0');
        load(old + sound_);
        tag_.Album("album");
        EXPECT_TRUE(tag_.Update());
        EXPECT_EQ(file().size(), 300 + sound_.size()) << size;
        EXPECT_EQ(file().substr(300), sound_) << size;
        load(file());
        EXPECT_EQ(tag_.Title(), "old") << size;
        EXPECT_EQ(tag_.Album(), "album") << size;
        load(old + sound_);
        tag_.Album(std::string(400, 'a'));
        EXPECT_TRUE(tag_.Update());
        EXPECT_EQ(file().size(), 2048 + sound_.size()) << size;
        EXPECT_EQ(file().substr(2048), sound_) << size;
    }
}

TEST_F(Id3v2Update, aMarkInsideTheFileIsNoTagToOverwrite) {
    const std::string bytes = "x" + tag(textFrame("TIT2", "Title")) + sound_;
    load(bytes);
    EXPECT_EQ(tag_.Title(), "Title");
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file(), written(textFrame("TIT2", "Title"), 2048) + bytes);
}

TEST_F(Id3v2Update, withoutSoundNothingIsOverwritten) {
    const std::string bytes = tag(textFrame("TIT2", "Title")) + "no sound at all";
    load(bytes);
    EXPECT_TRUE(tag_.Update());
    EXPECT_EQ(file(), written(textFrame("TIT2", "Title"), 2048) + bytes);
}

TEST_F(Id3v2Update, versions2And5AreReplacedLikeAnyOther) {
    for (const char version : {'\2', '\5'}) {
        std::string old = tag(textFrame("TIT2", "Title"), version);
        old.resize(300, '\0');
        load(old + sound_);
        EXPECT_TRUE(tag_.Update());
        EXPECT_EQ(file().substr(300), sound_);
        EXPECT_EQ(file()[3], 3);
        load(file());
        EXPECT_EQ(tag_.FrameCount(), 0);
    }
}

TEST_F(Id3v2Update, framesStandInTheOrderOfTheirIds) {
    load(tag(textFrame("TXXX", "a") + textFrame("TALB", "b") + textFrame("TXXX", "c")) + sound_);
    tag_.AddTag("ID3\x03", "another head");
    tag_.AddTag("xID3", "another head");
    tag_.Update();
    const std::string frames =
        textFrame("TXXX", "a") + textFrame("TXXX", "c") + textFrame("TALB", "b") + "\0\0\0\0"s;
    EXPECT_EQ(file().substr(10, frames.size()), frames);
}

TEST_F(Id3v2Update, anUnknownFrameKeepsTheTextBehindItsLastZeroByte) {
    load(tag(frame("APIC", "\0image/png\0\3\0\x89PNG"s)) + sound_);
    tag_.Update();
    load(file());
    EXPECT_EQ(tag_.FrameCount(), 1);
    EXPECT_EQ(tag_.TagText("APIC", 1), "\x89PNG");
}

TEST_F(Id3v2Update, linkAndLyricsDoNotComeBack) {
    load(sound_);
    tag_.LinkTo("link");
    tag_.Lyrics("lyrics");
    tag_.Comment("comment");
    tag_.Update();
    load(file());
    EXPECT_EQ(tag_.LinkTo(), "");
    EXPECT_EQ(tag_.Lyrics(), "");
    EXPECT_EQ(tag_.Comment(), "comment");
}

TEST_F(Id3v2Update, aMissingFileStaysMissing) {
    tag_.MP3File(folder_ / "none.mp3");
    EXPECT_FALSE(tag_.Update());
    EXPECT_TRUE(dialogs_.boxes.empty());
    warning_.TagSaving = true;
    EXPECT_FALSE(tag_.Update());
    EXPECT_EQ(dialogs_.boxes.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "none.mp3"));
}

TEST_F(Id3v2Update, aReadOnlyFileStaysAsItIs) {
    load(sound_);
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder_ / "song.mp3", std::filesystem::perms(0444));
    {
        const test::Unprivileged guard;
        EXPECT_FALSE(tag_.Update());
    }
    EXPECT_EQ(file(), sound_);
}

TEST_F(Id3v2Update, aFullDiskLeavesTheFileAsItWas) {
    load(sound_);
    warning_.TagSaving = true;
    tag_.Title("Title");
    warning_.TagWarned = false;
    {
        const test::FullDisk disk(sound_.size() + 1000);
        EXPECT_FALSE(tag_.Update());
    }
    EXPECT_EQ(file(), sound_);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1);
    EXPECT_FALSE(dialogs_.boxes.empty());
}

} // namespace
} // namespace tovik::tags
