// SPDX-License-Identifier: GPL-3.0-or-later
// Ripping with comfort, a member at a time.
#include "cd/RipRig.h"

#include "cd/EncoderLine.h"
#include "tags/FreshTags.h"

#include <fstream>
#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RipComfortTest : public test::RipRig {
protected:
    /// The names of the files that encoders were told to write.
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& encoder : sound_.encoders) {
            names.push_back(std::filesystem::path(encoder.command.output).filename());
        }
        return names;
    }

    [[nodiscard]] std::vector<std::string> filesOf(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }

    void leaveFiles() {
        sound_.onEncoder = [](const auto& encoder) {
            std::ofstream(encoder.command.output) << std::string(2000, 'm');
        };
    }

    /// The user cancels within the track with that number, from 1.
    void cancelWithin(std::size_t number) {
        for (auto& [track, sound] : sound_.discTracks) {
            sound.seconds = 100;
        }
        pump_.inStep = [this, number, steps = 0]() mutable {
            steps += callsOf("BASS_CD_StreamCreate").size() == number ? 1 : 0;
            disc_.CancelRip = disc_.CancelRip || steps == 4;
            return true;
        };
    }

    base::Comfort& comfort_ = state_.comfort;
};

} // namespace

TEST_F(RipComfortTest, aCancelEndsTheJobAndLeavesNoPart) {
    comfort_.endsJobWithCancel = comfort_.removesPartFiles = true;
    const std::vector<std::pair<std::string, std::string>> formats{{"MP3 CBR", "Song 1.mp3"},
                                                                   {"OGG Vorbis CBR", "Song 1.ogg"},
                                                                   {"WAV", "TRACK1.WAV"},
                                                                   {"WMA", "Song 1.WMA"}};
    for (const auto& [format, first] : formats) {
        set("DOF", format);
        std::filesystem::remove_all(music());
        sound_.calls.clear();
        leaveFiles();
        cancelWithin(2);
        ripping_.Rip_All();
        EXPECT_EQ(callsOf("BASS_CD_StreamCreate").size(), 2U) << format;
        EXPECT_THAT(filesOf(album("")), ElementsAre(first)) << format;
        EXPECT_FALSE(state_.RipRunning);
        EXPECT_THAT(logged(), IsEmpty()) << format;
        EXPECT_THAT(told(), IsEmpty()) << format;
    }
}

TEST_F(RipComfortTest, eachOfBothMayBeAlone) {
    comfort_.endsJobWithCancel = true;
    leaveFiles();
    cancelWithin(2);
    ripping_.Rip_All();
    EXPECT_THAT(filesOf(album("")), ElementsAre("Song 1.mp3", "Song 2.mp3"));
    comfort_.endsJobWithCancel = false;
    comfort_.removesPartFiles = true;
    std::filesystem::remove_all(music());
    sound_.calls.clear();
    cancelWithin(1);
    ripping_.Rip_All();
    EXPECT_EQ(callsOf("BASS_CD_StreamCreate").size(), 3U);
    EXPECT_THAT(filesOf(album("")), IsEmpty());
}

TEST_F(RipComfortTest, aTrackThatWasWholeWhenTheUserCancelledStays) {
    comfort_.endsJobWithCancel = comfort_.removesPartFiles = true;
    leaveFiles();
    pump_.inStep = [this] {
        disc_.CancelRip = sound_.encoders.size() == 1 &&
                          sound_.encoders[0].bytes == static_cast<std::size_t>(kTrackBytes);
        return true;
    };
    ripping_.Rip_All();
    EXPECT_THAT(filesOf(album("")), ElementsAre("Song 1.mp3"));
    EXPECT_GT(std::filesystem::file_size(album("Song 1.mp3")), 2128U) << "with its tags";
}

TEST_F(RipComfortTest, bothTagsAreComplete) {
    comfort_.fillsBothTags = true;
    form_.V1Genre = 17;
    leaveFiles();
    ripping_.Rip_All();
    const tags::FreshTags expected{.title = "Song 3",
                                   .artist = "Artist",
                                   .album = "Album",
                                   .year = "1999",
                                   .genre = "Rock",
                                   .encodedBy = "Tovik",
                                   .genreNumber = 17,
                                   .track = 3};
    EXPECT_EQ(host_.folder.read("Music/Artist-Album/Song 3.mp3"),
              tags::freshHead(expected) + std::string(2000, 'm') + tags::freshTail(expected));
    form_.V1Genre = -1;
    ripping_.WriteMp3Tag(host_.folder.write("a.mp3", "mmm"), 0);
    EXPECT_EQ(host_.folder.read("a.mp3").back(), '\xFF') << "no genre";
    ripping_.WriteMp3Tag(host_.folder / "none.mp3", 0);
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("TSR,WriteMp3Tag")));
}

TEST_F(RipComfortTest, oggIsTaggedByItsProgram) {
    comfort_.fillsBothTags = true;
    set("DOF", "OGG Vorbis VBR");
    form_.Text1[1].clear();
    ripping_.Rip_All();
    EXPECT_THAT(sound_.encoders.at(1).command.arguments,
                ElementsAre("--utf8", "-t", "Song 2", "-a", "Artist", "-l", "Album", "-G", "Rock",
                            "-N", "2", "-b", "131", "-", "-o", album("Song 2.ogg")));
    set("DOF", "MP3 CBR");
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.Rip_All();
    EXPECT_THAT(sound_.encoders.back().command.arguments,
                ElementsAre("-b", "128", "-", album("Song 3.mp3")));
}

TEST_F(RipComfortTest, wmaStaysInTheFolderOfAnAlbumWithoutAName) {
    set("DOF", "WMA");
    form_.Text1 = {};
    form_.Text2 = {};
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.at(0).command.output, music() + "/Song 1.WMA");
    comfort_.keepsWmaInAlbum = true;
    std::filesystem::remove_all(music());
    sound_.encoders.clear();
    ripping_.Rip_All();
    const std::filesystem::path file(sound_.encoders.at(0).command.output);
    EXPECT_EQ(file.filename(), "Song 1.WMA");
    EXPECT_THAT(file.parent_path().filename().string(), testing::StartsWith("Label 4 ("));
}

TEST_F(RipComfortTest, equalNamesGetNumbers) {
    form_.List1 = {"Song", "Song", "Song"};
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre("Song.mp3", "Song.mp3", "Song.mp3"));
    comfort_.numbersEqualNames = true;
    sound_.encoders.clear();
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre("Song.mp3", "Song (2).mp3", "Song (3).mp3"));
}

TEST_F(RipComfortTest, filesOfAnEarlierRipStay) {
    comfort_.keepsEarlierRips = true;
    host_.folder.write("Music/Artist-Album/Song 2.mp3", "earlier");
    host_.folder.write("Music/Artist-Album/TRACK1.WAV", "earlier");
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre("Song 1.mp3", "Song 2 (2).mp3", "Song 3.mp3"));
    set("DOF", "WAV");
    ripping_.Rip_All();
    EXPECT_TRUE(std::filesystem::exists(album("TRACK1 (2).WAV")));
    EXPECT_EQ(host_.folder.read("Music/Artist-Album/TRACK1.WAV"), "earlier");
    EXPECT_EQ(host_.folder.read("Music/Artist-Album/Song 2.mp3"), "earlier");
    EXPECT_THAT(told(), testing::Not(testing::Contains(HasSubstr("is there")))) << "no question";
}

TEST_F(RipComfortTest, aJobEndsByTheComfortThatItBeganWith) {
    comfort_.playsWhileRipping = comfort_.numbersEqualNames = true;
    form_.List1 = {"Song", "Song", "Song"};
    sound_.onEncoder = [this](const auto& /*encoder*/) { comfort_ = {}; };
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre("Song.mp3", "Song (2).mp3", "Song (3).mp3"));
    EXPECT_THAT(callsOf("BASS_Free"), IsEmpty()) << "what plays would end";
    sound_.encoders.clear();
    host_.dialogs.answers = {host::MessageAnswer::Yes};
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre("Song.mp3", "Song.mp3", "Song.mp3")) << "the next one";
    EXPECT_THAT(callsOf("BASS_Free"), testing::Not(IsEmpty()));
}

TEST_F(RipComfortTest, namesAreCleaned) {
    comfort_.cleansRipNames = true;
    form_.Text2[0] = "AC/DC";
    form_.Text1[0] = "Live: at...";
    form_.List1 = {"..", "What?\n \"now\" ", "a\\b."};
    ripping_.Rip_All();
    EXPECT_THAT(files(), ElementsAre(".._.mp3", "What now.mp3", "a-b.mp3"));
    EXPECT_THAT(sound_.encoders.at(0).command.output, HasSubstr("/AC-DC-Live- at/"));
}

TEST_F(RipComfortTest, aRefusedTrackIsRippedFromTheDialog) {
    std::filesystem::create_directories(music() + "/Artist-Album");
    tracks_.SelectIndex(2);
    ripping_.hooks.showDisc = [this] {
        form_.Text1[0] = "Other";
        ripping_.Rip_All();
    };
    ripping_.mnuRipSel();
    EXPECT_EQ(sound_.encoders.size(), 3U) << "the whole disc";
    comfort_.ripsRefusedTrack = true;
    form_.Text1[0] = "Album";
    std::filesystem::remove_all(music() + "/Artist-Other");
    sound_.encoders.clear();
    ripping_.mnuRipSel();
    EXPECT_THAT(files(), ElementsAre("Song 2.MP3"));
    EXPECT_THAT(sound_.encoders.at(0).command.output, HasSubstr("Artist-Other"));
    // A disc that was refused is a disc; and a track that was not is forgotten.
    form_.Text1[0] = "Album";
    std::filesystem::remove_all(music() + "/Artist-Other");
    sound_.encoders.clear();
    ripping_.Rip_All();
    EXPECT_EQ(sound_.encoders.size(), 3U);
}

TEST_F(RipComfortTest, whatPlaysGoesOn) {
    comfort_.playsWhileRipping = true;
    for (const char* const format : {"MP3 CBR", "WAV", "WMA"}) {
        set("DOF", format);
        std::filesystem::remove_all(music());
        ripping_.Rip_All();
    }
    EXPECT_THAT(callsOf("Stop_play"), IsEmpty());
    EXPECT_THAT(callsOf("BASS_Free"), IsEmpty());
    EXPECT_TRUE(sound_.initialized);
    EXPECT_EQ(sound_.encoders.size(), 6U);
}

TEST_F(RipComfortTest, aTrackStartsWhileADiscIsRipped) {
    addRows(2, {.seconds = 60});
    for (const bool kind : {false, true}) {
        comfort_.playsWhileRipping = !kind; // how the job began counts
        sound_.calls.clear();
        state_.IsPlaying = false;
        state_.RipRunning = true;
        state_.RipSparesSound = kind;
        rowPlayer_.playItem(0);
        EXPECT_EQ(state_.IsPlaying, kind);
        EXPECT_THAT(callsOf("BASS_Free"), IsEmpty()) << "the rip would end";
        state_.RipRunning = state_.RipSparesSound = false;
    }
}

TEST_F(RipComfortTest, whoAsksMeanwhileHearsHowTheJobBegan) {
    for (const bool kind : {false, true}) {
        comfort_.playsWhileRipping = kind;
        std::filesystem::remove_all(music());
        std::vector<bool> held;
        sound_.onEncoder = [&](const auto& /*encoder*/) {
            comfort_.playsWhileRipping = !kind; // in the preferences
            held.push_back(state_.ripHoldsSound());
        };
        ripping_.Rip_All();
        ASSERT_THAT(held, testing::Not(IsEmpty()));
        EXPECT_THAT(held, testing::Each(!kind));
        EXPECT_FALSE(state_.ripHoldsSound());
        EXPECT_FALSE(state_.RipSparesSound);
    }
}

} // namespace tovik::cd
