// SPDX-License-Identifier: GPL-3.0-or-later
// The file or list that the program was started with.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using playlist::RowText;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Argument : public AppRig {
protected:
    void startWith(const std::string& text) {
        options_.commandLine = text;
        start();
    }

    void startWithFile(const std::string& path) { startWith("\"" + path + "\""); }

    [[nodiscard]] std::string title(playlist::Row row) {
        return std::string(player().stdSS().text(row, RowText::Title));
    }

    /// A tag of 128 bytes behind some sound.
    static std::string tagged(std::string title, std::string artist) {
        title.resize(30, ' ');
        artist.resize(30, '\0');
        return "sound" + std::string(200, 's') + "TAG" + title + artist + std::string(65, '\0');
    }
};

TEST_F(Argument, aFileBecomesTheOneRowAndPlays) {
    const std::string path = track("song.mp3");
    startWithFile(path);
    EXPECT_FALSE(player().state().NoCommandLine);
    ASSERT_EQ(player().stdSS().ListCount(), 1);
    EXPECT_EQ(title(1), "song.mp3");
    EXPECT_EQ(player().stdSS().text(1, RowText::FileName), path);
    EXPECT_EQ(player().stdSS().text(1, RowText::TimeText), "00:00");
    EXPECT_EQ(player().stdSS().SelectedIndex, 1);
    EXPECT_EQ(player().List1().ListIndex(), 0);
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_TRUE(player().music().sounds());
    EXPECT_EQ(player().state().TracksStarted, 1);
}

TEST_F(Argument, itPlaysBehindTheWindowAndBeforeTheCaptionOfTheStart) {
    startWithFile(track("song.mp3"));
    const auto place = [this](const std::string& call) {
        return std::ranges::find(sound_.calls, call) - sound_.calls.begin();
    };
    EXPECT_LT(place("window shown"), place("BASS_Free()"));
    EXPECT_LT(place("caption song.mp3 (01:05)"), place("not on top"));
    EXPECT_EQ(sound_.calls.back(), "caption Tovik 0.1");
}

TEST_F(Argument, theTitleIsArtistAndTitleWhenTheTagHasBoth) {
    startWithFile(track("song.mp3", {.seconds = 65}, tagged("Title", "Artist")));
    EXPECT_EQ(title(1), "Artist-Title");
}

TEST_F(Argument, orTheNameOfTheFile) {
    startWithFile(track("song.mp3", {.seconds = 65}, tagged("Title", "")));
    EXPECT_EQ(title(1), "song.mp3");
}

TEST_F(Argument, blanksAreNoTitle) {
    startWithFile(track("song.mp3", {.seconds = 65}, tagged("     ", "Artist")));
    EXPECT_EQ(title(1), "song.mp3");
}

TEST_F(Argument, aSwitchBeforeTheNameIsNotLookedAt) {
    startWith("/ADD \"" + track("song.mp3") + R"(" "other.mp3")");
    EXPECT_EQ(player().stdSS().ListCount(), 1);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(Argument, textWithoutQuotesIsOneName) {
    const std::string path = track("song.mp3");
    startWith(path);
    EXPECT_EQ(player().stdSS().text(1, RowText::FileName), path);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(Argument, aDoubleQuoteInANameTravelsAsAnotherByte) {
    const std::string path = track("a \"quoted\" song.mp3");
    std::string travelling = path;
    std::ranges::replace(travelling, '"', '\x1F');
    startWithFile(travelling);
    EXPECT_EQ(player().stdSS().text(1, RowText::FileName), path);
    EXPECT_EQ(title(1), "a \"quoted\" song.mp3");
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(Argument, aFileThatCannotBePlayedIsARowWithoutSound) {
    startWithFile(host_.folder.write("text.mp3", "text"));
    EXPECT_EQ(title(1), "text.mp3");
    EXPECT_FALSE(player().state().IsPlaying);
    EXPECT_FALSE(player().music().sounds());
    EXPECT_EQ(window_.caption, "Tovik 0.1");
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Argument, aListIsReadAndItsFirstRowPlays) {
    const std::string path =
        host_.folder.write("list.M3u", "#EXTM3U\n#EXTINF:65,One\n" + track("one.mp3") +
                                           "\n#EXTINF:70,Two\n" + track("two.mp3") + "\n");
    startWithFile(path);
    ASSERT_EQ(player().stdSS().ListCount(), 2);
    EXPECT_EQ(title(2), "Two");
    EXPECT_EQ(player().state().CurrentTitle, "One");
    EXPECT_EQ(player().List1().ListIndex(), 0);
    EXPECT_EQ(player().stdSS().SelectedIndex, 1);
    EXPECT_TRUE(player().state().IsPlaying);
}

class MissingArgument : public Argument, public testing::WithParamInterface<const char*> {};

TEST_P(MissingArgument, isNamedAndTheStartGoesOn) {
    const std::string path = host_.folder / GetParam();
    startWithFile(path);
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "File not found: " + path);
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Tovik");
    EXPECT_THAT(logged(), ElementsAre("File not found: " + path + ",53,Player,Load"));
    EXPECT_EQ(player().stdSS().ListCount(), 0);
    EXPECT_EQ(player().state().TracksStarted, 0);
    EXPECT_THAT(sound_.calls, Contains("window shown"));
    EXPECT_THAT(sound_.calls, Contains("not on top"));
    EXPECT_NE(setting("SHWND"), "0");
}

INSTANTIATE_TEST_SUITE_P(Names, MissingArgument,
                         testing::Values("none.m3u", "none.pls", "none.mp3", "none"));

TEST_F(Argument, whatIsNoFileIsNamedToo) {
    std::filesystem::create_directory(host_.folder / "folder.mp3");
    startWithFile(host_.folder / "folder.mp3");
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_THAT(host_.dialogs.boxes[0].text, testing::HasSubstr(host_.folder / "folder.mp3"));
    EXPECT_EQ(player().stdSS().ListCount(), 0);
}

TEST_F(Argument, aTrackOfADiscIsNoFile) {
    sound_.drives.resize(1);
    sound_.discTracks[6] = {.kind = FakeKind::disc, .seconds = 100};
    startWithFile("D:\\Track07.cda");
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Argument, aListOfTheOtherKindIsNotMisread) {
    startWithFile(host_.folder.write("list.pls", "[playlist]\nFile1=" + track("one.mp3") + "\n"));
    for (playlist::Row row = 1; row <= player().stdSS().ListCount(); ++row) {
        EXPECT_NE(title(row), "[playlist]");
        EXPECT_NE(player().stdSS().text(row, RowText::FileName), "[playlist]");
    }
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Argument, theListOfTheLastSessionIsNeitherReadNorReplaced) {
    const std::string saved = "#EXTM3U\r\n#EXTINF:10,Old\r\n/music/old.mp3\r\n";
    host_.folder.write(kList, saved);
    startWithFile(track("song.mp3"));
    advance(5000);
    EXPECT_EQ(player().stdSS().ListCount(), 1);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList), saved);
}

TEST_F(Argument, aModulePlaysForEver) {
    startWithFile(track("song.xm", {.kind = FakeKind::music, .seconds = 65}));
    EXPECT_TRUE(player().music().playsForEver());
    player().music().playback.transport.Stop_play();
    EXPECT_FALSE(player().music().playsForEver());
}

TEST_F(Argument, aStreamDoesNot) {
    startWithFile(track("song.mp3"));
    EXPECT_FALSE(player().music().playsForEver());
    EXPECT_TRUE(player().music().sounds());
    sound_.channel(player().state().PrimaryChannel).activity = sound::Activity::stopped;
    EXPECT_FALSE(player().music().sounds());
}

TEST_F(Argument, withComfortTheCaptionIsItsTitle) {
    put("CMF22", "1");
    startWithFile(track("song.mp3"));
    EXPECT_EQ(window_.caption, " song.mp3 (01:05)");
}

TEST_F(Argument, withComfortTheCaptionOfAPlainStartIsThatOfTheProgram) {
    put("CMF22", "1");
    start();
    EXPECT_EQ(window_.caption, "Tovik 0.1");
}

class ComfortArgument : public Argument {
protected:
    ComfortArgument() {
        put("CMF10", "1");
        host_.folder.write(kList, "#EXTM3U\r\n#EXTINF:10,Old\r\n/music/old.mp3\r\n"
                                  "#EXTINF:11,Older\r\n/music/older.mp3\r\n");
    }

    [[nodiscard]] std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (playlist::Row row = 1; row <= player().stdSS().ListCount(); ++row) {
            titles.push_back(title(row));
        }
        return titles;
    }
};

TEST_F(ComfortArgument, theSavedListComesTooAndTheFileIsBehindIt) {
    const std::string path = track("song.mp3", {.seconds = 65}, tagged("Song", "Artist"));
    startWithFile(path);
    EXPECT_THAT(titles(), ElementsAre("Artist-Song"));
    EXPECT_TRUE(player().state().IsPlaying);
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("Old", "Older", "Artist-Song"));
    EXPECT_EQ(player().stdSS().SoundingRow(), 3);
    EXPECT_EQ(player().stdSS().SelectedIndex, 3);
    EXPECT_FALSE(player().commands().enabled(commands::CommandId::undoList));
    player().kill_me();
    EXPECT_THAT(host_.folder.read(kList), testing::EndsWith(path + "\r\n"));
    EXPECT_THAT(host_.folder.read(kList), testing::HasSubstr("/music/old.mp3\r\n"));
}

TEST_F(ComfortArgument, allFilesOfTheLineCount) {
    startWith("\"" + track("a.mp3") + "\" \"" + track("b.mp3") + "\"");
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("Old", "Older", "a.mp3", "b.mp3"));
    EXPECT_EQ(player().stdSS().SoundingRow(), 3);
}

TEST_F(ComfortArgument, theFirstThatPlaysDoes) {
    put("CMF06", "1");
    const std::string bad = host_.folder / "bad.mp3";
    host_.folder.write("bad.mp3", "");
    startWith("\"" + bad + "\" \"" + track("a.mp3") + "\" \"" + track("b.mp3") + "\"");
    advance(400);
    EXPECT_THAT(titles(), ElementsAre("Old", "Older", "bad.mp3", "a.mp3", "b.mp3"));
    EXPECT_TRUE(player().stdSS().isUnplayable(3));
    EXPECT_EQ(player().stdSS().SoundingRow(), 4);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(ComfortArgument, oneThatDoesNotPlayIsNotGoneOverAlone) {
    put("CMF06", "1");
    const std::string bad = host_.folder / "bad.mp3";
    host_.folder.write("bad.mp3", "");
    startWithFile(bad);
    advance(400);
    EXPECT_TRUE(player().stdSS().isUnplayable(3));
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(ComfortArgument, theSwitchOnlyAdds) {
    startWith("/ADD \"" + track("song.mp3") + "\"");
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("Old", "Older", "song.mp3"));
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(ComfortArgument, aFileThatIsMissingIsToldAndTheListComes) {
    startWithFile(host_.folder / "none.mp3");
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("Old", "Older"));
    EXPECT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(ComfortArgument, whereNoListIsKeptNoneIsRead) {
    options_.keepsList = false;
    startWithFile(track("song.mp3"));
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("song.mp3"));
    EXPECT_TRUE(player().state().IsPlaying);
}

} // namespace
} // namespace tovik::test
