// SPDX-License-Identifier: GPL-3.0-or-later
// The search of the disc information.
#include "cd/CdNFORig.h"

#include <filesystem>
#include <thread>

namespace tovik::test {
namespace {

using discs::QueryEnd;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Button = cd::frmCdNFO::Button;

class frmCdNFOSearchTest : public CdNFORig {
protected:
    void search() {
        open();
        EXPECT_FALSE(dialog_.Command1_Click(Button::search));
    }

    [[nodiscard]] bool stored() const { return std::filesystem::exists(host_.folder / discFile()); }
};

TEST_F(frmCdNFOSearchTest, anExactMatchIsTakenAndKept) {
    serverIni();
    search();
    EXPECT_THAT(form_.Text1, ElementsAre("The B", "1999"));
    EXPECT_THAT(form_.Text2, ElementsAre("The A", "", "Rock"));
    EXPECT_THAT(form_.List1, ElementsAre("One", "Two"));
    EXPECT_EQ(host_.folder.read(discFile()),
              "DISCID=06012c02\r\nDTITLE=The B\r\nDARTIST=The A\r\nDYEAR=1999\r\nDGENRE=Rock\r\n"
              "TTITLE0=One\r\nTTITLE1=Two\r\n");
    EXPECT_EQ(dialog_.searchEnd(), QueryEnd::stored);
    EXPECT_THAT(searches_, ElementsAre(true, false));
    EXPECT_THAT(logged(), IsEmpty());
    ASSERT_EQ(asked_.size(), 2);
    EXPECT_EQ(asked_[0], "http://db.example/~cddb/cddb.cgi?cmd=cddb+query+06012c02+2+150+15150+302"
                         "&hello=me+home.example+Tovik+Tovik_0_Build_1&proto=6");
}

TEST_F(frmCdNFOSearchTest, whatIsFoundOfADiscThatWentIsKeptAndNotTaken) {
    serverIni();
    whenAsked_ = [this] { sound_.drives.front().toc = FakeDiscs::discOf({60, 60}); };
    open();
    dialog_.Text1_Change(0, "typed");
    dialog_.Command1_Click(Button::search);
    EXPECT_THAT(form_.Text1, ElementsAre("typed", ""));
    EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2"));
    EXPECT_THAT(host_.folder.read(discFile()), HasSubstr("DTITLE=The B\r\n"));
}

TEST_F(frmCdNFOSearchTest, whatWasKeptIsReplaced) {
    serverIni();
    host_.folder.write(discFile(), "DTITLE=old\r\nTTITLE0=old\r\nTTITLE1=old\r\nTTITLE2=old\r\n");
    search();
    EXPECT_THAT(host_.folder.read(discFile()), testing::Not(HasSubstr("old")));
}

TEST_F(frmCdNFOSearchTest, theFolderIsMadeWhereItIsMissing) {
    serverIni();
    whenAsked_ = [this] { std::filesystem::remove_all(host_.folder / "CDDB"); };
    search();
    EXPECT_TRUE(stored());
}

TEST_F(frmCdNFOSearchTest, oneOfSeveralIsTakenAndNotKept) {
    serverIni();
    query_ = "210 x\r\nrock 1 A / B\r\nmisc 2 C / D\r\n.\r\n";
    freedb_.choose = [](const std::vector<discs::Match>&) { return std::optional<std::size_t>(1); };
    search();
    EXPECT_EQ(form_.Text1[0], "The B");
    EXPECT_FALSE(stored());
    EXPECT_EQ(dialog_.searchEnd(), QueryEnd::picked);
}

TEST_F(frmCdNFOSearchTest, whatFindsNothingChangesNothing) {
    for (const char* const answer : {"202 No match\r\n", "403 Corrupt\r\n", "nonsense"}) {
        serverIni();
        query_ = answer;
        open();
        dialog_.Text1_Change(0, "mine");
        dialog_.List1_Click(0);
        dialog_.Command1_Click(Button::search);
        EXPECT_EQ(form_.Text1[0], "mine");
        EXPECT_THAT(form_.List1, ElementsAre("Track 1", "Track 2"));
        EXPECT_EQ(dialog_.Get_Selected(), 0);
        EXPECT_FALSE(stored());
        EXPECT_NE(dialog_.searchEnd(), std::nullopt);
        close();
    }
}

TEST_F(frmCdNFOSearchTest, withoutAServerNothingIsAsked) {
    for (const char* const text : {"", "[server]\nhost=\n", "host=db.example\n"}) {
        serverIni(text);
        search();
        EXPECT_EQ(dialog_.searchEnd(), QueryEnd::noServer);
    }
    EXPECT_THAT(asked_, IsEmpty());
}

TEST_F(frmCdNFOSearchTest, withoutADiscNothingIsAsked) {
    serverIni();
    sound_.drives.front().ready = false;
    search();
    EXPECT_EQ(dialog_.searchEnd(), QueryEnd::noDisc);
    EXPECT_THAT(asked_, IsEmpty());
}

TEST_F(frmCdNFOSearchTest, theServerIsToldTheVersionUnlessItIsABeta) {
    serverIni("[server]\nhost=db.example\n");
    set("TKXV", "B3,7");
    search();
    EXPECT_THAT(asked_.at(0), HasSubstr("&hello=anonymous+localhost+Tovik+0&"));
}

TEST_F(frmCdNFOSearchTest, theSettingsOfTheQuery) {
    serverIni();
    search();
    EXPECT_EQ(freedb_.ClientName, "Tovik");
    EXPECT_EQ(freedb_.CacheDirectory, host_.folder / "CDDB");
    EXPECT_EQ(freedb_.firstNumber, 3);
    EXPECT_EQ(freedb_.secondNumber, 3);
    EXPECT_TRUE(freedb_.firstSwitch);
    EXPECT_TRUE(freedb_.secondSwitch);
    EXPECT_EQ(freedb_.ServerHost, "db.example");
    EXPECT_EQ(freedb_.ClientEmail, "me@home.example");
}

TEST_F(frmCdNFOSearchTest, aBadVersionIsLoggedAndEndsIt) {
    serverIni();
    set("TKXV", "1");
    search();
    EXPECT_THAT(logged(), ElementsAre(HasSubstr(",9,CDNFO,command1")));
    EXPECT_FALSE(dialog_.searching());
    EXPECT_THAT(asked_, IsEmpty());
}

TEST_F(frmCdNFOSearchTest, whatCannotBeKeptIsShownAllTheSame) {
    serverIni();
    std::filesystem::create_directories(host_.folder / (discFile() + "/x"));
    search();
    EXPECT_EQ(form_.Text1[0], "The B");
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("CDNFO,command1")));
    EXPECT_FALSE(dialog_.searching());
}

// Whoever waits for a server --------------------------------------------------------------------

class frmCdNFOWaitTest : public CdNFORig {
protected:
    frmCdNFOWaitTest() { serverIni(); }

    /// A server that says nothing.
    discs::FREEDB silent_{{.drives = sound_,
                           .pump = pump_,
                           .fetch = [this](const discs::TextRequest&, const std::stop_token& stop) {
                               while (!stop.stop_requested()) {
                                   std::this_thread::sleep_for(std::chrono::milliseconds(1));
                               }
                               return discs::Fetched{.end = discs::FetchEnd::calledOff};
                           }}};
    cd::frmCdNFO waiting_{{.core = core_,
                           .form = form_,
                           .lstTracks = tracks_,
                           .FREEDB = silent_,
                           .paths = host_.paths,
                           .pump = pump_}};
};

TEST_F(frmCdNFOWaitTest, theDialogIsClosedMeanwhile) {
    waiting_.Form_Load(*this, [] {});
    bool searched = false;
    pump_.inStep = [&] {
        searched = searched || waiting_.searching();
        waiting_.Command1_Click(Button::search); // nothing comes of a second one
        waiting_.Command1_Click(Button::close);
        waiting_.Form_Unload();
        return true;
    };
    waiting_.Command1_Click(Button::search);
    EXPECT_TRUE(searched);
    EXPECT_FALSE(waiting_.searching());
    EXPECT_EQ(form_.Text1[0], "");
}

TEST_F(frmCdNFOWaitTest, ripDoesNotWait) {
    waiting_.Form_Load(*this, [] {});
    bool closes = false;
    pump_.inStep = [&] {
        closes = closes || waiting_.Command1_Click(Button::rip);
        return true;
    };
    waiting_.Command1_Click(Button::search);
    EXPECT_TRUE(closes);
}

TEST_F(frmCdNFOWaitTest, whatIsTypedMeanwhileStays) {
    waiting_.Form_Load(*this, [] {});
    silent_.patience = std::chrono::milliseconds(60);
    pump_.inStep = [&] {
        waiting_.Text1_Change(0, "typed");
        return true;
    };
    waiting_.Command1_Click(Button::search);
    EXPECT_EQ(form_.Text1[0], "typed");
    EXPECT_EQ(waiting_.searchEnd(), QueryEnd::noAnswer);
}

// The search by itself --------------------------------------------------------------------------

TEST_F(frmCdNFOSearchTest, aDiscThatNothingIsKeptOfIsSearchedWhereThatIsWanted) {
    serverIni();
    open();
    EXPECT_THAT(asked_, IsEmpty()) << "an old file of settings";
    close();
    set("CDSEARCH", "0");
    open();
    EXPECT_THAT(asked_, IsEmpty());
    close();
    set("CDSEARCH", "1");
    open();
    EXPECT_EQ(asked_.size(), 2);
    EXPECT_EQ(form_.Text1[0], "The B");
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(frmCdNFOSearchTest, whatIsKeptIsNotSearched) {
    serverIni();
    host_.folder.write(discFile(), "DTITLE=kept\r\n");
    set("CDSEARCH", "1");
    open();
    EXPECT_THAT(asked_, IsEmpty());
    EXPECT_EQ(form_.Text1[0], "kept");
}

TEST_F(frmCdNFOSearchTest, withoutADiscItIsNotSearchedByItself) {
    serverIni();
    set("CDSEARCH", "1");
    sound_.drives.front().ready = false;
    open();
    EXPECT_EQ(dialog_.searchEnd(), std::nullopt);
}

TEST_F(frmCdNFOSearchTest, aDialogThatOpensAgainDoesNotSearchAgain) {
    serverIni();
    set("CDSEARCH", "1");
    query_ = "202 No match\r\n";
    open();
    EXPECT_EQ(asked_.size(), 1);
    close(Button::rip);
    open();
    EXPECT_EQ(asked_.size(), 1);
}

} // namespace
} // namespace tovik::test
