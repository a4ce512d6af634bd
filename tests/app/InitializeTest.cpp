// SPDX-License-Identifier: GPL-3.0-or-later
// What happens before there is a window.
#include "app/AppRig.h"
#include "support/host/SettingPlace.h"
#include "support/host/Unprivileged.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Initialize : public AppRig {
protected:
    void install(const std::string& bytes) const { host_.folder.write("firstrun.ini", bytes); }

    [[nodiscard]] bool installed() const {
        return std::filesystem::exists(host_.folder / "firstrun.ini");
    }
};

TEST_F(Initialize, anOrdinaryStart) {
    const std::string before = host_.folder.read(kSettings);
    player().Form_Initialize();
    EXPECT_EQ(host_.folder.read(kSettings), before);
    EXPECT_FALSE(player().state().FirstRun);
    EXPECT_FALSE(host_.endStatus);
    EXPECT_TRUE(host_.lock.held);
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Initialize, theLanguageOfTheInstallationIsTakenOverOnce) {
    install("[Firstrun]\r\nLNG= Slovenian \r\n");
    player().Form_Initialize();
    EXPECT_EQ(setting("CLNG"), "Slovenian");
    EXPECT_FALSE(installed());
    EXPECT_TRUE(player().state().FirstRun);
    EXPECT_FALSE(host_.endStatus);
}

TEST_F(Initialize, anInstallationWithoutALanguageReadsAsEmpty) {
    install("[Other]\nLNG=English\n");
    player().Form_Initialize();
    EXPECT_EQ(setting("CLNG"), "");
    EXPECT_FALSE(installed());
    EXPECT_TRUE(player().state().FirstRun);
}

TEST_F(Initialize, aSystemThatIsTooOldIsRefused) {
    host_.operatingSystem.major = 4;
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].icon, host::MessageIcon::Critical);
    EXPECT_NE(host_.dialogs.boxes[0].text, "");
    EXPECT_NE(host_.dialogs.boxes[0].title, "");
    EXPECT_TRUE(host_.endStatus);
    EXPECT_FALSE(host_.lock.held);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(Initialize, theInstallationIsTakenOverBeforeAnOldSystemIsRefused) {
    host_.operatingSystem.major = 4;
    install("[Firstrun]\nLNG=Deutsch\n");
    start();
    EXPECT_EQ(setting("CLNG"), "Deutsch");
    EXPECT_FALSE(installed());
    EXPECT_TRUE(host_.endStatus);
}

TEST_F(Initialize, theOldestSystemThatWillDo) {
    host_.operatingSystem.major = 5;
    start();
    EXPECT_FALSE(host_.endStatus);
}

TEST_F(Initialize, withoutSettingsTheInstallationIsConsumedAllTheSame) {
    std::filesystem::remove(host_.folder / kSettings);
    install("[Firstrun]\nLNG=Deutsch\n");
    player().Form_Initialize();
    EXPECT_FALSE(installed());
    EXPECT_TRUE(player().state().FirstRun);
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kSettings));
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null" + settingPlace(host_.folder, "MI") +
                                      ",94,Player,Initialize"));
}

TEST_F(Initialize, aLanguageThatMayNotBeStoredIsTakenOverByTheNextStart) {
    install("[Firstrun]\nLNG=Deutsch\n");
    namespace fs = std::filesystem;
    fs::permissions(host_.folder.path(), fs::perms(0777));
    fs::permissions(host_.folder / "firstrun.ini", fs::perms(0666));
    fs::permissions(host_.folder / kSettings, fs::perms(0444));
    fs::permissions(host_.folder / "db", fs::perms(0555));
    {
        const Unprivileged user;
        player().Form_Initialize();
    }
    EXPECT_TRUE(installed());
    EXPECT_FALSE(player().state().FirstRun);
}

TEST_F(Initialize, aSettingThatIsNoNumber) {
    set("MI", "one");
    player().Form_Initialize();
    EXPECT_THAT(logged(), ElementsAre("Type mismatch" + settingPlace(host_.folder, "MI", "one") +
                                      ",13,Player,Initialize"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text,
              "Type mismatch" + settingPlace(host_.folder, "MI", "one"));
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub Form_Initialize");
    EXPECT_FALSE(host_.endStatus);
}

} // namespace
} // namespace tovik::test
