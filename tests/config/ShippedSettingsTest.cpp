// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file that comes with the program.
#include "base/Numbers.h"
#include "config/Fields.h"
#include "config/SettingsFixture.h"
#include "config/Version.h"

#include <filesystem>
#include <map>
#include <set>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::string> kDefaults{
    {"MI", "0"},           {"AP", "0"},
    {"SHI", "11"},         {"CVL", "80"},
    {"CFD", "0"},          {"CFDT", "5"},
    {"SLD", "0"},          {"SLDT", "50"},
    {"SHF", "0"},          {"RPT", "0"},
    {"EQ", "0"},           {"BLV", "0"},
    {"CVP", "-1"},         {"CLNG", "English"},
    {"ASOT", "0"},         {"AFS", "0"},
    {"ASO", "0"},          {"SFA", "-1"},
    {"CHKU", "0"},         {"OSD", "0"},
    {"STI", "1"},          {"VPS", "40"},
    {"X", "1500"},         {"Y", "1500"},
    {"TMD", "0"},          {"QPL", "2"},
    {"DBR", "128"},        {"DOF", "MP3 CBR"},
    {"EPRIO", "2"},        {"ROP", ""},
    {"IROP", ""},          {"SCD", "0"},
    {"MSN", "0"},          {"EV2", "0"},
    {"CDB", "0"},          {"CFLD", ""},
    {"EM", "0"},           {"MC", "0"},
    {"SHWND", "0"},        {"DOB", "1411,128,128,128,128,128"},
    {"TKXV", "0,1"},       {"TKV2", "1"},
    {"TKD", "21.11.2026"}, {"CMF", "1"},
};

class ShippedSettingsTest : public test::SettingsFixture {
protected:
    void SetUp() override {
        fs::create_directory(host_.folder / "db");
        fs::copy_file(TOVIK_DATA_DIR "/db/settings.xml", path());
    }

    void open() { ASSERT_TRUE(xml_.OpenXML(path(), XmlSource::FilePath)); }
};

TEST_F(ShippedSettingsTest, everyKeyHasItsDefault) {
    open();
    for (const auto& [key, value] : kDefaults) {
        EXPECT_EQ(xml_.NodeCount("/Settings/" + key), 1) << key;
        EXPECT_EQ(xml_.ReadNode("/Settings/" + key), value) << key;
    }
    EXPECT_EQ(xml_.ReadAttribute("/Settings/CEQ", "Value"), "0/0/0/0/0/0/0/0/0/0");
    EXPECT_EQ(xml_.NodeCount("/Settings/*"), static_cast<int>(kDefaults.size()) + 2);
    EXPECT_EQ(xml_.NodeCount("/Settings/Presets"), 1);
}

TEST_F(ShippedSettingsTest, aRewriteChangesNoByte) {
    const std::string before = file();
    EXPECT_EQ(settings_.getSetting("MI"), "0");
    settings_.saveSetting("MI", "1");
    settings_.saveSetting("MI", "0");
    EXPECT_EQ(file(), before);
}

TEST_F(ShippedSettingsTest, theVersionIsFound) {
    Version version(settings_);
    EXPECT_EQ(version.getTovikversion(), "0.1");
    EXPECT_EQ(version.getTovikbuildNm(), 1);
}

TEST_F(ShippedSettingsTest, presetsAreCountedNamedAndInRange) {
    constexpr std::size_t kBands = 10;
    constexpr double kMostDecibels = 12;
    open();
    const int count = std::stoi(xml_.ReadNode("/Settings/Presets/MAX_ID"));
    EXPECT_GE(count, 12);
    EXPECT_EQ(xml_.NodeCount("/Settings/Presets/*"), count + 1);
    std::set<std::string> names;
    std::set<std::string> curves;
    for (int n = 1; n <= count; ++n) {
        const std::string path = "/Settings/Presets/ID" + std::to_string(n);
        const std::string name = xml_.ReadAttribute(path, "Name");
        EXPECT_FALSE(name.empty());
        EXPECT_TRUE(names.insert(name).second) << name;
        const std::string value = xml_.ReadAttribute(path, "Value");
        EXPECT_TRUE(curves.insert(value).second) << name;
        const Fields gains(value, '/');
        EXPECT_EQ(gains.all().size(), kBands) << name;
        for (const std::string& gain : gains.all()) {
            EXPECT_LE(std::abs(base::textToNumber(gain)), kMostDecibels) << name;
        }
    }
    for (const char* const name : {"Flat", "Rock", "Pop", "Jazz", "Classical", "Dance"}) {
        EXPECT_TRUE(names.contains(name)) << name;
    }
}

} // namespace
} // namespace tovik::config
