// SPDX-License-Identifier: GPL-3.0-or-later
// Internet radio in the whole player: the file of the stations, the buttons of the panel, addresses
// that are started from elsewhere.
#include "app/AppRig.h"

#include <chrono>
#include <thread>

namespace tovik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using window::MainElement;
using window::WindowId;

class StationsTest : public AppRig {
protected:
    static constexpr const char* kFile = "db/stations.dat";
    static constexpr const char* kTwo = "[stationlist]\r\n"
                                        "Station1=http://one.example/\r\n"
                                        "Url1=One\r\n"
                                        "Station2=http://two.example/\r\n"
                                        "Url2=Two\r\n"
                                        "\r\n"
                                        "NumberOfEntries=2\r\n";

    /// The player with two stations, on the radio's panel.
    void startWithTwo() {
        host_.folder.write(kFile, kTwo);
        start();
        player().view().panels.Switch_Win("00001");
    }

    [[nodiscard]] playlist::stdSS& stations() { return player().lists().RadioLst; }

    void click(std::size_t image) {
        const ui::Box box = player().elements().get(MainElement::Image1, image).box();
        ui::PointerEvent event;
        event.element = ui::addressOf(MainElement::Image1, image);
        event.windowX = box.left + box.width / 2;
        event.windowY = box.top + box.height / 2;
        event.button = ui::MouseButton::Left;
        player().input().mouseDown(event);
        player().input().mouseUp(event);
    }

    [[nodiscard]] bool shown(std::size_t image) {
        return player().elements().get(MainElement::Image1, image).visible;
    }

    /// The addresses that were opened, in their order.
    [[nodiscard]] std::vector<std::string> opened() const {
        static const std::string kCall = "BASS_StreamCreateURL(";
        std::vector<std::string> addresses;
        for (const std::string& call : sound_.calls) {
            if (call.starts_with(kCall)) {
                addresses.push_back(call.substr(kCall.size(), call.find(',') - kCall.size()));
            }
        }
        return addresses;
    }
};

TEST_F(StationsTest, theListIsThereWithTheNextStart) {
    startWithTwo();
    EXPECT_EQ(stations().ListCount(), 2);
    EXPECT_EQ(stations().text(2, playlist::RowText::Title), "Two");
    player().stations().addStation.Command1_Click("Three", "http://three.example/");
    EXPECT_EQ(host_.folder.read(kFile), kTwo) << "it is written at the end only";
    player().kill_me();
    EXPECT_THAT(host_.folder.read(kFile), HasSubstr("Station3=http://three.example/\r\n"
                                                    "Url3=Three\r\n\r\nNumberOfEntries=3\r\n"));
}

TEST_F(StationsTest, withoutAFileTheListIsEmptyAndWritten) {
    start();
    EXPECT_EQ(stations().ListCount(), 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kFile), "[stationlist]\r\n\r\nNumberOfEntries=0\r\n");
}

TEST_F(StationsTest, aFileThatWasNotUnderstoodIsNotWrittenOver) {
    const std::string damaged = "[stationlist]\r\nStation1=u\r\nNumberOfEntries=many\r\n";
    host_.folder.write(kFile, damaged);
    start();
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kFile), damaged);
}

TEST_F(StationsTest, aFileThatWasNotUnderstoodIsSetAsideForNewStations) {
    const std::string damaged = "[stationlist]\r\nStation1=u\r\nNumberOfEntries=many\r\n";
    host_.folder.write(kFile, damaged);
    start();
    player().stations().addStation.Command1_Click("Three", "http://three.example/");
    player().kill_me();
    EXPECT_THAT(host_.folder.read(kFile), HasSubstr("Station1=http://three.example/\r\n"));
    EXPECT_EQ(host_.folder.read("db/stations.dat.unread"), damaged);
}

TEST_F(StationsTest, eachChangeCanBeKeptAtOnce) {
    put("CMF18", "1");
    startWithTwo();
    const auto waitFor = [this](const std::string& words) {
        for (int i = 0; i < 5000 && host_.folder.read(kFile).find(words) == std::string::npos;
             ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_THAT(host_.folder.read(kFile), HasSubstr(words));
    };
    player().stations().addStation.Command1_Click("Three", "http://three.example/");
    waitFor("Url3=Three\r\n\r\nNumberOfEntries=3\r\n");
    stations().Remove(1);
    waitFor("Url2=Three\r\n\r\nNumberOfEntries=2\r\n");
    set("CMF18", "0");
    player().ground().readComfort();
    stations().Remove(1);
    player().kill_me();
    EXPECT_THAT(host_.folder.read(kFile), HasSubstr("Url1=Three\r\n\r\nNumberOfEntries=1\r\n"));
}

TEST_F(StationsTest, aFileThatWasNotUnderstoodIsNotWrittenOverAtOnceEither) {
    const std::string damaged = "[stationlist]\r\nStation1=u\r\nNumberOfEntries=many\r\n";
    host_.folder.write(kFile, damaged);
    put("CMF18", "1");
    start();
    player().stations().addStation.Command1_Click("Three", "http://three.example/");
    EXPECT_EQ(host_.folder.read(kFile), damaged);
    player().kill_me();
    EXPECT_EQ(host_.folder.read("db/stations.dat.unread"), damaged);
}

TEST_F(StationsTest, longAddressesComeBackWholeWithComfort) {
    const std::string address = "http://long.example/" + std::string(400, 'a');
    host_.folder.write(kFile, "[stationlist]\r\nStation1=" + address +
                                  "\r\nUrl1=Long\r\n\r\nNumberOfEntries=1\r\n");
    put("CMF18", "1");
    start();
    EXPECT_EQ(stations().text(1, playlist::RowText::ItemData), address);
}

TEST_F(StationsTest, songsGoToTheFolderThatIsSetForTheRadio) {
    startWithTwo();
    set("IROP", "/music/of the radio");
    EXPECT_EQ(player().stations().player.songFolder(), "/music/of the radio");
    set("IROP", "c:\\Radio");
    EXPECT_THAT(player().stations().player.songFolder(), testing::EndsWith("drive_c/Radio"));
    set("IROP", "");
    EXPECT_EQ(player().stations().player.songFolder(), "");
}

TEST_F(StationsTest, theButtonsPlayAddAndRemove) {
    startWithTwo();
    stations().SelectIndex(2);
    click(0);
    EXPECT_THAT(opened(), ElementsAre("http://two.example/"));
    EXPECT_TRUE(stations().isPlayed(2));
    click(1);
    EXPECT_THAT(windows_.opened, ElementsAre(WindowId::addStation));
    click(2);
    EXPECT_EQ(stations().ListCount(), 1);
    EXPECT_EQ(stations().text(1, playlist::RowText::Title), "One");
    EXPECT_TRUE(player().state().IsPlaying) << "what plays goes on";
}

TEST_F(StationsTest, withoutStationsTheButtonsDoNothing) {
    start();
    player().view().panels.Switch_Win("00001");
    click(0);
    click(2);
    EXPECT_THAT(opened(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(StationsTest, theStationThatWasStoppedCanBeStartedAgainAndAgain) {
    startWithTwo();
    stations().SelectIndex(1);
    for (int i = 0; i < 3; ++i) {
        click(0);
        player().music().playback.transport.button_stop();
    }
    stations().StartRow(1); // a double click
    stations().StartRow(1);
    EXPECT_EQ(opened().size(), 5U);
}

TEST_F(StationsTest, aStationThatSoundsHasItsLineOnTheMainPanel) {
    startWithTwo();
    stations().SelectIndex(1);
    click(0);
    player().view().panels.Switch_Win("10000");
    const auto element = [this](MainElement name) -> const ui::Element& {
        return player().elements().get(name);
    };
    EXPECT_TRUE(element(MainElement::lblRDinfo).visible);
    EXPECT_FALSE(element(MainElement::lbltag).visible);
    EXPECT_FALSE(element(MainElement::lblinfo).visible);
    EXPECT_EQ(element(MainElement::lblRDinfo).caption, "One\nconnecting");
    EXPECT_EQ(element(MainElement::songname).caption, " connecting");
}

TEST_F(StationsTest, theSaveButtonsTakeTurns) {
    startWithTwo();
    EXPECT_TRUE(shown(3));
    EXPECT_FALSE(shown(4));
    stations().SelectIndex(1);
    click(0);
    click(3);
    EXPECT_TRUE(player().state().StreamRecording);
    EXPECT_FALSE(shown(3));
    EXPECT_TRUE(shown(4));
    click(4);
    EXPECT_FALSE(player().state().StreamRecording);
    EXPECT_TRUE(shown(3));
    EXPECT_FALSE(shown(4));
}

TEST_F(StationsTest, aNewStationEndsTheSavingButTheButtonsStayUntilThePanelIsShown) {
    startWithTwo();
    stations().SelectIndex(1);
    click(0);
    click(3);
    stations().SelectIndex(2);
    click(0);
    EXPECT_FALSE(player().state().StreamRecording);
    EXPECT_FALSE(shown(3));
    EXPECT_TRUE(shown(4));
    player().view().panels.Switch_Win("10000");
    player().view().panels.Switch_Win("00001");
    EXPECT_TRUE(shown(3));
    EXPECT_FALSE(shown(4));
}

TEST_F(StationsTest, theMenusEntriesActOnTheSelectedStation) {
    startWithTwo();
    player().commands().run(commands::CommandId::radioInfo);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty()) << "none is selected";
    stations().SelectIndex(2);
    player().commands().run(commands::CommandId::radioInfo);
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Two");
    EXPECT_EQ(host_.dialogs.boxes[0].text, "http://two.example/");
    player().commands().run(commands::CommandId::radioPlay);
    EXPECT_THAT(opened(), ElementsAre("http://two.example/"));
    player().commands().run(commands::CommandId::radioDelete);
    EXPECT_EQ(stations().ListCount(), 1);
}

TEST_F(StationsTest, anAddressOfTheCommandLineStartsLikeAStation) {
    options_.commandLine = "\"http://one.example/list.m3u\"";
    start();
    EXPECT_THAT(opened(), ElementsAre("http://one.example/list.m3u"));
    EXPECT_TRUE(player().state().RadioMode);
    EXPECT_EQ(player().stdSS().text(1, playlist::RowText::FileName), "http://one.example/list.m3u");
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(StationsTest, aPlaylistKeepsItsAddresses) {
    const std::string list =
        host_.folder.write("a.m3u", "#EXTM3U\r\n#EXTINF:0,Web\r\nhttp://one.example/\r\n");
    options_.commandLine = '"' + list + '"';
    start();
    EXPECT_THAT(opened(), ElementsAre("http://one.example/"));
    EXPECT_EQ(player().elements().get(MainElement::lblRDinfo).caption, "Web\nconnecting");
    EXPECT_EQ(player().stdSS().text(1, playlist::RowText::FileName), "http://one.example/");
}

TEST_F(StationsTest, theEndOfTheProgramFreesTheStation) {
    startWithTwo();
    stations().SelectIndex(1);
    click(0);
    const sound::Handle stream = player().state().PrimaryChannel;
    player().kill_me();
    EXPECT_FALSE(sound_.lives(stream));
}

} // namespace
} // namespace tovik::test
