// SPDX-License-Identifier: GPL-3.0-or-later
// Stations with comfort: what is saved where, and what is told.
#include "radio/Sounds.h"
#include "radio/StationRig.h"

#include <filesystem>

namespace tovik::test {
namespace {

using sound::StreamStage;
using sound::StreamTrouble;

/// Counts how often the button was to be shown anew.
class ButtonView final : public player::NowPlayingView {
public:
    int told = 0;

    void showRecording() override { ++told; }
};

class StationComfortTest : public StationRig {
protected:
    StationComfortTest() {
        player_.songFolder = [this] { return folder_; };
    }

    [[nodiscard]] static std::string frames(char first, char last) {
        std::string sound;
        for (char sign = first; sign <= last; ++sign) {
            sound += mpegFrame(sign);
        }
        return sound;
    }

    /// Saves a song of a station that sounds.
    void save() {
        start();
        sounds();
        player_.record(true);
        sound_.metadataComes(stream(), "StreamTitle='Song';");
        sound_.bytesCome(stream(), frames('a', 'h'));
    }

    base::Comfort& comfort_ = state_.comfort;
    std::string folder_ = host_.folder / "radio";
};

TEST_F(StationComfortTest, aStationStartsBesideARipThatLeavesTheSound) {
    RadioLst_.AddItem("", "http://one.example/", "One", "", 0);
    state_.RipRunning = comfort_.playsWhileRipping = true;
    player_.playRow(1);
    EXPECT_FALSE(state_.RadioMode) << "the job began without comfort";
    state_.RipSparesSound = true;
    comfort_.playsWhileRipping = false;
    player_.playRow(1);
    EXPECT_TRUE(state_.RadioMode);
}

TEST_F(StationComfortTest, songsGoToTheFolderOfTheRadio) {
    comfort_.savesPlainSongs = comfort_.savesToRadioFolder = true;
    save();
    EXPECT_EQ(host_.folder.read("radio/Song.mp3"), frames('a', 'g'));
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "Song.mp3"));
}

TEST_F(StationComfortTest, withoutThatOrWithoutAFolderTheyStayWhereTheyWere) {
    comfort_.savesPlainSongs = true;
    save();
    EXPECT_EQ(host_.folder.read("Song.mp3"), frames('a', 'g'));
    comfort_.savesToRadioFolder = true;
    folder_.clear();
    player_.record(false);
    player_.record(true);
    sound_.metadataComes(stream(), "StreamTitle='Next';");
    sound_.bytesCome(stream(), frames('a', 'h'));
    EXPECT_TRUE(std::filesystem::exists(host_.folder / "Next.mp3"));
}

TEST_F(StationComfortTest, theStationGivesItsNameToWhatHasNone) {
    comfort_.savesPlainSongs = comfort_.savesUntitled = true;
    start();
    sounds({"ICY 200 OK", "icy-name:Jazz FM"});
    player_.record(true);
    sound_.bytesCome(stream(), frames('a', 'h'));
    EXPECT_TRUE(std::filesystem::exists(host_.folder / "Jazz FM.mp3"));
}

TEST_F(StationComfortTest, aSongGoesOnWhenItsStationComesBack) {
    comfort_.savesPlainSongs = comfort_.numbersSavedSongs = true;
    save();
    over(StreamStage::ended);
    advance(1100);
    sound_.metadataComes(stream(), "StreamTitle='Song';");
    sound_.bytesCome(stream(), frames('i', 'm'));
    EXPECT_EQ(host_.folder.read("Song.mp3"), frames('a', 'h') + frames('i', 'l'));
}

TEST_F(StationComfortTest, titlesAreShownWhole) {
    comfort_.readsTitlesWhole = true;
    start();
    sounds();
    heard("StreamTitle='AC; DC &amp; more';StreamUrl='x';");
    EXPECT_EQ(playing_.caption, " AC; DC & more");
    comfort_.readsTitlesWhole = false;
    heard("StreamTitle='AC; DC';");
    EXPECT_EQ(playing_.caption, " A");
}

TEST_F(StationComfortTest, theButtonShowsThatANewStationIsNotSaved) {
    ButtonView button;
    core_.screen.add(button);
    const auto toldOfButton = [&](bool shows) {
        comfort_.showsSavingAsItIs = shows;
        start();
        player_.record(true);
        const int before = button.told;
        start("http://two.example/", "Two");
        EXPECT_FALSE(state_.StreamRecording);
        return button.told - before;
    };
    EXPECT_EQ(toldOfButton(false), 0);
    EXPECT_EQ(toldOfButton(true), 1);
    core_.screen.remove(button);
}

TEST_F(StationComfortTest, aStationThatDoesNotAnswerIsTold) {
    comfort_.tellsDeadStations = true;
    start();
    over(StreamStage::failed, StreamTrouble::refused);
    EXPECT_EQ(playing_.scrollerText, " the station does not answer");
    EXPECT_EQ(playing_.stationText, "One\nthe station does not answer");
    advance(1100);
    ASSERT_EQ(sound_.opened.size(), 2U) << "it is tried again";
    EXPECT_EQ(playing_.scrollerText, " the station does not answer");
    sounds();
    over(StreamStage::ended);
    EXPECT_EQ(playing_.scrollerText, " reconnecting") << "it sounded";
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

TEST_F(StationComfortTest, anAddressWithoutSoundIsTold) {
    comfort_.tellsDeadStations = true;
    start();
    over(StreamStage::failed, StreamTrouble::notAudio);
    EXPECT_EQ(playing_.scrollerText, " no sound at this address");
    start();
    over(StreamStage::failed, StreamTrouble::nameNotFound);
    EXPECT_EQ(playing_.scrollerText, " no such station");
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

TEST_F(StationComfortTest, whatCannotBeSavedIsLoggedAndTheButtonGoesBack) {
    comfort_.savesAnyFormat = true;
    start();
    sounds();
    player_.record(true);
    sound_.bytesCome(stream(), std::string(300'000, 'x'));
    look();
    EXPECT_FALSE(state_.StreamRecording);
    EXPECT_EQ(logged().size(), 1U);
    advance(2000);
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

} // namespace
} // namespace tovik::test
