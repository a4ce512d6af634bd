// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/CdNFORig.h"

#include <filesystem>

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Button = cd::frmCdNFO::Button;

class frmCdNFOTest : public CdNFORig {};

TEST_F(frmCdNFOTest, tracksAreNamedByTheirNumbers) {
    open();
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2"));
    EXPECT_EQ(worded_, 1);
    EXPECT_GE(shown_, 1);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(frmCdNFOTest, itStaysInFrontAsThePlayerDoes) {
    for (const bool front : {true, false}) {
        set("ASOT", front ? "1" : "0");
        open();
        EXPECT_EQ(dialog_.staysOnTop(), front);
    }
}

TEST_F(frmCdNFOTest, whatGoesWrongAtItsOpeningIsLogged) {
    takeOut("ASOT");
    open();
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("CDNFO,Load")));
    EXPECT_TRUE(host_.dialogs.boxes.empty());
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2"));
}

TEST_F(frmCdNFOTest, fieldsTakeWhatIsTyped) {
    open();
    dialog_.Text1_Change(0, "album");
    dialog_.Text1_Change(1, "year");
    dialog_.Text2_Change(0, "artist");
    dialog_.Text2_Change(2, "genre");
    EXPECT_THAT(form_.Text1, ElementsAre("album", "year"));
    EXPECT_THAT(form_.Text2, ElementsAre("artist", "", "genre"));
    EXPECT_THAT(told_, IsEmpty());
}

TEST_F(frmCdNFOTest, theSelectedTrackIsEdited) {
    open();
    dialog_.Text2_Change(1, "nothing is selected");
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2"));
    EXPECT_EQ(dialog_.Get_Selected(), std::nullopt);
    dialog_.List1_Click(1);
    EXPECT_EQ(dialog_.Get_Selected(), 1);
    EXPECT_EQ(form_.Text2[1], "Track 2");
    dialog_.Text2_Change(1, "Second");
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Second"));
    EXPECT_THAT(told_, ElementsAre(1));
    dialog_.Text2_Change(0, "artist");
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Second"));
    dialog_.List1_Click(-1);
    EXPECT_EQ(dialog_.Get_Selected(), std::nullopt);
    EXPECT_EQ(form_.Text2[1], "");
    dialog_.List1_Click(2);
    EXPECT_EQ(dialog_.Get_Selected(), std::nullopt);
}

TEST_F(frmCdNFOTest, clearEmptiesTheFieldsAndNamesTheTracks) {
    host_.folder.write(discFile(), "DTITLE=a\nDARTIST=b\nDYEAR=c\nDGENRE=d\nTTITLE0=e\n");
    open();
    EXPECT_THAT(form_.Text1, ElementsAre("a", "c"));
    dialog_.List1_Click(0);
    EXPECT_FALSE(dialog_.Command1_Click(Button::clear));
    EXPECT_THAT(form_.Text1, ElementsAre("", ""));
    EXPECT_THAT(form_.Text2, ElementsAre("", "", ""));
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2"));
    EXPECT_EQ(dialog_.Get_Selected(), std::nullopt);
}

TEST_F(frmCdNFOTest, closeForgetsAllButWhatTheDiscTold) {
    form_.tell("Album", "Artist");
    open();
    EXPECT_THAT(form_.Text1, ElementsAre("Album", ""));
    dialog_.Text1_Change(0, "typed");
    dialog_.Text1_Change(1, "1999");
    close();
    EXPECT_THAT(form_.Text1, ElementsAre("Album", ""));
    EXPECT_THAT(form_.Text2, ElementsAre("Artist", "", ""));
    EXPECT_THAT(form_.List1, IsEmpty());
}

TEST_F(frmCdNFOTest, whatTheDiscTellsAgainLeavesWhatWasTyped) {
    form_.tell("Album", "Artist");
    form_.Text1[0] = "typed";
    form_.tell("Album", "Artist");
    EXPECT_EQ(form_.Text1[0], "typed");
    form_.tell("", "");
    EXPECT_EQ(form_.Text1[0], "");
}

TEST_F(frmCdNFOTest, whatIsToldFromOutsideIsShown) {
    open();
    shown_ = 0;
    form_.tell("Album", "Artist");
    EXPECT_EQ(shown_, 1);
    close();
    form_.tell("Other", "Artist");
    EXPECT_EQ(shown_, 1);
}

// The local file ------------------------------------------------------------------------------

TEST_F(frmCdNFOTest, whatIsKeptOfTheDiscIsLoaded) {
    host_.folder.write(discFile(), "DISCID=06012c02\r\nDTITLE=Album\r\nDARTIST=Artist\r\n"
                                   "DYEAR=1999\r\nDGENRE=Rock\r\nTTITLE0=One\r\nTTITLE1=Two\r\n");
    open();
    EXPECT_THAT(form_.Text1, ElementsAre("Album", "1999"));
    EXPECT_THAT(form_.Text2, ElementsAre("Artist", "", "Rock"));
    EXPECT_THAT(form_.List1, ElementsAre("One", "Two"));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(frmCdNFOTest, withoutAFileTheFieldsStay) {
    form_.Text1[0] = "mine";
    EXPECT_FALSE(dialog_.load_local_cddb());
    EXPECT_EQ(form_.Text1[0], "mine");
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(frmCdNFOTest, withoutADiscNothingIsLoaded) {
    host_.folder.write(discFile(), "DTITLE=Album\r\n");
    sound_.drives.front().ready = false;
    EXPECT_FALSE(dialog_.load_local_cddb());
    sound_.drives.clear();
    EXPECT_FALSE(dialog_.load_local_cddb());
    EXPECT_EQ(form_.Text1[0], "");
}

TEST_F(frmCdNFOTest, theFirstDriveCountsWhicheverIsChosen) {
    sound_.drives.resize(2);
    sound_.drives[1].letter = 4;
    sound_.drives[1].toc = FakeDiscs::discOf({60});
    host_.folder.write(discFile(), "DTITLE=First\r\n");
    EXPECT_TRUE(dialog_.load_local_cddb());
    EXPECT_EQ(form_.Text1[0], "First");
}

TEST_F(frmCdNFOTest, aBadLineEndsTheReadingAndIsLogged) {
    host_.folder.write(discFile(), "DTITLE=Album\r\nTTITLE0=One\r\nDYEAR\r\nDARTIST=Artist\r\n");
    open();
    EXPECT_THAT(form_.Text1, ElementsAre("Album", ""));
    EXPECT_EQ(form_.Text2[0], "");
    EXPECT_THAT(form_.List1, ElementsAre("One"));
    EXPECT_THAT(logged(), ElementsAre(HasSubstr(",9,CDNFO,load_local_cddb")));
}

TEST_F(frmCdNFOTest, whatIsNoFileIsNone) {
    std::filesystem::create_directories(host_.folder / discFile());
    EXPECT_FALSE(dialog_.load_local_cddb());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(frmCdNFOTest, aFileThatIsTooLargeIsNone) {
    host_.folder.write(discFile(), "DTITLE=" + std::string(2UL * 1024 * 1024, 'x'));
    EXPECT_FALSE(dialog_.load_local_cddb());
    EXPECT_EQ(form_.Text1[0], "");
}

// Rip -------------------------------------------------------------------------------------------

TEST_F(frmCdNFOTest, ripClosesTheDialogAndRips) {
    std::vector<std::string> done;
    dialog_.hooks.open = [&] {
        done.emplace_back("open");
        open();
        dialog_.Text1_Change(0, "typed");
        close(Button::rip);
    };
    dialog_.hooks.Rip_All = [&] { done.push_back("rip " + form_.Text1[0]); };
    dialog_.Show();
    EXPECT_THAT(done, ElementsAre("open", "rip typed"));
    EXPECT_EQ(form_.Text1[0], "typed") << "a rip reads it";
}

TEST_F(frmCdNFOTest, closeRipsNothing) {
    int rips = 0;
    dialog_.hooks.open = [this] {
        open();
        close();
    };
    dialog_.hooks.Rip_All = [&rips] { ++rips; };
    dialog_.Show();
    EXPECT_EQ(rips, 0);
}

TEST_F(frmCdNFOTest, withoutAWindowNothingHappens) {
    dialog_.Show();
    EXPECT_THAT(form_.List1, IsEmpty());
}

// The rip asks whether a folder is written over: no brings the dialog back.
TEST_F(frmCdNFOTest, theDialogOpensAgainWithWhatWasEntered) {
    host_.folder.write(discFile(), "DTITLE=kept\nTTITLE0=One\n");
    open();
    EXPECT_EQ(form_.Text1[0], "kept");
    dialog_.Text1_Change(0, "typed");
    close(Button::rip);
    open();
    EXPECT_EQ(form_.Text1[0], "typed");
    EXPECT_THAT(form_.List1, ElementsAre("One"));
    close();
    open();
    EXPECT_EQ(form_.Text1[0], "kept");
}

TEST_F(frmCdNFOTest, aDiscMayBePutInMeanwhile) {
    sound_.drives.front().ready = false;
    open();
    sound_.drives.front().ready = true;
    dialog_.Text1_Change(0, "typed");
    close(Button::rip);
    open();
    EXPECT_EQ(form_.Text1[0], "typed");
}

TEST_F(frmCdNFOTest, anotherDiscBeginsAnew) {
    open();
    dialog_.Text1_Change(0, "typed");
    close(Button::rip);
    sound_.drives.front().toc = FakeDiscs::discOf({60, 60, 60});
    tracks_.AddItem("", "D:\\Track03.cda", "3", "", 1);
    open();
    EXPECT_EQ(form_.Text1[0], "");
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2", "Track 3"));
}

TEST_F(frmCdNFOTest, theNumbersOfTheGenre) {
    struct Case {
        const char* format;
        const char* genre;
        int version1;
        int version2;
    };

    for (const Case& c : {
             Case{"MP3 CBR", "rock", 1, 17}, // "Classic Rock" holds it first
             Case{"mp3 vbr", "ROCK", 1, 17},
             Case{"MP3 CBR", "Blues", 0, -1}, // number 0 is not looked at for version 2
             Case{"MP3 CBR", "Jazz", 8, 8},
             Case{"MP3 CBR", "no such genre", -1, -1},
         }) {
        set("DOF", c.format);
        form_.V1Genre = form_.V2Genre = -7;
        open();
        dialog_.Text2_Change(2, c.genre);
        close(Button::rip);
        EXPECT_EQ(form_.V1Genre, c.version1) << c.genre;
        EXPECT_EQ(form_.V2Genre, c.version2) << c.genre;
    }
}

TEST_F(frmCdNFOTest, otherFormatsAndNoGenreHaveNoNumbers) {
    open();
    EXPECT_EQ(form_.V1Genre, -1);
    for (const auto& [format, genre] :
         {std::pair("OGG Vorbis CBR", "Jazz"), std::pair("MP3 CBR", "")}) {
        set("DOF", "MP3 CBR");
        open();
        dialog_.Text2_Change(2, "Jazz");
        close(Button::rip);
        EXPECT_EQ(form_.V1Genre, 8);
        open();
        dialog_.Text2_Change(2, genre);
        set("DOF", format);
        close(Button::rip);
        EXPECT_EQ(form_.V1Genre, -1) << format;
        EXPECT_EQ(form_.V2Genre, -1) << format;
    }
}

TEST_F(frmCdNFOTest, theNumbersOfTheGenreGoWithWhatWasEntered) {
    open();
    dialog_.Text2_Change(2, "Jazz");
    close(Button::rip);
    EXPECT_EQ(form_.V2Genre, 8);
    dialog_.Unload();
    EXPECT_EQ(form_.V1Genre, -1);
    EXPECT_EQ(form_.V2Genre, -1);
}

TEST_F(frmCdNFOTest, whoRipsAnotherDiscDoesNotGetTheNamesOfTheOneBefore) {
    form_.tell("Album", "");
    open();
    dialog_.Text2_Change(0, "typed");
    dialog_.Text2_Change(2, "Jazz");
    close(Button::rip);
    dialog_.forgetOtherDisc();
    EXPECT_EQ(form_.Text2[0], "typed") << "it is the same disc";
    sound_.drives.front().toc = FakeDiscs::discOf({60, 60});
    dialog_.forgetOtherDisc();
    EXPECT_THAT(form_.Text1, ElementsAre("Album", "")); // as the disc itself has told
    EXPECT_THAT(form_.Text2, ElementsAre("", "", ""));
    EXPECT_THAT(form_.List1, IsEmpty());
    EXPECT_EQ(form_.V1Genre, -1);
}

TEST_F(frmCdNFOTest, aTrackWithoutARowHasItsPlaceAmongTheNames) {
    tracks_.Clear();
    for (const char* const file : {"D:\\Track02.cda", "D:\\Track04.cda"}) {
        tracks_.AddItem("", file, "x", "", 1);
    }
    open();
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2", "Track 3", "Track 4"));
}

TEST_F(frmCdNFOTest, aRipThatCannotBeginIsLogged) {
    open();
    takeOut("DOF");
    EXPECT_FALSE(dialog_.Command1_Click(Button::rip));
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("CDNFO,command1")));
}

TEST_F(frmCdNFOTest, whatWasTypedMayBeKept) {
    state_.comfort.keepsTypedNames = true;
    open();
    close();
    EXPECT_FALSE(std::filesystem::exists(host_.folder / discFile())) << "nothing was typed";
    for (const Button button : {Button::close, Button::rip}) {
        open();
        dialog_.Text1_Change(0, button == Button::rip ? "ripped" : "closed");
        dialog_.List1_Click(1);
        dialog_.Text2_Change(1, "Second");
        close(button);
        EXPECT_THAT(host_.folder.read(discFile()),
                    HasSubstr(button == Button::rip ? "DTITLE=ripped\r\n" : "DTITLE=closed\r\n"));
        dialog_.Unload();
    }
    open();
    EXPECT_EQ(form_.Text1[0], "ripped");
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Second"));
    const std::string kept = host_.folder.read(discFile());
    dialog_.Text1_Change(0, "wrong");
    dialog_.Command1_Click(Button::clear);
    close();
    EXPECT_EQ(host_.folder.read(discFile()), kept) << "cleared fields are nothing to keep";
    open();
    dialog_.Text1_Change(1, "2001");
    dialog_.Form_Unload(); // the window is closed
    EXPECT_THAT(host_.folder.read(discFile()), HasSubstr("DYEAR=2001\r\n"));
}

TEST_F(frmCdNFOTest, withoutThatWhatWasTypedIsGone) {
    open();
    dialog_.Text1_Change(0, "typed");
    close();
    EXPECT_FALSE(std::filesystem::exists(host_.folder / discFile()));
}

TEST_F(frmCdNFOTest, theChosenDrivesDiscMayBeNamed) {
    sound_.drives.insert(sound_.drives.begin(), sound_.drives.front());
    sound_.drives[0].toc = FakeDiscs::discOf({50, 60, 70});
    sound_.drives[1].letter = sound_.drives[0].letter + 1;
    dialog_.hooks.drive = [] { return 1; };
    host_.folder.write(discFile(), "DTITLE=of the second\n");
    EXPECT_FALSE(dialog_.load_local_cddb()) << "the first one is another disc";
    state_.comfort.namesChosenDisc = true;
    EXPECT_TRUE(dialog_.load_local_cddb());
    EXPECT_EQ(form_.Text1[0], "of the second");
    dialog_.hooks.drive = [] { return 7; };
    EXPECT_FALSE(dialog_.load_local_cddb()) << "a drive that is not there";
}

TEST_F(frmCdNFOTest, linesMayBeToldByTheirKeys) {
    host_.folder.write(discFile(), "DTITLE=a=b\nTTITLE0=Dyear\n");
    state_.comfort.readsDiscKeys = true;
    open();
    EXPECT_THAT(form_.Text1, ElementsAre("a=b", ""));
    EXPECT_THAT(form_.List1, ElementsAre("Dyear"));
}

TEST_F(frmCdNFOTest, theGenreMayBeTheOneOfThatName) {
    const auto genresOf = [this](const char* genre) {
        open();
        dialog_.Text2_Change(2, genre);
        close(Button::rip);
        const auto genres = std::pair(form_.V1Genre, form_.V2Genre);
        dialog_.Unload();
        return genres;
    };
    EXPECT_EQ(genresOf("blues"), std::pair(std::int16_t{0}, std::int16_t{-1}));
    state_.comfort.takesWholeGenre = true;
    EXPECT_EQ(genresOf("blues"), std::pair(std::int16_t{0}, std::int16_t{0}));
    EXPECT_EQ(genresOf("rock"), std::pair(std::int16_t{17}, std::int16_t{17}));
    EXPECT_EQ(genresOf("roc"), std::pair(std::int16_t{-1}, std::int16_t{-1}));
}

} // namespace
} // namespace tovik::test
