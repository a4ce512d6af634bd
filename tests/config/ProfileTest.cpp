// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Profile.h"

#include <gtest/gtest.h>

namespace tovik::config {
namespace {

TEST(Profile, theValueOfAKeyInItsSection) {
    const std::string_view file = "LNG=outside\r\n[Other]\r\nLNG=other\r\n[Firstrun]\r\nX=1\r\n"
                                  "LNG=English\r\n[Last]\r\nLNG=last\r\n";
    EXPECT_EQ(profileValue(file, "Firstrun", "LNG"), "English");
    EXPECT_EQ(profileValue(file, "Other", "LNG"), "other");
    EXPECT_EQ(profileValue(file, "Last", "LNG"), "last");
    EXPECT_EQ(profileValue(file, "Firstrun", "X"), "1");
}

TEST(Profile, missingReadsAsEmpty) {
    EXPECT_EQ(profileValue("", "S", "K"), "");
    EXPECT_EQ(profileValue("[S]\nK2=1\n", "S", "K"), "");
    EXPECT_EQ(profileValue("[S]\nK=1\n", "T", "K"), "");
    EXPECT_EQ(profileValue("K=1\n", "", "K"), "");
    EXPECT_EQ(profileValue("[S]\nK\n", "S", "K"), "");
    EXPECT_EQ(profileValue("[S]\nK=\n", "S", "K"), "");
    EXPECT_EQ(profileValue("[S\nK=1\n", "S", "K"), "");
}

TEST(Profile, theCaseOfLettersPlaysNoPart) {
    EXPECT_EQ(profileValue("[fIRSTrun]\nlng=De\n", "Firstrun", "LNG"), "De");
}

TEST(Profile, theFirstMatchWins) {
    EXPECT_EQ(profileValue("[S]\nK=1\nK=2\n", "S", "K"), "1");
    EXPECT_EQ(profileValue("[S]\nK=1\n[S]\nK=2\n", "S", "K"), "1");
    EXPECT_EQ(profileValue("[S]\n[S]\nK=2\n", "S", "K"), "");
}

TEST(Profile, blanksAndOnePairOfQuotesAreDropped) {
    EXPECT_EQ(profileValue("  [ S ]  \n  K  =  a b  \n", "S", "K"), "a b");
    EXPECT_EQ(profileValue("[S]\nK= \"a b\" \n", "S", "K"), "a b");
    EXPECT_EQ(profileValue("[S]\nK='a'\n", "S", "K"), "a");
    EXPECT_EQ(profileValue("[S]\nK=\"\"a\"\"\n", "S", "K"), "\"a\"");
    EXPECT_EQ(profileValue("[S]\nK=\" a \"\n", "S", "K"), " a ");
    EXPECT_EQ(profileValue("[S]\nK=\"a'\n", "S", "K"), "\"a'");
    EXPECT_EQ(profileValue("[S]\nK=\"\n", "S", "K"), "\"");
}

TEST(Profile, onlyTheFirstEqualsSignSeparates) {
    EXPECT_EQ(profileValue("[S]\nK=a=b\n", "S", "K"), "a=b");
}

TEST(Profile, anyEndOfALineWillDo) {
    EXPECT_EQ(profileValue("[S]\rK=1\rL=2", "S", "L"), "2");
    EXPECT_EQ(profileValue("[S]\r\nK=1", "S", "K"), "1");
}

TEST(Profile, aLongValueIsCutBetweenCharacters) {
    const std::string letters(300, 'a');
    EXPECT_EQ(profileValue("[S]\nK=" + letters + "\n", "S", "K"), std::string(254, 'a'));
    const std::string odd = std::string(253, 'a') + "\xC3\xA9";
    EXPECT_EQ(profileValue("[S]\nK=" + odd + "\n", "S", "K"), std::string(253, 'a'));
}

TEST(Profile, keysAreMatchedAsWritten) {
    EXPECT_EQ(profileValue("[S]\nitem053=a\nitem53=b\n", "S", "item53"), "b");
    EXPECT_EQ(profileValue("[S]\nitem053=a\n", "S", "item53"), "");
}

TEST(Profile, aSemicolonInFrontOfAValueIsText) {
    EXPECT_EQ(profileValue("[S]\nK=;a\n", "S", "K"), ";a");
    EXPECT_EQ(profileValue("[S]\n;K=a\nK=b\n", "S", "K"), "b");
}

TEST(Profile, theMarkThatEditorsPutInFrontOfUtf8IsPassedOver) {
    const std::string file = "\xEF\xBB\xBF[S]\r\nK=1\r\n";
    EXPECT_EQ(profileValue(file, "S", "K"), "1");
    EXPECT_EQ(withProfileValue(file, "S", "K", "2"), "\xEF\xBB\xBF[S]\r\nK=2\r\n");
}

TEST(Profile, missingAndEmptyDiffer) {
    EXPECT_EQ(findProfileValue("[S]\nK=\n", "S", "K"), "");
    EXPECT_EQ(findProfileValue("[S]\n", "S", "K"), std::nullopt);
}

} // namespace
} // namespace tovik::config
