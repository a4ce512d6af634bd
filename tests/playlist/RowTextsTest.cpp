// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/RowTexts.h"

#include <gtest/gtest.h>

#include <string>

namespace tovik::playlist {
namespace {

TEST(RowTexts, beginsEmpty) {
    RowTexts texts;
    EXPECT_EQ(texts.get(RowText::ItemData), "");
    EXPECT_EQ(texts.get(RowText::TimeText), "");
    texts.set(RowText::Title, "title");
    EXPECT_EQ(texts.get(RowText::Title), "title");
    EXPECT_EQ(texts.get(RowText::FileName), "");
}

TEST(RowTexts, keepsFourTextsApart) {
    const std::string withZero("da\0ta", 5);
    const RowTexts texts(withZero, "/file", "", "00:01");
    EXPECT_EQ(texts.get(RowText::ItemData), withZero);
    EXPECT_EQ(texts.get(RowText::FileName), "/file");
    EXPECT_EQ(texts.get(RowText::Title), "");
    EXPECT_EQ(texts.get(RowText::TimeText), "00:01");
}

TEST(RowTexts, settingOneLeavesTheOthers) {
    RowTexts texts("data", "/file", "title", "00:01");
    texts.set(RowText::FileName, "/a much longer file name than the one before");
    texts.set(RowText::Title, "");
    EXPECT_EQ(texts.get(RowText::ItemData), "data");
    EXPECT_EQ(texts.get(RowText::FileName), "/a much longer file name than the one before");
    EXPECT_EQ(texts.get(RowText::Title), "");
    EXPECT_EQ(texts.get(RowText::TimeText), "00:01");
}

TEST(RowTexts, aTextMayBeMadeOfAnOldOne) {
    RowTexts texts("data", "/file", "title", "00:01");
    texts.set(RowText::Title, texts.get(RowText::FileName).substr(1));
    EXPECT_EQ(texts.get(RowText::Title), "file");
    texts.set(RowText::Title, texts.get(RowText::Title));
    EXPECT_EQ(texts.get(RowText::Title), "file");
}

} // namespace
} // namespace tovik::playlist
