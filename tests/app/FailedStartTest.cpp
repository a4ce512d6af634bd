// SPDX-License-Identifier: GPL-3.0-or-later
// A start with settings that are missing, damaged or cannot be read.
#include "app/AppRig.h"
#include "support/host/Unprivileged.h"

namespace tovik::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class FailedStart : public AppRig {};

TEST_F(FailedStart, withoutASettingsFileThePhasesTellOneAfterTheOther) {
    fs::remove(host_.folder / kSettings);
    player().Form_Initialize();
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null,94,Player,Initialize"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Invalid use of Null");
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub Form_Initialize");
    player().Form_Load();
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null,94,Player,Initialize",
                                      "Invalid use of Null,94,Player,Load"));
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
              "01.01.2000/00:00:00,Invalid use of Null,94,Player,Initialize,,,6.1\r\n");
}

TEST_F(FailedStart, aDamagedFileIsNeverWritten) {
    const std::string damaged = "<Settings><MI>0</MI><CVL>80</CVL>";
    host_.folder.write(kSettings, damaged);
    start();
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null,94,Player,Initialize",
                                      "Invalid use of Null,94,Player,Load"));
    EXPECT_EQ(host_.folder.read(kSettings), damaged);
    player().kill_me();
    EXPECT_EQ(host_.folder.read(kSettings), damaged);
    EXPECT_EQ(host_.endStatus, 0);
}

TEST_F(FailedStart, aMissingKeyEndsTheLoadWhereItIsRead) {
    takeOut("TMD");
    start();
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null,94,Player,Load"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
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
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null,94,Player,Load"));
    EXPECT_THAT(sound_.calls, IsEmpty());
    player().kill_me();
    EXPECT_EQ(setting("CVL"), "45");
    EXPECT_EQ(setting("SHF"), "1");
}

TEST_F(FailedStart, aPlaceThatIsNoNumberLeavesTheWindowToWhoStartsThePlayer) {
    set("X", "left");
    start();
    EXPECT_THAT(logged(), ElementsAre("Type mismatch,13,Player,Load"));
    EXPECT_THAT(sound_.calls, Not(Contains("window shown")));
}

TEST_F(FailedStart, aLogThatCannotBeWrittenGoesToTheEntry) {
    fs::remove(host_.folder / kSettings);
    fs::permissions(host_.folder.path(), fs::perms(0755));
    fs::permissions(host_.folder / "db", fs::perms(0555));
    host_.dispatcher.reportTo(
        [this](const base::RuntimeError& error) { player().errors().reportUnguarded(error); });
    {
        const Unprivileged user;
        host_.dispatcher.run([this] { player().Form_Initialize(); });
    }
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_NE(host_.dialogs.boxes[0].text, "");
    EXPECT_FALSE(host_.endStatus);
    EXPECT_THAT(logged(), IsEmpty());
}

} // namespace
} // namespace tovik::test
