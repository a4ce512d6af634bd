// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationRig.h"
#include "support/host/FullDisk.h"

#include <filesystem>

namespace tovik::test {
namespace {

using sound::StreamStage;
using testing::HasSubstr;
using testing::Not;

class StationSavingTest : public StationRig {};

TEST_F(StationSavingTest, songsAreSavedFromTheButtonOn) {
    start();
    sounds();
    sound_.metadataComes(stream(), "StreamTitle='One';");
    player_.record(true);
    EXPECT_TRUE(state_.StreamRecording);
    sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    sound_.metadataComes(stream(), "StreamTitle='Two';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 b");
    player_.record(false);
    sound_.bytesCome(stream(), "c");
    EXPECT_THAT(host_.folder.read("One.mp3"), testing::EndsWith(" a"));
    EXPECT_THAT(host_.folder.read("Two.mp3"), testing::EndsWith(" b"));
}

TEST_F(StationSavingTest, aNewStationSavesNothingUntilToldTo) {
    start();
    sounds();
    player_.record(true);
    start("http://two.example/", "Two");
    EXPECT_FALSE(state_.StreamRecording);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "Song.mp3"));
}

TEST_F(StationSavingTest, savingGoesOnWhenAStationComesBack) {
    start();
    sounds();
    player_.record(true);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    over(StreamStage::ended);
    advance(1100);
    EXPECT_TRUE(state_.StreamRecording);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 b");
    const std::string saved = host_.folder.read("Song.mp3");
    EXPECT_THAT(saved, HasSubstr(" a"));
    EXPECT_THAT(saved, HasSubstr(" b"));
}

TEST_F(StationSavingTest, aBoxAboutAFileHoldsNothingUp) {
    start();
    sounds();
    player_.record(true);
    std::filesystem::create_directory(host_.folder / "One.mp3");
    std::filesystem::create_directory(host_.folder / "Two.mp3");
    sound_.metadataComes(stream(), "StreamTitle='One';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    host_.dialogs.onMessage = [this] {
        heard("StreamTitle='Two';");
        EXPECT_EQ(playing_.caption, " Two");
        sound_.metadataComes(stream(), "StreamTitle='Two';");
        sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
        look();
        EXPECT_EQ(host_.dialogs.boxes.size(), 1U) << "one box at a time";
        over(StreamStage::ended);
        advance(1100);
        sounds();
    };
    advance(2000);
    EXPECT_EQ(host_.dialogs.boxes.size(), 2U);
    EXPECT_EQ(sound_.opened.size(), 2U);
    EXPECT_TRUE(state_.StreamRecording);
    EXPECT_TRUE(sound_.lives(stream()));
}

TEST_F(StationSavingTest, theFileOfASongIsClosedWhenItsStationStops) {
    start();
    sounds();
    player_.record(true);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    const auto isOpen = [this] {
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code failure;
            if (std::filesystem::read_symlink(entry, failure) == host_.folder / "Song.mp3") {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(isOpen());
    transport_.button_stop();
    EXPECT_FALSE(isOpen());
}

TEST_F(StationSavingTest, savingGoesOnBehindAPause) {
    start();
    sounds();
    player_.record(true);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    const sound::DownloadRoutine late = station().download;
    transport_.pause();
    transport_.pause();
    ASSERT_EQ(sound_.opened.size(), 2U);
    late(std::as_bytes(std::span(std::string_view(" late"))), 0);
    sounds();
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), "\xFF\xFB\x90 b");
    const std::string saved = host_.folder.read("Song.mp3");
    EXPECT_THAT(saved, HasSubstr(" a"));
    EXPECT_THAT(saved, HasSubstr(" b"));
    EXPECT_THAT(saved, Not(HasSubstr("late")));
}

TEST_F(StationSavingTest, aFullDiskIsToldOnceAndTheSoundGoesOn) {
    start();
    sounds();
    player_.record(true);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    {
        const FullDisk full(2);
        sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
        sound_.bytesCome(stream(), "\xFF\xFB\x90 a");
    }
    advance(2000);
    EXPECT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_THAT(host_.dialogs.boxes.at(0).text, HasSubstr("Song.mp3"));
    EXPECT_FALSE(state_.StreamRecording);
    EXPECT_TRUE(sound_.lives(stream()));
    EXPECT_TRUE(state_.IsPlaying);
}

} // namespace
} // namespace tovik::test
