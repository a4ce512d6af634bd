// SPDX-License-Identifier: GPL-3.0-or-later
// Comfort from the start of the program to its page in the preferences.
#include "app/PreferencesDialogRig.h"
#include "player/ComfortSettings.h"

#include <memory>
#include <QLabel>
#include <QScrollArea>
#include <set>
#include <thread>

namespace tovik::test {
namespace {

using preferences::Page;

base::Comfort all() {
    return base::ComfortChoices{.master = true}.record();
}

class ComfortStart : public AppRig {};

TEST_F(ComfortStart, withoutAKeyThereIsNone) {
    start();
    EXPECT_EQ(player().state().comfort, base::Comfort());
}

TEST_F(ComfortStart, theSettingsAreReadBeforeAnythingElse) {
    put("CMF", "1");
    put("CMF10", "0");
    const std::string before = host_.folder.read(kSettings);
    player().ground().readComfort();
    base::ComfortChoices expected{.master = true};
    expected.own.at(9) = false;
    EXPECT_EQ(player().state().comfort, expected.record());
    EXPECT_EQ(host_.folder.read(kSettings), before);
    endPlayer();
    player().Form_Initialize();
    EXPECT_EQ(player().state().comfort, expected.record());
}

TEST_F(ComfortStart, theCommandLineOverrulesTheSettingsAndLeavesThem) {
    put("CMF", "1");
    put("CMF10", "1");
    options_.comfort = false;
    start();
    EXPECT_EQ(player().state().comfort, base::Comfort());
    endPlayer();
    set("CMF", "0");
    set("CMF10", "0");
    options_.comfort = true;
    start();
    EXPECT_EQ(player().state().comfort, all());
    EXPECT_EQ(setting("CMF"), "0");
    EXPECT_EQ(setting("CMF10"), "0");
}

class ComfortPage : public PreferencesDialogRig {
protected:
    void onPage(const std::function<void(QDialog&)>& act) {
        open([&](QDialog& dialog) {
            turnTo(dialog, Page::comfort, By::keyboard);
            act(dialog);
        });
    }
};

TEST_F(ComfortPage, saysWhatTheTableSays) {
    onPage([](QDialog& dialog) {
        for (std::size_t number = 1; number <= base::kComfortSwitches.size(); ++number) {
            EXPECT_EQ(control<QCheckBox>(dialog, "Comfort_" + QString::number(number))
                          .text()
                          .toStdString(),
                      base::kComfortSwitches.at(number - 1).words);
        }
        EXPECT_EQ(control<QTabWidget>(dialog, "TabStrip1").tabText(int(Page::comfort)), "Comfort");
        EXPECT_FALSE(control<QLabel>(dialog, "ComfortOfRun").isVisible());
    });
}

TEST_F(ComfortPage, theMasterShowsOnItsSwitchesAndActsAtOnce) {
    onPage([this](QDialog& dialog) {
        control<QCheckBox>(dialog, "Comfort_0").click();
        EXPECT_TRUE(control<QCheckBox>(dialog, "Comfort_22").isChecked());
        press(dialog, "Command7");
        EXPECT_EQ(player().state().comfort, all());
        EXPECT_EQ(setting("CMF"), "1");
    });
}

TEST_F(ComfortPage, aSwitchComesIntoSightWithTheKeyboard) {
    onPage([](QDialog& dialog) {
        dialog.resize(dialog.minimumSizeHint());
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        const auto& area = *dialog.findChild<QScrollArea*>();
        for (const char* const name : {"Comfort_22", "Comfort_1"}) {
            auto& box = control<QCheckBox>(dialog, name);
            const auto isInSight = [&] {
                return area.viewport()->rect().contains(
                    QRect(box.mapTo(area.viewport(), QPoint()), box.size()).center());
            };
            box.setFocus(Qt::BacktabFocusReason);
            EXPECT_TRUE(isInSight()) << name;
        }
    });
}

TEST_F(ComfortPage, saysThatTheCommandLineDecides) {
    player().ground().state.ComfortOfRun = true;
    onPage([](QDialog& dialog) {
        auto& said = control<QLabel>(dialog, "ComfortOfRun");
        EXPECT_TRUE(said.isVisible());
        EXPECT_TRUE(said.text().startsWith("The command line decides"));
    });
}

/// Sessions over one saved list.
class ComfortSessions : public AppRig {
protected:
    ComfortSessions() {
        std::string rows = "#EXTM3U\r\n";
        for (const char* const name : {"one", "two", "three"}) {
            rows += "#EXTINF:100," + std::string(name) + "\r\n" +
                    track(std::string(name) + ".mp3", {.seconds = 100}) + "\r\n";
        }
        host_.folder.write(kList, rows);
    }

    void begin() {
        start();
        advance(200);
    }

    void end() {
        player().kill_me();
        endPlayer();
        host_.endStatus.reset();
        // The next process has not ended yet.
        std::destroy_at(&host_.closing);
        std::construct_at(&host_.closing, [this](int status) { host_.endStatus = status; });
    }

    void run(commands::CommandId command) { EXPECT_TRUE(player().commands().run(command)); }
};

TEST_F(ComfortSessions, thePlaceAndTheOrderOfOneThatMayGoOnAreKept) {
    options_.comfort = true;
    begin();
    run(commands::CommandId::shuffle);
    player().music().playback.rows.playItem(1);
    player().music().playback.time.SetPlayingPos(player().state().active(), 30, false);
    player().saveSession();
    EXPECT_NE(host_.folder.read(kSettings).find("<RSM>2 30</RSM>"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(host_.paths.of(host::DataItem::ShuffleOrder)));
}

TEST_F(ComfortSessions, aSessionThatIsKilledLosesLittle) {
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        set("SHF", "1");
        begin();
        const auto kept = [this] { return host_.folder.read(kSettings); };
        const auto pause = [this] { run(commands::CommandId::pause); };
        player().music().playback.rows.playItem(1);
        advance(300);
        EXPECT_EQ(kept().find("<RSM>2 0</RSM>") != std::string::npos, kind) << "it started";
        player().music().playback.time.SetPlayingPos(player().state().active(), 30, false);
        advance(2000);
        EXPECT_EQ(kept().find("<RSM>2 30</RSM>"), std::string::npos) << "nobody asks all the time";
        pause();
        advance(300);
        EXPECT_EQ(kept().find("<RSM>2 30</RSM>") != std::string::npos, kind);
        const std::string order = host_.paths.of(host::DataItem::ShuffleOrder);
        while (kind && !std::filesystem::exists(order)) {
            std::this_thread::yield(); // another thread writes it
        }
        endPlayer(); // and no step of the end
        sound_.initialized = false;
        EXPECT_EQ(std::filesystem::exists(order), kind);
        begin();
        EXPECT_EQ(player().stdSS().SelectedIndex, kind ? 2 : 0);
        end();
    }
}

TEST_F(ComfortSessions, aSessionOfOneFileKeepsNoPlace) {
    put("CMF01", "1"); // the file alone is the session: the saved list is not read
    options_.commandLine = "\"" + track("other.mp3") + "\"";
    begin();
    ASSERT_TRUE(player().state().IsPlaying);
    advance(1000);
    EXPECT_EQ(host_.folder.read(kSettings).find("<RSM>"), std::string::npos);
}

TEST_F(ComfortSessions, aStartGoesOnWhereTheLastOneEnded) {
    using commands::CommandId;
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        begin();
        player().music().playback.rows.playItem(1);
        player().music().playback.time.SetPlayingPos(player().state().active(), 30, false);
        end();
        begin();
        EXPECT_EQ(player().stdSS().SelectedIndex, kind ? 2 : 0);
        EXPECT_FALSE(player().state().IsPlaying);
        run(CommandId::play);
        EXPECT_TRUE(player().stdSS().isPlayed(kind ? 2 : 1));
        const auto& state = player().state();
        EXPECT_EQ(sound_.channel(state.active()).position / (44100 * 4), kind ? 30 : 0);
        EXPECT_EQ(host_.folder.read(kSettings).find("<RSM>") != std::string::npos, kind);
        run(CommandId::stop);
        end();
    }
}

TEST_F(ComfortSessions, theShuffleGoesOnWithItsRound) {
    options_.comfort = true;
    set("SHF", "1");
    begin();
    player().music().playback.rows.playItem(1);
    end();
    std::set<playlist::Row> heard{2};
    for (int session = 0; session < 2; ++session) {
        begin();
        player().music().playback.advance.Next_track();
        heard.insert(player().stdSS().SoundingRow());
        end();
    }
    EXPECT_EQ(heard.size(), 3U);
    begin();
    EXPECT_FALSE(player().music().playback.advance.hasNext());
    player().music().playback.advance.last_track();
    EXPECT_NE(player().stdSS().SoundingRow(), 0);
}

TEST_F(ComfortSessions, whatCannotBePlayedIsToldInOneLineForAWhile) {
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        begin();
        const std::string& notice = player().view().core.screen.playing.notice;
        player().stdSS().AddItem("", "/none.mp3", "none", "00:00", 0);
        player().music().playback.rows.playItem(3);
        EXPECT_EQ(notice, kind ? "Cannot be played: 1" : "");
        player().music().playback.rows.playItem(3);
        EXPECT_EQ(notice, kind ? "Cannot be played: 2" : "");
        advance(6000);
        EXPECT_EQ(notice, "");
        for (const auto& box : host_.dialogs.boxes) {
            ADD_FAILURE() << box.title << ": " << box.text;
        }
        end();
    }
}

TEST_F(ComfortSessions, aChangeActsOnWhatSounds) {
    begin();
    player().music().playback.rows.playItem(0);
    player().ground().state.BalanceValue = 50;
    player().ground().state.comfort = all();
    sound_.calls.clear();
    player().applyComfort();
    const sound::Handle channel = player().state().active();
    EXPECT_EQ(sound_.channel(channel).pan, 50);
    for (const float gain : sound_.gains(channel)) {
        EXPECT_EQ(gain, 0.0F);
    }
}

TEST_F(ComfortSessions, theDigitsTellHoursAndMinutes) {
    const std::string path = track("long.mp3", {.seconds = 8000});
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        begin();
        player().stdSS().AddItem("", path, "long", "00:00", 0);
        player().music().playback.rows.playItem(player().stdSS().ListCount() - 1);
        const player::CBASS_TIME time(sound_);
        time.SetPlayingPos(player().state().active(), 3723, false);
        advance(600);
        std::string digits;
        for (const std::size_t place : {1U, 2U, 4U, 5U}) {
            digits += player().elements().get(window::MainElement::timed, place).caption;
        }
        EXPECT_EQ(digits.substr(0, 3), kind ? "010" : "020");
        EXPECT_EQ(digits.back() == '2', kind) << digits;
        end();
    }
}

} // namespace
} // namespace tovik::test
