// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Version.h"

#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"

#include <filesystem>

namespace tovik::config {
namespace {

using test::raisedNumber;

TEST(VersionText, theFirstCharacterAndTheSecondPart) {
    EXPECT_EQ(versionText("0,1", "1"), "0.1");
    EXPECT_EQ(versionText("23,45,6", "7b"), "2.7b");
    EXPECT_EQ(versionText("3", ""), "3.");
    EXPECT_EQ(versionText(",1", "5"), ".5");
    EXPECT_EQ(raisedNumber([] { std::ignore = versionText("", "1"); }), 9);
}

TEST(VersionText, theBuildIsTheSecondField) {
    EXPECT_EQ(buildNumber("0,123"), 123);
    EXPECT_EQ(buildNumber("0,12,9"), 12);
    EXPECT_EQ(raisedNumber([] { std::ignore = buildNumber("0"); }), 9);
    EXPECT_EQ(raisedNumber([] { std::ignore = buildNumber(""); }), 9);
    EXPECT_EQ(raisedNumber([] { std::ignore = buildNumber("0,"); }), 13);
    EXPECT_EQ(raisedNumber([] { std::ignore = buildNumber("0,b"); }), 13);
    EXPECT_EQ(raisedNumber([] { std::ignore = buildNumber("0,40000"); }), 6);
}

TEST(VersionText, theFullVersionHasAllFields) {
    EXPECT_EQ(fullVersionText("0,1", "2"), "0.1.2");
    EXPECT_EQ(fullVersionText("1,2,3", "4"), "1.2.3.4");
    EXPECT_EQ(fullVersionText("5", "6"), "5.6");
    EXPECT_EQ(fullVersionText("", "6"), "6");
}

TEST(VersionText, whatServersAreTold) {
    EXPECT_EQ(clientVersionText("0,1"), "Tovik 0 Build 1");
    EXPECT_EQ(clientVersionText("23,45,6"), "Tovik 23 Build 45");
    EXPECT_EQ(clientVersionText("B2,45"), "");
    EXPECT_EQ(raisedNumber([] { std::ignore = clientVersionText("1"); }), 9);
    EXPECT_EQ(raisedNumber([] { std::ignore = clientVersionText(""); }), 9);
}

class VersionTest : public test::SettingsFixture {
protected:
    Version version_{settings_};
};

TEST_F(VersionTest, comesFromTheSettings) {
    writeSettings("<TKXV>1,42</TKXV><TKV2>3</TKV2>");
    EXPECT_EQ(version_.getTovikversion(), "1.3");
    EXPECT_EQ(version_.getTovikbuildNm(), 42);
    EXPECT_EQ(version_.get_Tovik_Version(), "Tovik 1.3");
    EXPECT_EQ(version_.updateArgument(), "chk4update=1.42.3");
    EXPECT_EQ(version_.clientVersion(), "Tovik 1 Build 42");
}

TEST_F(VersionTest, aMissingKeyIsTheUseOfANull) {
    writeSettings("<TKXV>1,42</TKXV>");
    EXPECT_EQ(raisedNumber([&] { std::ignore = version_.getTovikversion(); }), 94);
    EXPECT_EQ(version_.getTovikbuildNm(), 42);
    EXPECT_EQ(raisedNumber([&] { std::ignore = version_.updateArgument(); }), 94);
}

class TakeVersionTest : public test::SettingsFixture {
protected:
    TakeVersionTest() {
        host_.folder.write("shipped.xml", "<Settings><TKXV>1,2</TKXV><TKV2>3</TKV2></Settings>");
    }

    void take() const { takeVersion(path(), host_.folder / "shipped.xml"); }
};

TEST_F(TakeVersionTest, givesTheSettingsTheProgramsValues) {
    writeSettings("<!-- mine --><TKXV>0,9</TKXV><A>x</A><TKD>1.1.2001</TKD>");
    take();
    EXPECT_EQ(settings_.getSetting("TKXV"), "1,2");
    EXPECT_EQ(settings_.getSetting("TKV2"), "3");
    EXPECT_EQ(settings_.getSetting("TKD"), "1.1.2001"); // the program's tell none
    EXPECT_EQ(settings_.getSetting("A"), "x");
    EXPECT_NE(file().find("<!-- mine -->"), std::string::npos);
}

TEST_F(TakeVersionTest, leavesAFileAloneThatHasThemOrIsDamaged) {
    const std::string same = "<Settings  ><TKXV>1,2</TKXV><TKV2>3</TKV2></Settings>";
    for (const std::string& bytes :
         {same, std::string("<Settings><TKXV>0,9</Sett"), std::string()}) {
        writeFile(bytes);
        take();
        EXPECT_EQ(file(), bytes);
    }
    std::filesystem::remove(path());
    take();
    EXPECT_FALSE(std::filesystem::exists(path()));
}

} // namespace
} // namespace tovik::config
