// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that stand on their own feet.
#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"
#include "config/SettingText.h"
#include "config/StrictXml.h"
#include "support/host/FullDisk.h"

#include <gmock/gmock.h>

#include <filesystem>

#include <sys/stat.h>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

class SettingsComfortTest : public test::SettingsFixture {
protected:
    void SetUp() override {
        shipped_ = host_.folder.write("shipped.xml", "<Settings><CMF>1</CMF><MI>0</MI><CVL>80</CVL>"
                                                     "<CEQ Value=\"0/0\"/></Settings>");
        settings_.obey(comfort_, shipped_);
        settings_.reportReplaced(
            [this](const base::RuntimeError& bad) { replaced_.push_back(bad.description()); });
        settings_.reportKeptAside([this](const std::string& path) { aside_.push_back(path); });
        settings_.reportUnread(
            [this](const base::RuntimeError& why) { unread_.push_back(why.description()); });
    }

    void wantComfort() {
        comfort_.startsWithoutSetting = comfort_.writesOnlyChanges = true;
        comfort_.keepsDamagedAside = comfort_.keepsAnyBytes = true;
    }

    [[nodiscard]] ino_t identity() const {
        struct stat facts {};

        EXPECT_EQ(::stat(path().c_str(), &facts), 0);
        return facts.st_ino;
    }

    /// Whether another file stands there behind it.
    template <typename Operation>
    bool rewrites(const Operation& operation) const {
        fs::create_hard_link(path(), host_.folder / "old");
        const ino_t before = identity();
        operation();
        fs::remove(host_.folder / "old");
        return identity() != before;
    }

    std::string shipped_;
    base::Comfort comfort_;
    std::vector<std::string> replaced_;
    std::vector<std::string> aside_;
    std::vector<std::string> unread_;
};

TEST_F(SettingsComfortTest, aMissingKeyTakesTheShippedValue) {
    writeSettings("<MI>1</MI>");
    EXPECT_EQ(test::raisedNumber([&] { std::ignore = settings_.getSetting("CVL"); }), 94);
    wantComfort();
    const std::string before = file();
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    EXPECT_EQ(settings_.getSetting("MI"), "1");
    EXPECT_EQ(file(), before) << "it was only read";
    settings_.saveSetting("CVL", "33");
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    EXPECT_THAT(file(), HasSubstr("<CVL>33</CVL>"));
    EXPECT_THAT(file(), HasSubstr("<CEQ Value=\"0/0\""));
    EXPECT_THAT(file(), Not(HasSubstr("CMF"))) << "a file that wants no comfort gets none";
    EXPECT_EQ(test::raisedNumber([&] { std::ignore = settings_.getSetting("NONE"); }), 94);
}

TEST_F(SettingsComfortTest, withoutShippedSettingsAMissingKeyIsAnError) {
    wantComfort();
    settings_.obey(comfort_, "");
    writeSettings("<MI>1</MI>");
    EXPECT_EQ(test::raisedNumber([&] { std::ignore = settings_.getSetting("CVL"); }), 94);
    writeFile("<Settings>");
    EXPECT_EQ(test::raisedNumber([&] { std::ignore = settings_.getSetting("CVL"); }), 94);
    EXPECT_EQ(file(), "<Settings>");
}

TEST_F(SettingsComfortTest, aBadTextTakesTheShippedValueAndIsToldOnce) {
    writeSettings("<MI>1</MI><CVL>loud</CVL><OSK>x</OSK>");
    const auto volume = [this] { return settings_.getAs("CVL", settingToInt16); };
    EXPECT_EQ(test::raisedNumber([&] { std::ignore = volume(); }), 13);
    wantComfort();
    EXPECT_EQ(volume(), 80);
    EXPECT_EQ(volume(), 80);
    EXPECT_THAT(replaced_, ElementsAre("Type mismatch: " + path() + ": CVL = \"loud\""));
    EXPECT_FALSE(settings_.getAs("OSK", settingToFlag)) << "nothing was shipped for it";
}

TEST_F(SettingsComfortTest, onlyChangesAreWritten) {
    writeSettings("<MI>1</MI><CVL>80</CVL><CEQ Value=\"0/0\"/>");
    const auto read = [this] { std::ignore = settings_.getSetting("CVL"); };
    const auto writeTheSame = [this] { settings_.saveSetting("CVL", "80"); };
    const auto writeBehindTheSame = [this] {
        settings_.writeBehind([](clsXML& xml) { xml.WriteNode("/Settings/CVL", "80"); });
    };
    EXPECT_TRUE(rewrites(read) && rewrites(writeTheSame) && rewrites(writeBehindTheSame));
    wantComfort();
    EXPECT_FALSE(rewrites(read) || rewrites(writeTheSame) || rewrites(writeBehindTheSame));
    EXPECT_TRUE(rewrites([this] { settings_.saveSetting("CVL", "81"); }));
}

TEST_F(SettingsComfortTest, aDamagedFileIsKeptAsideAndTold) {
    const std::string damaged = "<Settings><CMF>1</CMF><CMF05>0</CMF05><CMF06>x</CMF06><MI>1</MI";
    wantComfort();
    for (const char* const name : {".damaged", ".damaged.2"}) {
        writeFile(damaged);
        EXPECT_EQ(settings_.getSetting("CVL"), "80");
        EXPECT_THAT(aside_, ElementsAre(path() + name));
        EXPECT_EQ(host_.folder.read(std::string(kFile) + name), damaged);
        EXPECT_THAT(file(), HasSubstr("<CMF05>0</CMF05>"));
        EXPECT_THAT(file(), HasSubstr("<CMF>1</CMF>"));
        EXPECT_THAT(file(), Not(HasSubstr("CMF06")));
        EXPECT_THAT(file(), HasSubstr("<MI>0</MI>"));
        aside_.clear();
        EXPECT_EQ(settings_.getSetting("MI"), "0");
        EXPECT_THAT(aside_, IsEmpty());
    }
}

TEST_F(SettingsComfortTest, aDocumentOfSomethingElseIsADamagedOne) {
    wantComfort();
    writeFile("<Playlist/>");
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    EXPECT_THAT(aside_, ElementsAre(path() + ".damaged"));
    EXPECT_EQ(host_.folder.read(std::string(kFile) + ".damaged"), "<Playlist/>");
}

TEST_F(SettingsComfortTest, aDamagedFileThatCannotBeReplacedStaysAndTheValuesAreThere) {
    wantComfort();
    int unwritten = 0;
    settings_.reportUnwritten([&](const base::RuntimeError& /*error*/) { ++unwritten; });
    writeFile("<Settings><MI>1");
    {
        const test::FullDisk full(0);
        EXPECT_EQ(settings_.getSetting("CVL"), "80");
        EXPECT_EQ(settings_.getSetting("MI"), "0");
    }
    EXPECT_EQ(unwritten, 2);
    EXPECT_EQ(file(), "<Settings><MI>1");
    EXPECT_THAT(aside_, IsEmpty());
    EXPECT_FALSE(fs::exists(path() + ".damaged"));
}

/// A folder in its place stands for whatever keeps a file from being read.
class UnreadSettings : public SettingsComfortTest {
protected:
    void SetUp() override {
        SettingsComfortTest::SetUp();
        wantComfort();
        settings_.reportUnwritten([this](const base::RuntimeError& /*error*/) { ++unwritten_; });
    }

    void hide() const {
        fs::create_directories(host_.folder / "db");
        if (fs::exists(path())) {
            fs::rename(path(), path() + ".hidden");
        }
        fs::create_directory(path());
    }

    void bringBack() const {
        fs::remove(path());
        fs::rename(path() + ".hidden", path());
    }

    [[nodiscard]] std::vector<std::string> filesThere() const {
        std::vector<std::string> names;
        for (const fs::directory_entry& each : fs::directory_iterator(host_.folder / "db")) {
            names.push_back(each.path().filename());
        }
        return names;
    }

    int unwritten_ = 0;
};

TEST_F(UnreadSettings, whatWasReadLastStandsIn) {
    writeSettings("<MI>1</MI><CVL>33</CVL>");
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    hide();
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    EXPECT_EQ(settings_.getSetting("MI"), "1");
    EXPECT_THAT(unread_, ElementsAre(HasSubstr(path()))) << "told once";
    EXPECT_THAT(filesThere(), UnorderedElementsAre("settings.xml", "settings.xml.hidden"));
    EXPECT_TRUE(fs::is_directory(path()));
    EXPECT_THAT(aside_, IsEmpty());
    bringBack();
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    hide();
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    EXPECT_EQ(unread_.size(), 2U) << "and again the next time";
    std::int32_t found = 0;
    settings_.peek([&](const clsXML& xml) { found = xml.NodeCount("/Settings/CMF"); });
    EXPECT_EQ(found, 0) << "nobody's comfort changes by it";
}

TEST_F(UnreadSettings, atTheStartTheShippedOnesStandIn) {
    hide();
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    EXPECT_THAT(filesThere(), ElementsAre("settings.xml"));
    EXPECT_EQ(unread_.size(), 1U);
}

TEST_F(UnreadSettings, aSessionThatBeganWithoutThemNeverWritesThem) {
    writeSettings("<MI>1</MI><CVL>33</CVL>");
    const std::string before = file();
    hide();
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    bringBack();
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    EXPECT_GT(test::raisedNumber([&] { settings_.saveSetting("CVL", "80"); }), 0);
    settings_.writeBehind([](clsXML& xml) { xml.WriteNode("/Settings/CVL", "80"); });
    EXPECT_EQ(unwritten_, 1);
    EXPECT_EQ(file(), before);
}

TEST_F(UnreadSettings, changesAreOfThisSessionAlone) {
    writeSettings("<MI>1</MI><CVL>33</CVL>");
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    hide();
    EXPECT_GT(test::raisedNumber([&] { settings_.saveSetting("MI", "1"); }), 0);
    settings_.writeBehind([](clsXML& xml) { xml.WriteNode("/Settings/CVL", "12"); });
    EXPECT_EQ(settings_.getSetting("CVL"), "12");
    EXPECT_EQ(unwritten_, 1);
    bringBack();
    EXPECT_EQ(settings_.getSetting("CVL"), "33");
    settings_.saveSetting("CVL", "34");
    EXPECT_THAT(file(), HasSubstr("<CVL>34</CVL>"));
}

TEST_F(UnreadSettings, oneThatIsTooLargeIsNotReplaced) {
    writeSettings("<MI>1</MI>");
    fs::resize_file(path(), kMostXmlBytes + 1); // a hole: nothing is written
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    EXPECT_EQ(fs::file_size(path()), kMostXmlBytes + 1);
    EXPECT_THAT(filesThere(), ElementsAre("settings.xml"));
}

TEST_F(UnreadSettings, toTheLetterEachKeyOfItIsAnError) {
    comfort_ = {};
    hide();
    EXPECT_EQ(test::raisedNumber([&] { std::ignore = settings_.getSetting("CVL"); }), 94);
    settings_.saveSetting("CVL", "34");
    EXPECT_THAT(unread_, IsEmpty());
}

TEST_F(SettingsComfortTest, whoseComfortADamagedFileMeansIsReadFromWhatIsLeftOfIt) {
    const auto choice = [this] {
        std::int32_t found = -1;
        settings_.peek([&](const clsXML& xml) { found = xml.NodeCount("/Settings/CMF"); });
        return found;
    };
    const std::vector<std::pair<const char*, int>> cases = {
        {"<Settings><MI>1</MI>", 0}, // somebody who never chose comfort
        {"<Settings><CMF>1</CMF>", 1},
        {"", 1}, // nobody knows: as after a first start
        {"\xFF\xFE rubbish", 1},
    };
    for (const auto& [bytes, count] : cases) {
        writeFile(bytes);
        EXPECT_EQ(choice(), count) << bytes;
        EXPECT_EQ(file(), bytes);
    }
    fs::remove(path());
    EXPECT_EQ(choice(), 1);
    EXPECT_FALSE(fs::exists(path()));
}

TEST_F(SettingsComfortTest, aMissingFileIsMadeByTheFirstChange) {
    wantComfort();
    fs::create_directories(host_.folder / "db");
    EXPECT_EQ(settings_.getSetting("CVL"), "80");
    EXPECT_FALSE(fs::exists(path()));
    settings_.saveSetting("CVL", "12");
    EXPECT_THAT(file(), HasSubstr("<CVL>12</CVL>"));
    EXPECT_THAT(aside_, IsEmpty());
}

TEST_F(SettingsComfortTest, foldersThatAreMissingAreTheMusicFolder) {
    wantComfort();
    host_.folder.write("shipped.xml", "<Settings><ROP/><IROP/></Settings>");
    settings_.obey(comfort_, shipped_, [] { return std::string("/home/me/Music"); });
    writeSettings("<ROP/>");
    EXPECT_EQ(settings_.getSetting("ROP"), "") << "somebody wanted it so";
    EXPECT_EQ(settings_.getSetting("IROP"), "/home/me/Music");
    writeFile("");
    EXPECT_EQ(settings_.getSetting("ROP"), "/home/me/Music");
    EXPECT_THAT(file(), HasSubstr("<ROP>/home/me/Music</ROP>"));
}

TEST_F(SettingsComfortTest, aFolderWhoseNameIsNoTextIsKept) {
    const std::string folder = "/music/M\xFCller & \x01";
    writeSettings("<ROP>/before</ROP>");
    settings_.saveSetting("ROP", folder);
    EXPECT_EQ(settings_.getSetting("ROP"), "/before");
    wantComfort();
    settings_.saveSetting("ROP", folder);
    EXPECT_EQ(settings_.getSetting("ROP"), folder);
    EXPECT_THAT(file(), HasSubstr("<ROP>file:///music/M%FCller%20%26%20%01</ROP>"));
    settings_.saveSetting("ROP", "/plain");
    EXPECT_THAT(file(), HasSubstr("<ROP>/plain</ROP>"));
}

} // namespace
} // namespace tovik::config
