// SPDX-License-Identifier: GPL-3.0-or-later
// Which control keeps which key, and when it is felt: one row each, so that none is left out.
#include "preferences/PreferenceTable.h"

#include "preferences/PreferencesRig.h"
#include "preferences/StoredPreferences.h"

#include <set>

namespace tovik::test {
namespace {

using preferences::Control;
using preferences::ControlKind;
using preferences::Effect;
using preferences::Page;

struct Expected {
    const char* control;
    const char* key;
    Effect effect;
    Page page;
    std::int32_t set;   ///< another number than the shipped one
    const char* stored; ///< what the key holds then
};

/// Lists, folders and the language have tests of their own: no number sets them.
constexpr std::int32_t kNoNumber = -1;

constexpr auto kExpected = std::to_array<Expected>({
    {"Check13", "CHKU", Effect::nextStart, Page::general, 1, "1"},
    {"Check9", "AP", Effect::nextStart, Page::general, 1, "1"},
    {"Check1", "MI", Effect::nextUse, Page::general, 1, "1"},
    {"Check4", "SHI", Effect::nextStart, Page::general, 0, "01"},
    {"Check5", "SHI", Effect::tray, Page::general, 0, "10"},
    {"Slider3", "STI", Effect::tray, Page::general, 3, "3"},
    {"Check3", "ASOT", Effect::topmost, Page::general, 1, "1"},
    {"Check2", "EV2", Effect::nextUse, Page::general, 0, "1"},
    {"Check15", "EV2", Effect::nextUse, Page::general, 1, "1"},
    {"Combo3", "CLNG", Effect::language, Page::general, kNoNumber, ""},
    {"Check16", "OSD", Effect::nextUse, Page::general, 1, "1"},
    {"Check18", "OSK", Effect::nextUse, Page::general, 1, "1"},
    {"List1", "SFA", Effect::nextUse, Page::fileTypes, kNoNumber, ""},
    {"Check6", "AFS", Effect::nextStart, Page::fileTypes, 1, "1"},
    {"Check6", "ASO", Effect::nextStart, Page::fileTypes, 1, "1"},
    {"Check7", "CFD", Effect::crossfade, Page::playback, 1, "1"},
    {"Slider1_0", "CFDT", Effect::nextUse, Page::playback, 12, "12"},
    {"Slider1_2", "CFDN", Effect::nextUse, Page::playback, 7, "7"},
    {"Check8", "SLD", Effect::silenceSkip, Page::playback, 1, "1"},
    {"Slider1_1", "SLDT", Effect::threshold, Page::playback, 70, "70"},
    {"Check10", "SHF", Effect::shuffle, Page::playback, 1, "1"},
    {"Check11", "RPT", Effect::repeat, Page::playback, 1, "1"},
    {"Slider4", "VPS", Effect::spectrum, Page::playback, 100, "100"},
    {"Combo1", "DOF", Effect::nextUse, Page::ripper, 3, "OGG VORBIS CBR"},
    {"Slider2", "DBR", Effect::nextUse, Page::ripper, 192, "192"},
    {"Slider2", "DOB", Effect::nextUse, Page::ripper, 192, "1411,192,128,128,128,128"},
    {"Combo2", "EPRIO", Effect::nextUse, Page::ripper, 4, "4"},
    {"Check12", "SCD", Effect::nextUse, Page::ripper, 1, "1"},
    {"Check14", "CDSEARCH", Effect::nextUse, Page::ripper, 1, "1"},
    {"Label3", "ROP", Effect::nextUse, Page::ripper, kNoNumber, ""},
    {"Label1", "IROP", Effect::nextUse, Page::streaming, kNoNumber, ""},
    {"Check17", "MSN", Effect::messenger, Page::streaming, 1, "1"},
});

const preferences::ControlRow& rowNamed(std::string_view name) {
    const auto table = preferences::controlTable();
    const auto row = std::ranges::find(table, name, &preferences::ControlRow::name);
    if (row == table.end()) {
        throw std::runtime_error("no control " + std::string(name));
    }
    return *row;
}

class PreferenceTable : public PreferencesRig {};

TEST_F(PreferenceTable, everyControlStandsHereWithItsPageAndItsEffect) {
    std::set<std::string_view> seen;
    for (const Expected& expected : kExpected) {
        const preferences::ControlRow& row = rowNamed(expected.control);
        EXPECT_EQ(row.page, expected.page) << expected.control;
        EXPECT_EQ(row.effect, expected.effect) << expected.control;
        seen.insert(expected.control);
    }
    for (std::size_t number = 0; number <= base::kComfortSwitches.size(); ++number) {
        const preferences::ControlRow& row = rowNamed("Comfort_" + std::to_string(number));
        EXPECT_EQ(row.control, preferences::comfortControl(number));
        EXPECT_EQ(row.page, Page::comfort) << number;
        EXPECT_EQ(row.effect, Effect::comfort) << number;
        seen.insert(row.name);
    }
    EXPECT_EQ(seen.size(), preferences::kControls);
}

TEST_F(PreferenceTable, everyKeyStandsHereOnce) {
    std::multiset<std::string_view> written;
    for (const preferences::StoredRow& row : preferences::storedTable()) {
        written.insert(player::kSettingTable.at(row.key.row).key);
    }
    std::set<std::string_view> expected{"X", "Y"};
    for (const Expected& row : kExpected) {
        expected.insert(row.key);
    }
    EXPECT_EQ(written, std::multiset<std::string_view>(expected.begin(), expected.end()));
}

TEST_F(PreferenceTable, eachControlIsStoredUnderItsKeyAndReadBack) {
    for (const Expected& expected : kExpected) {
        if (expected.set == kNoNumber) {
            continue;
        }
        std::filesystem::copy_file(TOVIK_DATA_DIR "/db/settings.xml", host_.folder / kSettings,
                                   std::filesystem::copy_options::overwrite_existing);
        const Control control = rowNamed(expected.control).control;
        preferences_.Form_Load();
        ASSERT_NE(values().number(control), expected.set) << expected.control;
        values().setNumber(control, expected.set);
        ASSERT_TRUE(preferences_.save_settings());
        EXPECT_EQ(stored(expected.key), expected.stored) << expected.control;
        preferences_.Form_Load();
        EXPECT_EQ(values().number(control), expected.set) << expected.control;
    }
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

TEST_F(PreferenceTable, numbersAreHeldToTheirRangesAndSteps) {
    struct Range {
        Control control;
        std::int32_t least, most, step;
    };

    constexpr auto kRanges = std::to_array<Range>({{Control::Slider1_0, 0, 30, 1},
                                                   {Control::Slider1_2, 0, 30, 1},
                                                   {Control::Slider1_1, 0, 100, 1},
                                                   {Control::Slider2, 32, 320, 16},
                                                   {Control::Slider3, 1, 4, 1},
                                                   {Control::Slider4, 10, 200, 1},
                                                   {Control::Combo2, 0, 4, 1}});
    for (const Range& range : kRanges) {
        const auto set = [&](std::int32_t number) {
            values().setNumber(range.control, number);
            return values().number(range.control);
        };
        EXPECT_EQ(set(range.least - 1), range.least);
        EXPECT_EQ(set(range.most + 1), range.most);
        EXPECT_EQ(set(range.least + range.step), range.least + range.step);
        EXPECT_EQ(set(range.least + 2 * range.step - 1),
                  range.least + (2 * range.step - 1) / range.step * range.step);
    }
}

TEST_F(PreferenceTable, pagesFramesAndTypesAreThoseThatUsersKnow) {
    std::vector<std::string_view> keys;
    for (const preferences::PageRow& row : preferences::pageTable()) {
        keys.push_back(row.key);
    }
    EXPECT_EQ(keys,
              (std::vector<std::string_view>{"GN", "FTY", "PLB", "RP", "STR", "VH", "SC", "CMF"}));
    std::vector<std::string_view> frames;
    for (const preferences::FrameRow& row : preferences::frameTable()) {
        if (row.page == Page::general) {
            frames.push_back(row.name);
        }
    }
    EXPECT_EQ(frames, (std::vector<std::string_view>{"Frame6", "Frame2", "Frame7", "Frame9",
                                                     "Frame11", "Frame12"}));
    for (const preferences::ControlRow& row : preferences::controlTable()) {
        EXPECT_TRUE(row.frame.empty() || std::ranges::any_of(preferences::frameTable(),
                                                             [&](const auto& frame) {
                                                                 return frame.name == row.frame &&
                                                                        frame.page == row.page;
                                                             }))
            << row.name;
    }
    const std::vector<std::string_view> types(preferences::fileTypes().begin(),
                                              preferences::fileTypes().end());
    EXPECT_EQ(types,
              (std::vector<std::string_view>{"mo3", "xm", "mod", "s3m", "it", "mtm", "umx", "flac",
                                             "fla", "mp3", "ogg", "wav", "wma", "m3u", "pls"}));
}

} // namespace
} // namespace tovik::test
