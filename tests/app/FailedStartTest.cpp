// SPDX-License-Identifier: GPL-3.0-or-later
// A start with settings that are missing, damaged or cannot be read.
#include "app/AppRig.h"
#include "support/host/SettingPlace.h"
#include "support/host/Unprivileged.h"

#include <array>
#include <utility>

namespace tovik::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class FailedStart : public AppRig {
protected:
    [[nodiscard]] std::string noKey(const std::string& key) const {
        return "Invalid use of Null" + settingPlace(host_.folder, key);
    }

    [[nodiscard]] std::string bad(const std::string& key, const std::string& text) const {
        return "Type mismatch" + settingPlace(host_.folder, key, text);
    }

    void lockFolder() const {
        fs::permissions(host_.folder / kSettings, fs::perms(0444));
        fs::permissions(host_.folder.path(), fs::perms(0755));
        fs::permissions(host_.folder / "db", fs::perms(0555));
    }

    [[nodiscard]] std::string notice() {
        return player().elements().get(window::MainElement::notice_img).caption;
    }

    /// The file with settings that a default would not bear.
    void setMarks() const {
        for (const auto& [key, text] : kMarks) {
            set(key, text);
        }
    }

    void expectMarks(const std::string& but = "") const {
        for (const auto& [key, text] : kMarks) {
            EXPECT_EQ(setting(key), key == but ? "oops" : text) << key;
        }
    }

    static constexpr std::array<std::pair<const char*, const char*>, 12> kMarks = {{
        {"CVL", "33"},
        {"SHF", "1"},
        {"EQ", "1"},
        {"RPT", "1"},
        {"CFD", "1"},
        {"BLV", "-50"},
        {"TMD", "1"},
        {"SLD", "1"},
        {"CVP", "3"},
        {"X", "3000"},
        {"Y", "4500"},
        {"QPL", "1"},
    }};
};

TEST_F(FailedStart, aBadValueIsToldOnceAndWipesNothing) {
    for (const char* key : {"MI", "CVL", "CHKU", "TMD", "QPL", "MSN", "CDB", "X", "Y"}) {
        SCOPED_TRACE(key);
        setMarks();
        const std::string kept = setting(key);
        set(key, "oops");
        const std::string before = host_.folder.read(kSettings);
        app::frmPlayer player(host_.host(), sound_, window_, windows_, news_, options_);
        player.Form_Initialize();
        player.Form_Load();
        ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
        EXPECT_EQ(host_.dialogs.boxes[0].text, bad(key, "oops"));
        // A window that never came to its place has one all the same.
        window_.x = 0;
        player.kill_me();
        EXPECT_EQ(host_.folder.read(kSettings), before);
        host_.dialogs.boxes.clear();
        set(key, kept);
    }
}

TEST_F(FailedStart, whatWasReadIsSavedAsTheUserLeftIt) {
    setMarks();
    set("TMD", "oops");
    start();
    player().music().playback.advance.button_shuffle();
    player().kill_me();
    EXPECT_EQ(setting("SHF"), "0");
    set("SHF", "1");
    expectMarks("TMD");
}

TEST_F(FailedStart, aMissingPictureWipesNothing) {
    setMarks();
    fs::remove(host_.folder / kSkin);
    host_.folder.write("skins/CurrentSkin/stray.bmp", "");
    const std::string before = host_.folder.read(kSettings);
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text,
              "File not found: " + (host_.folder / "skins/CurrentSkin/qpl_exp.bmp"));
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(FailedStart, anEndWhileABoxOfTheStartStandsWipesNothing) {
    setMarks();
    set("X", "oops");
    const std::string before = host_.folder.read(kSettings);
    host_.dialogs.onMessage = [this] { player().kill_me(); };
    start();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(FailedStart, anEndWithinTheStepThatReadsTheCurveKeepsTheCurve) {
    const std::string curve = "<CEQ Value=\"6/6/13/6/6/6/6/6/6/6\"/>";
    std::string bytes = host_.folder.read(kSettings);
    bytes.replace(bytes.find("<CEQ"), bytes.find("/>", bytes.find("<CEQ")) + 2 - bytes.find("<CEQ"),
                  curve);
    host_.folder.write(kSettings, bytes);
    // The box of a gain that no slider has.
    host_.dialogs.onMessage = [this] { player().kill_me(); };
    start();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(host_.folder.read(kSettings), testing::HasSubstr(curve));
}

TEST_F(FailedStart, aListThatTheStartCouldNotReadIsNotReplaced) {
    const std::string bad = "#EXTM3U\r\n#EXTINF:long,One\r\n/music/one.mp3\r\n";
    host_.folder.write(kList, bad);
    start();
    advance(200);
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    player().stdSS().AddItem("", "/music/two.mp3", "Two", "01:10", 70);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kList), bad);
}

TEST_F(FailedStart, aDamagedCurveIsToldInOneLineAndTheStartGoesOn) {
    std::string bytes = host_.folder.read(kSettings);
    bytes.replace(bytes.find("<CEQ"), bytes.find("/>", bytes.find("<CEQ")) + 2 - bytes.find("<CEQ"),
                  "<CEQ Value=\"6/loud/6\"/>");
    host_.folder.write(kSettings, bytes);
    start();
    EXPECT_THAT(logged(), ElementsAre(bad("CEQ", "6/loud/6") + ",13,Player,Load"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_TRUE(player().state().LoadFinished);
    player().kill_me();
    EXPECT_THAT(host_.folder.read(kSettings), testing::HasSubstr("<CEQ Value=\"6/loud/6\"/>"));
}

TEST_F(FailedStart, withoutASettingsFileThePhasesTellOneAfterTheOther) {
    fs::remove(host_.folder / kSettings);
    player().Form_Initialize();
    EXPECT_THAT(logged(), ElementsAre(noKey("MI") + ",94,Player,Initialize"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, noKey("MI"));
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub Form_Initialize");
    player().Form_Load();
    EXPECT_THAT(logged(), ElementsAre(noKey("MI") + ",94,Player,Initialize",
                                      noKey("MI") + ",94,Player,Load"));
    EXPECT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_FALSE(host_.endStatus);
    EXPECT_FALSE(fs::exists(host_.folder / kSettings));
    advance(1000);
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_EQ(host_.errors.size(), 0U);
}

TEST_F(FailedStart, theLineOfALogWithoutSettingsHasNoVersion) {
    fs::remove(host_.folder / kSettings);
    player().Form_Initialize();
    EXPECT_EQ(host_.folder.read("db/err.log"),
              "01.01.2000/00:00:00," + noKey("MI") + ",94,Player,Initialize,,,6.1\r\n");
}

TEST_F(FailedStart, aDamagedFileIsNeverWritten) {
    const std::string damaged = "<Settings><MI>0</MI><CVL>80</CVL>";
    host_.folder.write(kSettings, damaged);
    start();
    EXPECT_THAT(logged(), ElementsAre(noKey("MI") + ",94,Player,Initialize",
                                      noKey("MI") + ",94,Player,Load"));
    EXPECT_EQ(host_.folder.read(kSettings), damaged);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kSettings), damaged);
    EXPECT_EQ(host_.endStatus, 0);
}

TEST_F(FailedStart, aMissingKeyEndsTheLoadWhereItIsRead) {
    takeOut("TMD");
    start();
    EXPECT_THAT(logged(), ElementsAre(noKey("TMD") + ",94,Player,Load"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, noKey("TMD"));
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Tovik");
    EXPECT_FALSE(host_.endStatus);
    EXPECT_TRUE(sound_.initialized);
    EXPECT_THAT(sound_.calls, Not(Contains("window shown")));
    EXPECT_FALSE(player().state().LoadFinished);
}

TEST_F(FailedStart, aMissingKeyOfTheFirstGroupKeepsWhatStandsBeforeIt) {
    set("CVL", "45");
    set("SHF", "1");
    takeOut("CHKU");
    start();
    EXPECT_THAT(logged(), ElementsAre(noKey("CHKU") + ",94,Player,Load"));
    EXPECT_THAT(sound_.calls, IsEmpty());
    player().kill_me();
    EXPECT_EQ(setting("CVL"), "45");
    EXPECT_EQ(setting("SHF"), "1");
}

TEST_F(FailedStart, aPlaceThatIsNoNumberLeavesTheWindowToWhoStartsThePlayer) {
    set("X", "left");
    start();
    EXPECT_THAT(logged(), ElementsAre(bad("X", "left") + ",13,Player,Load"));
    EXPECT_THAT(sound_.calls, Not(Contains("window shown")));
}

TEST_F(FailedStart, withoutALogTheBoxTellsWhatFailed) {
    set("CVL", "oops");
    lockFolder();
    {
        const Unprivileged user;
        start();
    }
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, bad("CVL", "oops"));
    EXPECT_FALSE(host_.endStatus);
    EXPECT_THAT(host_.errors, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(FailedStart, aFolderThatCannotBeWrittenIsToldWhenTheStartIsOver) {
    options_.commandLine = "\"" + track("song.mp3") + "\"";
    set("CLNG", "Slovenian");
    lockFolder();
    {
        const Unprivileged user;
        host_.dialogs.onMessage = [this] {
            EXPECT_TRUE(player().music().sounds());
            EXPECT_THAT(sound_.calls, Contains("window shown"));
        };
        start();
        EXPECT_TRUE(player().music().sounds());
        // Each start of a track reads settings, and nothing more is said.
        player().music().playback.advance.Next_track();
        player().stdSS().Clear();
    }
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Permission denied: " + (host_.folder / kSettings));
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Tovik");
    EXPECT_EQ(notice(), "Spremembe se ne ohranijo");
    EXPECT_THAT(host_.errors, IsEmpty());
}

TEST_F(FailedStart, aSessionOnAStandInSaysSo) {
    options_.unkept = base::RuntimeError(base::ErrorNumber::DiskFull, "Disk full: /data");
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Disk full: /data");
    EXPECT_THAT(logged(), ElementsAre("Disk full: /data,61,Player,Load"));
    EXPECT_EQ(notice(), "Changes are not kept");
    set("CLNG", "Slovenian");
    player().changeLanguage();
    EXPECT_EQ(notice(), "Spremembe se ne ohranijo");
}

TEST_F(FailedStart, aDiskThatIsFullLaterIsToldAtOnceAndOnce) {
    start();
    EXPECT_EQ(notice(), "");
    lockFolder();
    {
        const Unprivileged user;
        player().changeLanguage();
        player().ground().errors.tell(base::RuntimeError(base::ErrorNumber::Overflow));
        player().changeLanguage();
    }
    ASSERT_THAT(host_.dialogs.boxes, testing::SizeIs(2));
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Permission denied: " + (host_.folder / kSettings));
    EXPECT_EQ(host_.dialogs.boxes[1].text, "Overflow");
    EXPECT_EQ(notice(), "Changes are not kept");
}

} // namespace
} // namespace tovik::test
