// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/DataFolder.h"
#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::host {
namespace {

namespace fs = std::filesystem;

class DataFolderTest : public testing::Test {
protected:
    DataFolderTest() {
        folder_.write("shipped/db/settings.xml", "<Settings/>");
        folder_.write("shipped/Languages/English.lng", "[x]");
        folder_.write("shipped/Languages/Slovenian.lng", "[x]");
        environment_ = {.home = folder_ / "home",
                        .dataHome = "",
                        .locale = "C",
                        .searchPath = "",
                        .workingFolder = folder_ / "work",
                        .executableFolder = folder_ / "bin"};
    }

    std::error_code fill(const std::string& name, const std::string& locale = "C") const {
        return fillDataFolder(folder_ / name, folder_ / "shipped", locale);
    }

    test::TemporaryFolder folder_;
    Environment environment_;
};

TEST_F(DataFolderTest, theOneAskedForComesFirst) {
    folder_.write("bin/db/settings.xml", "");
    EXPECT_EQ(chooseDataFolder(environment_, "/x"), "/x");
    EXPECT_EQ(chooseDataFolder(environment_, "x"), folder_ / "work/x");
}

TEST_F(DataFolderTest, thenThatOfAPortableProgram) {
    const std::string settings = folder_.write("bin/db/settings.xml", "");
    EXPECT_EQ(chooseDataFolder(environment_, std::nullopt), folder_ / "bin");
    folder_.write("bin/db/other", "");
    fs::remove(settings);
    EXPECT_EQ(chooseDataFolder(environment_, std::nullopt), folder_ / "home/.local/share/tovik");
}

TEST_F(DataFolderTest, thenTheUsersDataHome) {
    environment_.dataHome = folder_ / "xdg";
    EXPECT_EQ(chooseDataFolder(environment_, std::nullopt), folder_ / "xdg/tovik");
    environment_.dataHome = "relative";
    EXPECT_EQ(chooseDataFolder(environment_, std::nullopt), folder_ / "home/.local/share/tovik");
}

TEST_F(DataFolderTest, withoutAHomeThereMustBeAnotherPlace) {
    EXPECT_EQ(homeProblem(environment_, std::nullopt), std::nullopt);
    environment_.home = "relative/home";
    EXPECT_EQ(homeProblem(environment_, std::nullopt),
              "HOME is no absolute path: \"relative/home\"");
    EXPECT_EQ(homeProblem(environment_, "/x"), "HOME is no absolute path: \"relative/home\"");
    environment_.home = "";
    EXPECT_EQ(homeProblem(environment_, std::nullopt), "no home folder is known: please set HOME");
    EXPECT_EQ(homeProblem(environment_, "/x"), std::nullopt);
    environment_.dataHome = "/data";
    EXPECT_EQ(homeProblem(environment_, std::nullopt), std::nullopt);
}

TEST_F(DataFolderTest, shippedDataBesideTheProgramOrInstalledOrInTheSourceTree) {
    EXPECT_EQ(shippedDataFolder(environment_), "");
    for (const char* place : {"../data", "share/tovik", "bin/data"}) {
        environment_.executableFolder =
            folder_ / (std::string(place) == "../data" ? "a/b/c" : "bin");
        const std::string data = std::string(place) == "../data" ? "a/data" : place;
        folder_.write(data + "/db/settings.xml", "");
        EXPECT_EQ(shippedDataFolder(environment_), folder_ / data);
    }
}

TEST_F(DataFolderTest, theFirstStartFillsAndLeavesTheLanguage) {
    EXPECT_FALSE(fill("new/tovik", "sl_SI.UTF-8"));
    EXPECT_EQ(folder_.read("new/tovik/db/settings.xml"), "<Settings/>");
    EXPECT_EQ(folder_.read("new/tovik/firstrun.ini"), "[Firstrun]\r\nLNG=Slovenian\r\n");
    EXPECT_FALSE(fs::exists(folder_ / "new/tovik/.filling"));
}

TEST_F(DataFolderTest, theLanguageIsEnglishWhereTheLocaleHasNoFile) {
    for (const std::string locale : {"de_DE.UTF-8", "C", "", "sl", "sl@x"}) {
        const std::string name = "data-" + locale;
        EXPECT_FALSE(fill(name, locale));
        const std::string language = locale.starts_with("sl") ? "Slovenian" : "English";
        EXPECT_EQ(folder_.read(name + "/firstrun.ini"), "[Firstrun]\r\nLNG=" + language + "\r\n");
    }
}

TEST_F(DataFolderTest, anEmptyFolderIsFilledAndAnyOtherLeftAlone) {
    fs::create_directory(folder_ / "empty");
    EXPECT_FALSE(fill("empty"));
    EXPECT_TRUE(fs::exists(folder_ / "empty/db/settings.xml"));
    folder_.write("used/note", "mine");
    EXPECT_FALSE(fill("used"));
    EXPECT_FALSE(fs::exists(folder_ / "used/db"));
}

TEST_F(DataFolderTest, aSecondStartChangesNothing) {
    EXPECT_FALSE(fill("data"));
    fs::remove(folder_ / "data/firstrun.ini");
    folder_.write("data/db/settings.xml", "<Settings>mine</Settings>");
    EXPECT_FALSE(fill("data"));
    EXPECT_FALSE(fs::exists(folder_ / "data/firstrun.ini"));
    EXPECT_EQ(folder_.read("data/db/settings.xml"), "<Settings>mine</Settings>");
}

TEST_F(DataFolderTest, settingsThatWereRemovedAreThoseOfTheFirstStart) {
    EXPECT_FALSE(fill("data"));
    fs::remove(folder_ / "data/firstrun.ini");
    fs::remove(folder_ / "data/db/settings.xml");
    folder_.write("data/db/autosave.m3u", "mine");
    EXPECT_FALSE(fill("data", "sl_SI.UTF-8"));
    EXPECT_EQ(folder_.read("data/db/settings.xml"), "<Settings/>");
    EXPECT_EQ(folder_.read("data/firstrun.ini"), "[Firstrun]\r\nLNG=Slovenian\r\n");
    EXPECT_EQ(folder_.read("data/db/autosave.m3u"), "mine");
    // Somebody else's folder of that name makes no data folder.
    folder_.write("other/db/table", "mine");
    EXPECT_FALSE(fill("other"));
    EXPECT_FALSE(fs::exists(folder_ / "other/db/settings.xml"));
}

TEST_F(DataFolderTest, aBrokenOffFillIsTakenUpAgain) {
    folder_.write("data/.filling", "");
    folder_.write("data/db/settings.xml", "<Settings>mine</Settings>");
    EXPECT_FALSE(fill("data"));
    EXPECT_EQ(folder_.read("data/db/settings.xml"), "<Settings>mine</Settings>");
    EXPECT_TRUE(fs::exists(folder_ / "data/Languages/English.lng"));
    EXPECT_FALSE(fs::exists(folder_ / "data/.filling"));
}

TEST_F(DataFolderTest, aDataFolderOfAnEarlierVersionGetsTheLanguages) {
    folder_.write("shipped/skins/base.tsf", "skin");
    folder_.write("shipped/CDDB/server.ini", "[server]");
    folder_.write("shipped/music/x.ogg", "tune");
    folder_.write("data/db/settings.xml", "<Settings>mine</Settings>");
    EXPECT_FALSE(fill("data"));
    EXPECT_EQ(folder_.read("data/Languages/Slovenian.lng"), "[x]");
    EXPECT_EQ(folder_.read("data/skins/base.tsf"), "skin");
    EXPECT_EQ(folder_.read("data/CDDB/server.ini"), "[server]");
    EXPECT_EQ(folder_.read("data/db/settings.xml"), "<Settings>mine</Settings>");
    for (const char* name : {"data/music", "data/firstrun.ini"}) {
        EXPECT_FALSE(fs::exists(folder_ / name)) << name;
    }
}

TEST_F(DataFolderTest, languagesThatAreThereStayAsTheUserHasThem) {
    folder_.write("data/db/settings.xml", "<Settings/>");
    folder_.write("data/languages/English.lng", "mine");
    EXPECT_FALSE(fill("data"));
    EXPECT_EQ(folder_.read("data/languages/English.lng"), "mine");
    EXPECT_EQ(folder_.read("data/languages/Slovenian.lng"), "[x]"); // this one was missing
    EXPECT_FALSE(fs::exists(folder_ / "data/Languages"));
}

TEST_F(DataFolderTest, copiesOfReadOnlyFilesCanBeWritten) {
    fs::permissions(folder_ / "shipped/db/settings.xml", fs::perms(0444));
    EXPECT_FALSE(fill("data"));
    EXPECT_EQ(fs::status(folder_ / "data/db/settings.xml").permissions(), fs::perms(0644));
}

TEST_F(DataFolderTest, withoutShippedDataThereIsAFolderForSettings) {
    EXPECT_FALSE(fillDataFolder(folder_ / "data", "", "C"));
    EXPECT_TRUE(fs::is_directory(folder_ / "data/db"));
}

TEST_F(DataFolderTest, aReadOnlyPlaceIsAFailure) {
    fs::create_directory(folder_ / "home");
    fs::permissions(folder_ / "home", fs::perms(0555));
    fs::permissions(folder_.path(), fs::perms(0755));
    const test::Unprivileged rights;
    EXPECT_EQ(fill("home/tovik"), std::errc::permission_denied);
    EXPECT_EQ(fill("shipped/db/settings.xml/x"), std::errc::not_a_directory);
}

TEST_F(DataFolderTest, aFolderThatCanBeWrittenIsLeftAsItIs) {
    folder_.write("user/db/settings.xml", "<Settings/>");
    EXPECT_FALSE(tryDataFolder(folder_ / "user"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "user/db"), fs::directory_iterator()),
              1);
}

TEST_F(DataFolderTest, aTrialTellsWhyNothingCanBeKept) {
    folder_.write("user/db/settings.xml", "<Settings/>");
    {
        const test::FullDisk full(100);
        EXPECT_EQ(tryDataFolder(folder_ / "user"), std::errc::file_too_large);
    }
    fs::permissions(folder_.path(), fs::perms(0755));
    fs::permissions(folder_ / "user/db", fs::perms(0555));
    const test::Unprivileged user;
    EXPECT_EQ(tryDataFolder(folder_ / "user"), std::errc::permission_denied);
}

TEST_F(DataFolderTest, aStandInForAFolderInUseKeepsWhatItHolds) {
    folder_.write("user/db/settings.xml", "<Settings><A>1</A></Settings>");
    folder_.write("user/db/autosave.m3u", "#EXTM3U\r\n");
    folder_.write("user/skins/CurrentSkin/main.bmp", "own");
    folder_.write("user/CDDB/05025602", "DTITLE=own");
    folder_.write("user/huge/film", "not taken over");
    fs::create_directory(folder_ / "in");
    ASSERT_FALSE(fillStandIn(folder_ / "in", folder_ / "user", folder_ / "shipped", "C"));
    EXPECT_EQ(folder_.read("in/db/settings.xml"), "<Settings><A>1</A></Settings>");
    EXPECT_EQ(folder_.read("in/db/autosave.m3u"), "#EXTM3U\r\n");
    EXPECT_EQ(folder_.read("in/skins/CurrentSkin/main.bmp"), "own");
    EXPECT_EQ(folder_.read("in/CDDB/05025602"), "DTITLE=own");
    EXPECT_TRUE(fs::exists(folder_ / "in/Languages/English.lng"));
    EXPECT_FALSE(fs::exists(folder_ / "in/huge"));
    EXPECT_FALSE(fs::exists(folder_ / "in/firstrun.ini"));
}

TEST_F(DataFolderTest, aStandInForNothingIsAFirstStart) {
    const std::string file = folder_.write("user", "a file where the folder should be");
    fs::create_directory(folder_ / "in");
    ASSERT_FALSE(fillStandIn(folder_ / "in", file, folder_ / "shipped", "sl_SI"));
    EXPECT_EQ(folder_.read("in/db/settings.xml"), "<Settings/>");
    EXPECT_EQ(folder_.read("in/firstrun.ini"), "[Firstrun]\r\nLNG=Slovenian\r\n");
}

} // namespace
} // namespace tovik::host
