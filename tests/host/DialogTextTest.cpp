// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/DialogText.h"

#include <gmock/gmock.h>

namespace tovik::host {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::string chosen(const std::vector<std::string>& paths) {
    return chosenText(paths);
}

TEST(DialogText, labelsAndPatternsComeApart) {
    const std::vector<FileFilter> filters = filtersOf("A (*.a;*.x)|*.a;*.b?|B(*.c)|*.c");
    ASSERT_EQ(filters.size(), 2U);
    EXPECT_EQ(filters[0].name, "A (*.a;*.x)");
    EXPECT_THAT(filters[0].patterns, ElementsAre("*.a", "*.b?"));
    EXPECT_EQ(filters[1].name, "B(*.c)");
    EXPECT_THAT(filters[1].patterns, ElementsAre("*.c"));
}

TEST(DialogText, aFilterMayEndInASeparator) {
    ASSERT_EQ(filtersOf("A|*.a|").size(), 1U);
    EXPECT_THAT(filtersOf(""), IsEmpty());
    EXPECT_THAT(filtersOf("A"), IsEmpty());
}

TEST(DialogText, oneFileIsItsWholePath) {
    EXPECT_EQ(chosen({"/m/a.mp3"}), "/m/a.mp3\0\0"s);
    EXPECT_EQ(chosen({}), "");
}

TEST(DialogText, manyFilesAreAFolderAndNames) {
    EXPECT_EQ(chosen({"/m/b.mp3", "/m/a.mp3"}), "/m\0b.mp3\0a.mp3\0\0"s);
    EXPECT_EQ(chosen({"/b.mp3", "/a.mp3"}), "/\0b.mp3\0a.mp3\0\0"s);
}

TEST(DialogText, filesOfSeveralFoldersHaveTheOneThatHoldsThemAll) {
    EXPECT_EQ(chosen({"/m/ab/x", "/m/a/y", "/m/z"}), "/m\0ab/x\0a/y\0z\0\0"s);
    EXPECT_EQ(chosen({"/m/ab/x", "/n/y"}), "/\0m/ab/x\0n/y\0\0"s);
    EXPECT_EQ(chosen({"/m/a/x", "/m/a"}), "/m\0a/x\0a\0\0"s);
}

} // namespace
} // namespace tovik::host
