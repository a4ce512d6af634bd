// SPDX-License-Identifier: GPL-3.0-or-later
// Starts and ends that stand on their own feet: with comfort, what is missing, damaged or fails
// ends nothing else.
#include "app/AppRig.h"
#include "support/host/SettingPlace.h"

#include <filesystem>
#include <memory>

namespace tovik::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class OwnFeet : public AppRig {
protected:
    OwnFeet() {
        options_.comfort = true;
        options_.shippedFolder = TOVIK_DATA_DIR;
    }

    [[nodiscard]] std::string notice() {
        return player().elements().get(window::MainElement::notice_img).caption;
    }

    /// The next process of a user: nothing of the one before goes on in it.
    void beginAnew() {
        endPlayer();
        host_.dialogs.boxes.clear();
        host_.errors.clear();
        host_.endStatus.reset();
        sound_.initialized = false;
        std::destroy_at(&host_.closing);
        std::construct_at(&host_.closing, [this](int status) { host_.endStatus = status; });
    }

    void setCurve(const std::string& curve) const {
        std::string bytes = host_.folder.read(kSettings);
        const std::size_t begin = bytes.find("<CEQ");
        bytes.replace(begin, bytes.find("/>", begin) + 2 - begin, "<CEQ Value=\"" + curve + "\"/>");
        host_.folder.write(kSettings, bytes);
    }
};

TEST_F(OwnFeet, whatIsMissingOrBadTakesTheShippedValue) {
    for (const char* const key : {"MI", "TMD", "X", "CDB", "CHKU", "VPS"}) {
        takeOut(key);
    }
    set("CVL", "oops");
    set("QPL", "");
    set("SHF", "1");
    setCurve("6/loud/6");
    start();
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_EQ(player().state().CurrentVolume, 80);
    EXPECT_TRUE(player().state().ShuffleOn);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(sound_.calls, Contains("moved to 100 100"));
    const auto bad = [this](const std::string& key, const std::string& text) {
        std::string place = settingPlace(host_.folder, key, text);
        for (std::size_t at = 0; (at = place.find('"', at)) != std::string::npos; at += 2) {
            place.insert(at, 1, '"');
        }
        return "\"Type mismatch" + place + "\",13,Player,Load";
    };
    EXPECT_THAT(logged(), ElementsAre(bad("CVL", "oops"), bad("QPL", ""), bad("CEQ", "6/loud/6")));
    player().kill_me();
    EXPECT_EQ(setting("CVL"), "80");
    EXPECT_EQ(setting("X"), "1500");
    EXPECT_EQ(setting("SHF"), "1");
}

TEST_F(OwnFeet, aDamagedFileIsToldBehindTheStart) {
    options_.comfort.reset();
    set("CLNG", "Slovenian");
    std::string damaged = host_.folder.read(kSettings);
    damaged.insert(damaged.find("<Settings>") + std::string("<Settings>").size(), "<CMF>1</CMF>");
    damaged.resize(damaged.size() / 2);
    host_.folder.write(kSettings, damaged);
    host_.dialogs.onMessage = [this] {
        EXPECT_TRUE(player().state().LoadFinished);
        EXPECT_THAT(sound_.calls, Contains("window shown"));
    };
    start();
    const std::string aside = host_.folder / "db/settings.xml.damaged";
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_EQ(host_.dialogs.boxes[0].text,
              "The settings were damaged and begin anew. The old ones are kept in " + aside);
    EXPECT_THAT(logged(), ElementsAre("The settings were damaged and are kept as " + aside +
                                      ",-2147221504,Player,Load"));
    EXPECT_EQ(host_.folder.read("db/settings.xml.damaged"), damaged);
    EXPECT_EQ(setting("CMF"), "1") << "as the damaged file said";
    EXPECT_EQ(player().state().CurrentVolume, 80);
}

TEST_F(OwnFeet, whoNeverChoseComfortIsToldOfADamagedFileAsEver) {
    options_.comfort.reset();
    const std::string damaged = "<Settings><MI>0</MI><CVL>80</CVL>";
    host_.folder.write(kSettings, damaged);
    start();
    EXPECT_FALSE(player().state().LoadFinished);
    EXPECT_EQ(host_.folder.read(kSettings), damaged);
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
}

TEST_F(OwnFeet, aStepThatFailsEndsNoOther) {
    // Nothing stands in for these: no settings came with the program.
    options_.shippedFolder.clear();
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        set("TMD", "oops");
        set("CDB", "loud");
        set("SHF", "1");
        start();
        const auto bad = [this](const std::string& key, const std::string& text) {
            return "Type mismatch" + settingPlace(host_.folder, key, text);
        };
        EXPECT_EQ(player().state().LoadFinished, kind);
        ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
        EXPECT_EQ(host_.dialogs.boxes[0].text,
                  kind ? bad("TMD", "oops") + "\n" + bad("CDB", "loud") : bad("TMD", "oops"));
        EXPECT_THAT(logged(), SizeIs(kind ? 3 : 1));
        player().ground().state.ShuffleOn = false;
        player().kill_me();
        EXPECT_EQ(setting("TMD"), "oops") << "what was not read is not written";
        EXPECT_EQ(setting("SHF"), "0");
        beginAnew();
    }
}

TEST_F(OwnFeet, aStepOfTheEndThatFailsEndsNoOther) {
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        fs::remove_all(host_.folder / kList);
        host_.folder.write(kList, "#EXTM3U\r\n");
        set("CVL", "80");
        start();
        advance(200);
        // A folder in the place of the list: it cannot be saved.
        fs::remove(host_.folder / kList);
        fs::create_directories(host_.folder / (std::string(kList) + "/in the way"));
        player().ground().state.CurrentVolume = 33;
        player().kill_me();
        EXPECT_EQ(host_.endStatus, 0);
        EXPECT_EQ(setting("CVL"), kind ? "33" : "80");
        ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
        EXPECT_EQ(host_.dialogs.boxes[0].text, "Path/File access error");
        EXPECT_THAT(logged(), SizeIs(kind ? 2 : 1));
        beginAnew();
    }
}

TEST_F(OwnFeet, whatFailsInATickIsALineOfTheWindow) {
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        fs::remove(host_.folder / kList); // it is read in a tick
        start();
        advance(200);
        EXPECT_THAT(host_.dialogs.boxes, SizeIs(kind ? 0 : 1));
        EXPECT_EQ(notice().starts_with("File not found"), kind) << notice();
        EXPECT_THAT(logged(), SizeIs(kind ? 3 : 1));
        advance(5000);
        EXPECT_EQ(notice(), "");
        // What the user asks for is told in a box.
        player().ground().errors.report(base::RuntimeError(base::ErrorNumber::Overflow),
                                        config::player("Next_track"));
        EXPECT_THAT(host_.dialogs.boxes, SizeIs(kind ? 1 : 2));
        beginAnew();
    }
}

TEST_F(OwnFeet, whatNobodyTookInATickIsALineToo) {
    const auto throwing = [] { throw base::RuntimeError(base::ErrorNumber::Overflow); };
    for (const bool kind : {false, true}) {
        options_.comfort = kind;
        start();
        const auto timer = player().ground().host().timers.makeTimer(throwing);
        timer->setInterval(10);
        timer->setEnabled(true);
        advance(15);
        timer->setEnabled(false);
        EXPECT_EQ(notice(), kind ? "Overflow" : "");
        EXPECT_THAT(host_.errors, SizeIs(kind ? 0 : 1)); // the dispatcher's business otherwise
        beginAnew();
    }
}

TEST_F(OwnFeet, aQuestionInATickIsAskedAllTheSame) {
    start();
    const auto asking = [this] {
        player().ground().host().dialogs.showMessage(
            {.text = "Go on?", .buttons = host::MessageButtons::YesNo});
    };
    const auto timer = player().ground().host().timers.makeTimer(asking);
    timer->setInterval(10);
    timer->setEnabled(true);
    advance(15);
    timer->setEnabled(false);
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
}

} // namespace
} // namespace tovik::test
