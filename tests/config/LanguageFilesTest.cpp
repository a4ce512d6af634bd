// SPDX-License-Identifier: GPL-3.0-or-later
// The language files that come with the program.
#include "base/LineReader.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "config/LanguageTable.h"
#include "config/Profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;

/// The strips of glyphs know these; anything else comes out as the letter a.
constexpr std::string_view kStripCharacters =
    "abcdefghijklmnopqrstuvwxyz 0123456789.:()-'!_+\\/[]^&%,=$#?*";
constexpr std::size_t kGlyphWidth = 5;
constexpr std::size_t kFirstGlyphLeft = 1;

struct Item {
    std::string_view section;
    int number;
    std::size_t fieldWidth; ///< in skin pixels
};

/// Drawn with the strips, with their longest number in place of "[x]".
constexpr Item kStripTexts[] = {
    {"PlayerWin", 41, 60}, {"PlayerWin", 42, 60},   {"PlayerWin", 43, 60},   {"PlayerWin", 44, 60},
    {"MainMenu", 27, 132}, {"TovikNotice", 0, 150}, {"TovikNotice", 12, 150}};

std::string keyOf(int number) {
    return "item" + std::to_string(number);
}

/// Without what is asked for and shown nowhere: the number 60 of the preferences.
int itemsInFiles(const LanguageSectionRow& section) {
    return section.section == LanguageSection::frmPreferences ? section.items - 1 : section.items;
}

std::string bytesOf(const std::string& language) {
    std::string bytes;
    EXPECT_FALSE(base::readWholeFile(TOVIK_DATA_DIR "/Languages/" + language + ".lng", bytes));
    return bytes;
}

std::size_t placeholders(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find("[x]"); at != text.npos; at = text.find("[x]", at + 1)) {
        ++count;
    }
    return count;
}

class LanguageFiles : public testing::TestWithParam<std::string> {
protected:
    LanguageFiles() : bytes_(bytesOf(GetParam())) {}

    [[nodiscard]] std::string text(std::string_view section, int number) const {
        return profileValue(bytes_, section, keyOf(number));
    }

    std::string bytes_;
};

TEST_P(LanguageFiles, everyItemThatIsReadIsThereAndNoOther) {
    for (const LanguageSectionRow& section : languageSections()) {
        std::vector<std::string> expected;
        for (int number = 0; number < itemsInFiles(section); ++number) {
            expected.push_back(keyOf(number));
            EXPECT_NE(text(section.name, number), "") << section.name << number;
        }
        EXPECT_EQ(profileKeys(bytes_, section.name), expected) << section.name;
    }
}

TEST_P(LanguageFiles, everySectionIsOneThatIsRead) {
    std::multiset<std::string> found;
    base::LineReader lines(bytes_);
    while (const auto line = lines.next()) {
        if (line->starts_with('[')) {
            found.emplace(line->substr(1, line->size() - 2));
        }
    }
    std::multiset<std::string> expected;
    for (const LanguageSectionRow& section : languageSections()) {
        expected.emplace(section.name);
    }
    EXPECT_EQ(found, expected);
}

TEST_P(LanguageFiles, theFileIsWellFormed) {
    EXPECT_TRUE(base::isUtf8(bytes_));
    EXPECT_TRUE(bytes_.ends_with("\r\n"));
    for (std::size_t at = bytes_.find_first_of("\r\n"); at != bytes_.npos;
         at = bytes_.find_first_of("\r\n", at + 2)) {
        ASSERT_EQ(bytes_.substr(at, 2), "\r\n");
    }
    base::LineReader lines(bytes_);
    while (const auto line = lines.next()) {
        EXPECT_TRUE(line->empty() || line->starts_with('[') || line->starts_with("item")) << *line;
        const std::size_t equals = line->find('=');
        const std::string_view value = equals == line->npos ? "" : line->substr(equals + 1);
        EXPECT_EQ(value, base::trimmed(value));
        EXPECT_LE(value.size(), kProfileValueWidth) << *line;
    }
}

TEST_P(LanguageFiles, textsOfTheStripsHaveGlyphsAndFit) {
    for (const Item& item : kStripTexts) {
        std::string drawn = text(item.section, item.number);
        if (const std::size_t at = drawn.find("[x]"); at != drawn.npos) {
            drawn.replace(at, 3, "100");
        }
        EXPECT_EQ(base::toLowerAscii(drawn).find_first_not_of(kStripCharacters), drawn.npos)
            << drawn;
        EXPECT_FALSE(drawn.empty());
        EXPECT_LE(kFirstGlyphLeft + drawn.size() * kGlyphWidth, item.fieldWidth) << drawn;
    }
}

TEST_P(LanguageFiles, placeholdersStandWhereTheyAreReplaced) {
    const std::string english = bytesOf("English");
    const std::map<std::pair<std::string, int>, std::size_t> expected{{{"PlayerWin", 41}, 1},
                                                                      {{"PlayerWin", 42}, 1},
                                                                      {{"PlayerWin", 43}, 1},
                                                                      {{"PlayerWin", 50}, 1},
                                                                      {{"frmSearchSong", 2}, 1},
                                                                      {{"frmMp3Tag", 19}, 1},
                                                                      {{"Prompt", 2}, 1},
                                                                      {{"TovikNotice", 1}, 1},
                                                                      {{"TovikPreferences", 8}, 1},
                                                                      {{"TovikPreferences", 9}, 1},
                                                                      {{"TovikNotice", 6}, 1},
                                                                      {{"TovikNotice", 11}, 1},
                                                                      {{"TovikPreferences", 15}, 1},
                                                                      {{"TovikNotice", 12}, 1},
                                                                      {{"TovikNotice", 13}, 1},
                                                                      {{"TovikNotice", 16}, 1},
                                                                      {{"TovikNotice", 17}, 1},
                                                                      {{"TovikNotice", 18}, 1},
                                                                      {{"TovikNotice", 21}, 1},
                                                                      {{"TovikNotice", 22}, 1},
                                                                      {{"TovikNotice", 23}, 1},
                                                                      {{"TovikNotice", 24}, 1},
                                                                      {{"TovikRip", 0}, 1},
                                                                      {{"TovikRip", 1}, 1},
                                                                      {{"TovikRip", 2}, 1},
                                                                      {{"TovikRip", 3}, 1},
                                                                      {{"TovikRip", 4}, 1},
                                                                      {{"TovikRip", 5}, 1},
                                                                      {{"TovikRip", 6}, 1}};
    for (const LanguageSectionRow& section : languageSections()) {
        for (int number = 0; number < itemsInFiles(section); ++number) {
            const auto row = expected.find({std::string(section.name), number});
            EXPECT_EQ(placeholders(text(section.name, number)),
                      row == expected.end() ? 0 : row->second)
                << section.name << number;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, LanguageFiles, testing::Values("English", "Slovenian"),
                         [](const auto& language) { return language.param; });

TEST(ShippedLanguages, areThoseThatAreTested) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(TOVIK_DATA_DIR "/Languages")) {
        names.insert(entry.path().filename().native());
    }
    EXPECT_EQ(names, (std::set<std::string>{"English.lng", "Slovenian.lng"}));
}

TEST(ShippedLanguages, slovenianIsWrittenWithItsLetters) {
    const std::string bytes = bytesOf("Slovenian");
    for (const char* letter : {"\u010D", "\u0161", "\u017E"}) {
        EXPECT_NE(bytes.find(letter), bytes.npos) << letter;
    }
    EXPECT_EQ(profileValue(bytes, "MainMenu", "item11"), "Mo\u017Enosti");
}

TEST(ShippedLanguages, englishHasTheWordsThatUsersKnow) {
    const std::string bytes = bytesOf("English");
    EXPECT_EQ(profileValue(bytes, "MainMenu", "item9"), "Internet Radio Tuner");
    EXPECT_EQ(profileValue(bytes, "MainMenu", "item29"), "Fwd  5 seconds");
    EXPECT_EQ(profileValue(bytes, "VisMenu", "item1"), "Spectrum analyzer(internal)");
    EXPECT_EQ(profileValue(bytes, "frmPreferences", "item46"), "Show CD &Info Input  dialog");
    EXPECT_EQ(profileValue(bytes, "frmAddStation", "item1"), "Station name");
}

TEST(ShippedLanguages, englishHasTheWordsThatAreBuiltIn) {
    const std::string bytes = bytesOf("English");
    int compared = 0;
    for (const LanguageSectionRow& section : languageSections()) {
        EXPECT_EQ(section.english.empty(), !section.name.starts_with("Tovik")) << section.name;
        for (std::size_t number = 0; number < section.english.size(); ++number) {
            EXPECT_EQ(profileValue(bytes, section.name, keyOf(static_cast<int>(number))),
                      section.english[number]);
            ++compared;
        }
    }
    EXPECT_GE(compared, 20);
}

TEST(LanguageTable, eachItemOfASectionWithAWindowHasAPlace) {
    for (const LanguageSectionRow& section : languageSections()) {
        std::set<int> placed;
        for (const LanguageRow& row : languageRowsOf(section.section)) {
            for (int i = 0; i < row.count; ++i) {
                placed.insert(row.item + i);
            }
        }
        const int expected = section.window == TextWindow::None ? 0 : itemsInFiles(section);
        EXPECT_EQ(static_cast<int>(placed.size()), expected) << section.name;
    }
}

} // namespace
} // namespace tovik::config
