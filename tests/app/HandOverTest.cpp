// SPDX-License-Identifier: GPL-3.0-or-later
// What a running player does with what later starts hand over.
#include "app/AppRig.h"

#include <algorithm>

namespace tovik::test {
namespace {

using playlist::RowText;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = host::InstanceMessageKind;

class HandOver : public AppRig {
protected:
    /// The start and the reading of the saved list.
    void startAndSettle() {
        start();
        advance(200);
    }

    [[nodiscard]] bool arrives(const std::string& path) {
        return host_.messages.keep(host::handOver(path));
    }

    /// A file arrives and there is time for it.
    void handOver(const std::string& path) {
        ASSERT_TRUE(arrives(path));
        advance(20);
    }

    /// At how many moments of the next second a timer fires.
    [[nodiscard]] int wakesOfASecond() {
        int wakes = 0;
        const std::int64_t end = host_.clock.monotonicMs() + 1000;
        for (auto due = host_.clock.nextDue(); due && *due < end; due = host_.clock.nextDue()) {
            host_.clock.advanceTo(std::max(*due, host_.clock.monotonicMs() + 1));
            ++wakes;
        }
        return wakes;
    }

    [[nodiscard]] std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (playlist::Row row = 1; row <= player().stdSS().ListCount(); ++row) {
            titles.emplace_back(player().stdSS().text(row, RowText::Title));
        }
        return titles;
    }

    std::string list(const std::string& name, const std::vector<std::string>& files) {
        std::string text = "#EXTM3U\n";
        for (const std::string& file : files) {
            text += "#EXTINF:65," + file + "\n" + track(file + ".mp3") + "\n";
        }
        return host_.folder.write(name, text);
    }

    host::Timer* timer_ = nullptr;
};

TEST_F(HandOver, aFileTakesThePlaceOfTheListAndPlays) {
    host_.folder.write(kList, "#EXTM3U\n#EXTINF:1,Old\n/old.mp3\n");
    startAndSettle();
    EXPECT_THAT(titles(), ElementsAre("Old"));
    const std::string path = track("song.mp3");
    handOver(path);
    EXPECT_THAT(titles(), ElementsAre("song.mp3"));
    EXPECT_EQ(player().stdSS().text(1, RowText::FileName), path);
    EXPECT_EQ(player().stdSS().text(1, RowText::TimeText), "00:00");
    EXPECT_EQ(player().stdSS().SelectedIndex, 1);
    EXPECT_EQ(player().List1().ListIndex(), 0);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(HandOver, soDoesOneWithALongName) {
    startAndSettle();
    std::filesystem::create_directory(host_.folder / std::string(200, 'd'));
    const std::string path = track(std::string(200, 'd') + "/" + std::string(100, 's') + ".mp3");
    handOver(path);
    EXPECT_EQ(player().stdSS().text(1, RowText::FileName), path);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(HandOver, withCrossfadeItStartsPlainlyAllTheSame) {
    set("CFD", "1");
    startAndSettle();
    handOver(track("one.mp3"));
    handOver(track("two.mp3"));
    EXPECT_FALSE(player().music().playback.crossfade.runs());
    EXPECT_THAT(titles(), ElementsAre("two.mp3"));
    EXPECT_EQ(player().state().TracksStarted, 1);
}

TEST_F(HandOver, ofAListTheFirstRowPlays) {
    startAndSettle();
    handOver(list("list.m3u", {"one", "two"}));
    EXPECT_THAT(titles(), ElementsAre("one", "two"));
    EXPECT_EQ(player().state().CurrentTitle, "one");
    EXPECT_EQ(player().List1().ListIndex(), 0);
}

TEST_F(HandOver, orARandomOne) {
    set("SHF", "1");
    startAndSettle();
    host_.random.script.assign(10, 0.99);
    handOver(list("list.m3u", {"one", "two", "three"}));
    EXPECT_EQ(player().state().CurrentTitle, "three");
}

TEST_F(HandOver, theLastOfSeveralWins) {
    startAndSettle();
    ASSERT_TRUE(arrives(track("one.mp3")));
    ASSERT_TRUE(arrives(track("two.mp3")));
    advance(20);
    EXPECT_THAT(titles(), ElementsAre("two.mp3"));
    EXPECT_EQ(callsOf("BASS_StreamPlay"), 2U);
}

TEST_F(HandOver, isCarriedOutFromTheEventLoop) {
    startAndSettle();
    ASSERT_TRUE(arrives(track("one.mp3")));
    EXPECT_FALSE(player().state().IsPlaying);
    advance(20);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(HandOver, whatArrivesDuringTheStartWaitsForTheSavedList) {
    host_.folder.write(kList, "#EXTM3U\n#EXTINF:1,Old\n/old.mp3\n");
    player().Form_Initialize();
    ASSERT_TRUE(arrives(track("song.mp3")));
    player().Form_Load();
    advance(50);
    EXPECT_THAT(titles(), IsEmpty());
    advance(200);
    EXPECT_THAT(titles(), ElementsAre("song.mp3"));
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(HandOver, whatArrivesDuringALongJobWaitsForItsEnd) {
    host_.folder.write(kList, "#EXTM3U\n#EXTINF:1,One\n/1.mp3\n#EXTINF:1,Two\n/2.mp3\n");
    const std::string path = track("song.mp3");
    player().Form_Initialize();
    int steps = 0;
    // Due together with the reading of the list, so that a step of it lets it run.
    const auto timer = host_.clock.makeTimer([&] {
        timer_->setEnabled(false);
        ASSERT_TRUE(host_.pump.stepping());
        ASSERT_TRUE(arrives(path));
        host_.clock.advanceTo(host_.clock.monotonicMs() + 50);
        EXPECT_FALSE(player().state().IsPlaying);
        ++steps;
    });
    timer_ = timer.get();
    timer->setInterval(app::Autoload::kTimer4Ms);
    timer->setEnabled(true);
    player().Form_Load();
    advance(200);
    EXPECT_EQ(steps, 1);
    EXPECT_THAT(titles(), ElementsAre("song.mp3"));
}

TEST_F(HandOver, anotherWindowsNumberIsIgnored) {
    startAndSettle();
    set("SHWND", "4711");
    handOver(track("song.mp3"));
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(HandOver, aNumberThatIsNoneIsReported) {
    startAndSettle();
    set("SHWND", "window");
    handOver(track("song.mp3"));
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_THAT(logged(), Contains(testing::EndsWith(",13,Player,api_msg")));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in api_msg_change");
}

TEST_F(HandOver, aFileThatIsNotThereIsReported) {
    startAndSettle();
    const std::string path = host_.folder / "none.mp3";
    handOver(path);
    EXPECT_THAT(logged(), ElementsAre("File not found: " + path + ",53,Player,api_msg"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "File not found: " + path);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in api_msg_change");
    handOver(track("song.mp3"));
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(HandOver, theListThenStaysWhereThatIsWanted) {
    host_.folder.write(kList, "#EXTM3U\n#EXTINF:1,Old\n/old.mp3\n");
    startAndSettle();
    handOver(host_.folder / "none.mp3");
    EXPECT_THAT(titles(), IsEmpty());
    player().stdSS().AddItem("", "/new.mp3", "New", "", 1);
    player().ground().state.comfort.keepsListForMissing = true;
    handOver(host_.folder / "none.mp3");
    EXPECT_THAT(titles(), ElementsAre("New"));
    handOver(track("song.mp3"));
    EXPECT_THAT(titles(), ElementsAre("song.mp3"));
}

TEST_F(HandOver, theWindowComesToTheFront) {
    startAndSettle();
    ASSERT_TRUE(host_.messages.keep({Kind::toTheFront, "token"}));
    advance(20);
    EXPECT_EQ(sound_.calls.back(), "to the front token");
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(HandOver, aLongJobDoesNotKeepTheWindowFromTheFront) {
    host_.folder.write(kList, "#EXTM3U\n#EXTINF:1,One\n/1.mp3\n#EXTINF:1,Two\n/2.mp3\n");
    const std::string path = track("song.mp3");
    player().Form_Initialize();
    bool cameToFront = false;
    const auto timer = host_.clock.makeTimer([&] {
        timer_->setEnabled(false);
        ASSERT_TRUE(arrives(path)); // has to wait, with nobody behind it having to
        ASSERT_TRUE(host_.messages.keep({Kind::toTheFront, "old"}));
        ASSERT_TRUE(host_.messages.keep({Kind::toTheFront, "new"}));
        host_.clock.advanceTo(host_.clock.monotonicMs() + 50);
        cameToFront = sound_.calls.back() == "to the front new";
        EXPECT_FALSE(player().state().IsPlaying);
    });
    timer_ = timer.get();
    timer->setInterval(app::Autoload::kTimer4Ms);
    timer->setEnabled(true);
    player().Form_Load();
    advance(200);
    EXPECT_TRUE(cameToFront);
    EXPECT_THAT(sound_.calls, testing::Not(Contains("to the front old")));
    EXPECT_EQ(std::ranges::count(sound_.calls, "to the front new"), 1);
    EXPECT_THAT(titles(), ElementsAre("song.mp3"));
}

TEST_F(HandOver, withNothingLeftToDoNothingWakes) {
    startAndSettle();
    const int before = wakesOfASecond();
    ASSERT_TRUE(host_.messages.keep({Kind::toTheFront, ""}));
    advance(20);
    EXPECT_LE(wakesOfASecond(), before);
}

TEST_F(HandOver, whatEndsTheProgramIsTheLastThatIsCarriedOut) {
    startAndSettle();
    host_.closing.setLeave([this] { player().kill_me(); });
    host_.dialogs.onMessage = [this] {
        host_.closing.request();
        host_.closing.leaveIfAsked();
    };
    ASSERT_TRUE(arrives(host_.folder / "none.mp3")); // a box, in which the user closes the player
    ASSERT_TRUE(arrives(track("song.mp3")));
    advance(50);
    EXPECT_TRUE(host_.closing.ending());
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_EQ(callsOf("BASS_StreamPlay"), 0U);
}

TEST_F(HandOver, alsoAfterAStartThatFailed) {
    takeOut("CVL");
    startAndSettle();
    ASSERT_TRUE(host_.messages.keep({Kind::toTheFront, ""}));
    advance(20);
    EXPECT_EQ(sound_.calls.back(), "to the front");
}

TEST_F(HandOver, nothingIsKeptOnceTheProgramEnds) {
    startAndSettle();
    host_.closing.setLeave([this] { player().kill_me(); });
    host_.closing.request();
    host_.closing.leaveIfAsked();
    EXPECT_FALSE(arrives(track("song.mp3")));
}

TEST_F(HandOver, neitherIsMoreThanAnyoneWouldSend) {
    player().Form_Initialize();
    const host::InstanceMessage message = host::handOver("/a");
    for (std::size_t count = 0; count < app::Mailbox::kMost; ++count) {
        ASSERT_TRUE(host_.messages.keep(message));
    }
    EXPECT_FALSE(host_.messages.keep(message));
}

class ComfortHandOver : public HandOver {
protected:
    ComfortHandOver() {
        put("CMF10", "1");
        host_.folder.write(kList, "#EXTM3U\n#EXTINF:1,Old\n/old.mp3\n");
    }

    /// What a later start with that command line sends.
    void lineArrives(const std::string& line) {
        ASSERT_TRUE(host_.messages.keep({Kind::commandLine, line}));
        advance(20);
    }
};

TEST_F(ComfortHandOver, aFileIsAddedAndPlays) {
    startAndSettle();
    handOver(track("song.mp3"));
    EXPECT_THAT(titles(), ElementsAre("Old", "song.mp3"));
    EXPECT_EQ(player().stdSS().SelectedIndex, 2);
    EXPECT_EQ(player().List1().ListIndex(), 1) << "the quick list shows it";
    EXPECT_EQ(player().stdSS().SoundingRow(), 2);
    EXPECT_TRUE(player().state().IsPlaying);
    ASSERT_TRUE(player().commands().run(commands::CommandId::undoList));
    EXPECT_THAT(titles(), ElementsAre("Old"));
    EXPECT_TRUE(player().state().IsPlaying); // what sounds goes on
}

TEST_F(ComfortHandOver, allFilesOfALineAreAddedAndTheFirstPlays) {
    startAndSettle();
    lineArrives("/Play \"" + track("b.mp3") + "\" \"" + track("a.mp3") + "\"");
    EXPECT_THAT(titles(), ElementsAre("Old", "b.mp3", "a.mp3"));
    EXPECT_EQ(player().stdSS().SoundingRow(), 2);
}

TEST_F(ComfortHandOver, theSwitchOnlyAdds) {
    startAndSettle();
    lineArrives("/ADD \"" + track("song.mp3") + "\"");
    EXPECT_THAT(titles(), ElementsAre("Old", "song.mp3"));
    EXPECT_FALSE(player().state().IsPlaying);
    EXPECT_EQ(player().stdSS().SelectedIndex, 0);
}

TEST_F(ComfortHandOver, aListIsAppended) {
    startAndSettle();
    handOver(list("two.m3u", {"one", "two"}));
    EXPECT_THAT(titles(), ElementsAre("Old", "one", "two"));
    EXPECT_EQ(player().stdSS().SoundingRow(), 2);
}

TEST_F(ComfortHandOver, aFileThatIsMissingIsToldAndTheListKept) {
    startAndSettle();
    handOver(host_.folder / "none.mp3");
    EXPECT_THAT(titles(), ElementsAre("Old"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "File not found: " + (host_.folder / "none.mp3"));
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in api_msg_change");
}

TEST_F(ComfortHandOver, anotherWindowsNumberDoesNotMatter) {
    startAndSettle();
    set("SHWND", "4711");
    handOver(track("song.mp3"));
    EXPECT_THAT(titles(), ElementsAre("Old", "song.mp3"));
}

TEST_F(HandOver, ofAWholeLineTheFirstNameTakesThePlaceOfTheList) {
    startAndSettle();
    ASSERT_TRUE(host_.messages.keep(
        {Kind::commandLine, "/ADD \"" + track("a.mp3") + "\" \"" + track("b.mp3") + "\""}));
    advance(20);
    EXPECT_THAT(titles(), ElementsAre("a.mp3"));
    EXPECT_TRUE(player().state().IsPlaying);
}

} // namespace
} // namespace tovik::test
