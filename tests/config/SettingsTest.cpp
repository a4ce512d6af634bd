// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing single keys.
#include "config/Settings.h"

#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"
#include "config/SettingText.h"
#include "support/host/FullDisk.h"
#include "support/host/Unprivileged.h"

#include <filesystem>

#include <sys/stat.h>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;
using test::raisedNumber;
using test::raisedText;
using namespace std::string_literals;

class SettingsTest : public test::SettingsFixture {
protected:
    /// Tells one file from the one that takes its place.
    [[nodiscard]] ino_t identity() const {
        struct stat facts {};

        EXPECT_EQ(::stat(path().c_str(), &facts), 0);
        return facts.st_ino;
    }

    /// What happens to the file when nobody holds its old form open.
    template <typename Operation>
    bool rewrites(const Operation& operation) const {
        fs::create_hard_link(path(), host_.folder / "old"); // so that its number is not used again
        const ino_t before = identity();
        operation();
        fs::remove(host_.folder / "old");
        return identity() != before;
    }
};

TEST_F(SettingsTest, aKeyMayBeGivenInAnyCase) {
    writeSettings("<CVL>80</CVL><cvl>1</cvl>");
    EXPECT_EQ(settings_.getSetting("cvl"), "80");
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    settings_.saveSetting("Cvl", "33");
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    EXPECT_EQ(xml_.ReadNode("/Settings/cvl"), "1");
}

TEST_F(SettingsTest, everyReadSeesTheFileAsItIsNow) {
    writeSettings("<MI>0</MI>");
    EXPECT_EQ(settings_.getSetting("MI"), "0");
    writeSettings("<MI>1</MI>");
    EXPECT_EQ(settings_.getSetting("MI"), "1");
}

TEST_F(SettingsTest, everyReadRewritesTheFile) {
    writeSettings("<MI>0</MI>");
    const std::string before = file();
    EXPECT_TRUE(rewrites([&] { EXPECT_EQ(settings_.getSetting("MI"), "0"); }));
    EXPECT_EQ(file(), before);
}

TEST_F(SettingsTest, aMissingKeyRaisesNullAndDoesNotRewrite) {
    writeSettings("<MI>0</MI>");
    EXPECT_FALSE(rewrites([&] {
        EXPECT_EQ(raisedNumber([&] { std::ignore = settings_.getSetting("AP"); }), 94);
        EXPECT_EQ(raisedText([&] { std::ignore = settings_.getSetting("AP"); }),
                  "Invalid use of Null: " + path() + ": AP");
    }));
}

TEST_F(SettingsTest, aTextThatDoesNotConvertIsToldWithFileAndKey) {
    writeSettings("<TMD>oops</TMD><N>70000</N><L>" + std::string(500, 'x') + "</L>");
    const auto number = [this](const char* key) {
        return raisedText([&] { std::ignore = settings_.getAs(key, settingToInt16); });
    };
    EXPECT_EQ(number("tmd"), "Type mismatch: " + path() + ": TMD = \"oops\"");
    EXPECT_EQ(number("N"), "Overflow: " + path() + ": N = \"70000\"");
    EXPECT_EQ(number("Q"), "Invalid use of Null: " + path() + ": Q");
    EXPECT_EQ(number("L"), "Type mismatch: " + path() + ": L = \"" + std::string(100, 'x') + "\"");
}

TEST_F(SettingsTest, anEmptyElementIsAnEmptyText) {
    writeSettings("<A></A><B/>");
    EXPECT_EQ(settings_.getSetting("A"), "");
    EXPECT_EQ(settings_.getSetting("B"), "");
}

TEST_F(SettingsTest, savingSetsTheTextAndNothingElse) {
    writeSettings("\n <!-- c --><MI>0</MI>\n <Own>x</Own>");
    settings_.saveSetting("mi", "1");
    EXPECT_EQ(file(), "<?xml version=\"1.0\"?>\n<Settings>\n <!-- c --><MI>1</MI>\n "
                      "<Own>x</Own></Settings>\n");
}

TEST_F(SettingsTest, savingAMissingKeyMakesNothingAndStillRewrites) {
    writeSettings("<MI>0</MI>");
    const std::string before = file();
    EXPECT_TRUE(rewrites([&] { settings_.saveSetting("NEW", "1"); }));
    EXPECT_EQ(file(), before);
}

TEST_F(SettingsTest, anyTextSurvives) {
    writeSettings("<CFLD/>");
    for (const auto& text :
         {R"(/home/me/My "Music" & <more>)"s, " x "s, "č"s, ""s, "line\r\nbreak"s}) {
        settings_.saveSetting("CFLD", text);
        EXPECT_EQ(settings_.getSetting("CFLD"), text);
    }
}

TEST_F(SettingsTest, aTextThatNoDocumentCanHoldLeavesTheSettingAsItWas) {
    writeSettings("<CFLD>/music</CFLD>");
    for (const auto& text : {"caf\xE9/\xFF"s, "\x01"s}) {
        settings_.saveSetting("CFLD", text);
        EXPECT_EQ(settings_.getSetting("CFLD"), "/music");
    }
}

TEST_F(SettingsTest, keysThatAreNoNamesHarmNothing) {
    writeSettings("<MI>0</MI>");
    const std::string before = file();
    for (const char* const key : {"", "/", "MI[", "MI/..", "*[", " "}) {
        SCOPED_TRACE(key);
        if (key != "MI/.."s) {
            EXPECT_EQ(raisedNumber([&] { std::ignore = settings_.getSetting(key); }), 94);
            settings_.saveSetting(key, "1");
        }
        EXPECT_EQ(file(), before);
    }
}

TEST_F(SettingsTest, aDamagedFileStaysAsItIs) {
    for (const auto& damage : {"<Settings><MI>0</MI>"s, ""s, "\0\0\0\0"s}) {
        writeFile(damage);
        EXPECT_EQ(raisedNumber([&] { std::ignore = settings_.getSetting("MI"); }), 94);
        EXPECT_EQ(raisedNumber([&] { settings_.saveSetting("MI", "1"); }), 0);
        EXPECT_EQ(file(), damage);
    }
}

TEST_F(SettingsTest, aMissingFileIsNotMade) {
    fs::create_directory(host_.folder / "db");
    EXPECT_EQ(raisedNumber([&] { std::ignore = settings_.getSetting("MI"); }), 94);
    EXPECT_EQ(raisedNumber([&] { settings_.saveSetting("MI", "1"); }), 0);
    EXPECT_TRUE(fs::is_empty(host_.folder / "db"));
}

TEST_F(SettingsTest, theNameOfTheFileIsFoundInAnyCase) {
    host_.folder.write("DB/Settings.XML", "<Settings><MI>7</MI></Settings>");
    EXPECT_EQ(settings_.getSetting("MI"), "7");
    settings_.saveSetting("MI", "8");
    EXPECT_EQ(host_.folder.read("DB/Settings.XML"), "<Settings><MI>8</MI></Settings>");
}

TEST_F(SettingsTest, bulkWorkOpensAndSavesOnce) {
    writeSettings("<A>1</A><CEQ Value=\"0/0\"/>");
    settings_.withSettings([](clsXML& xml) {
        EXPECT_EQ(xml.ReadAttribute("/Settings/CEQ", "Value"), "0/0");
        xml.WriteAttribute("/Settings/CEQ", "Value", "1/2");
        xml.WriteNode("/Settings/A", "2");
    });
    EXPECT_EQ(settings_.getSetting("A"), "2");
    EXPECT_EQ(xml_.ReadAttribute("/Settings/CEQ", "Value"), "1/2");
}

TEST_F(SettingsTest, failedBulkWorkSavesNothing) {
    writeSettings("<A>1</A>");
    EXPECT_EQ(raisedNumber([&] {
                  settings_.withSettings([](clsXML& xml) {
                      xml.WriteNode("/Settings/A", "2");
                      std::ignore = xml.ReadNode("/Settings/B");
                  });
              }),
              94);
    EXPECT_EQ(settings_.getSetting("A"), "1");
}

TEST_F(SettingsTest, openingAnotherSourceEmptiesTheSharedDocument) {
    writeSettings("<A>1</A>");
    EXPECT_EQ(settings_.getSetting("A"), "1");
    EXPECT_FALSE(xml_.OpenXML(path(), 2));
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNode("/Settings/A"); }), 94);
    EXPECT_EQ(settings_.getSetting("A"), "1");
}

TEST_F(SettingsTest, aReadOnlyFolderIsToldClearlyAndLosesNothing) {
    writeSettings("<A>1</A>");
    const std::string before = file();
    fs::permissions(host_.folder.path(), fs::perms(0755));
    fs::permissions(host_.folder / "db", fs::perms(0555));
    {
        const test::Unprivileged rights;
        const std::string text = "Permission denied: " + path();
        EXPECT_EQ(raisedText([&] { settings_.saveSetting("A", "2"); }), text);
        // What can be read counts, and who asked to be told is told.
        EXPECT_EQ(settings_.getSetting("A"), "1");
        std::vector<std::string> told;
        settings_.reportUnwritten(
            [&](const base::RuntimeError& error) { told.push_back(error.description()); });
        EXPECT_EQ(settings_.getSetting("A"), "1");
        EXPECT_EQ(told, std::vector{text});
    }
    EXPECT_EQ(file(), before);
}

TEST_F(SettingsTest, aFullDiskIsToldClearlyAndLosesNothing) {
    writeSettings("<A>1</A>");
    const std::string before = file();
    std::string text;
    {
        const test::FullDisk full(10);
        text = raisedText([&] { settings_.saveSetting("A", "2"); });
    }
    EXPECT_EQ(text, "Disk full: " + path());
    EXPECT_EQ(file(), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(host_.folder / "db"), fs::directory_iterator()),
              1);
}

} // namespace
} // namespace tovik::config
