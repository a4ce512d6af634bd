// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainTexts.h"

#include "config/LanguageTable.h"

#include <gtest/gtest.h>

namespace tovik::window {
namespace {

using config::TextKind;
using N = ui::MainElement;

class MainTextsTest : public testing::Test {
protected:
    ui::MainElements elements_{ui::mainLayout()};
    MainTexts texts_{elements_};
};

TEST_F(MainTextsTest, captionsTooltipsAndTexts) {
    texts_.setText("lbltag", 3, TextKind::Caption, "Leto");
    EXPECT_EQ(elements_.get(N::lbltag, 3).caption, "Leto");
    EXPECT_EQ(elements_.get(N::lbltag, 2).caption, "Album");
    const std::string symbol = elements_.get(N::playup).caption;
    texts_.setText("playup", 0, TextKind::Tooltip, "Predvajaj");
    EXPECT_EQ(elements_.get(N::playup).tooltip, "Predvajaj");
    EXPECT_EQ(elements_.get(N::playup).caption, symbol);
    texts_.setText("musicSearchTxt", 0, TextKind::Text, "Iskanje");
    EXPECT_EQ(elements_.get(N::musicSearchTxt).caption, "Iskanje");
}

TEST_F(MainTextsTest, anEmptyTextBlanks) {
    texts_.setText("lbltag", 0, TextKind::Caption, "");
    EXPECT_EQ(elements_.get(N::lbltag, 0).caption, "");
}

TEST_F(MainTextsTest, everyElementOfAName) {
    texts_.setText("timed", config::kEveryElement, TextKind::Tooltip, "time");
    for (std::size_t i = 0; i < elements_.count(N::timed); ++i) {
        EXPECT_EQ(elements_.get(N::timed, i).tooltip, "time");
    }
}

TEST_F(MainTextsTest, oneTextIsKept) {
    texts_.setText("PublicText", 0, TextKind::Kept, "kept");
    EXPECT_EQ(texts_.publicText(), "kept");
}

TEST_F(MainTextsTest, whatTheWindowDoesNotHaveIsPassedOver) {
    elements_.forgetChanges();
    texts_.setText("Command1", 0, TextKind::Caption, "x");
    texts_.setText("lbltag", 5, TextKind::Caption, "x");
    texts_.setText("lbltag", -2, TextKind::Caption, "x");
    EXPECT_TRUE(elements_.takeChanges().empty());
}

TEST_F(MainTextsTest, everyTextForTheMainWindowArrives) {
    for (const config::LanguageRow& row : config::languageRows()) {
        if (row.window != config::TextWindow::frmPlayer || row.kind == TextKind::Kept) {
            continue;
        }
        for (int i = 0; i < row.count; ++i) {
            const auto marked = [this] {
                std::size_t count = 0;
                for (std::size_t slot = 0; slot < elements_.size(); ++slot) {
                    const ui::Element& element = elements_.at(slot);
                    count += element.caption == "marked" ? 1U : 0U;
                    count += element.tooltip == "marked" ? 1U : 0U;
                    count += element.name == "marked" ? 1U : 0U;
                }
                return count;
            };
            const int index =
                row.index == config::kEveryElement ? config::kEveryElement : row.index + i;
            const std::size_t before = marked();
            texts_.setText(row.element, index, row.kind, "marked");
            EXPECT_GT(marked(), before) << row.element << index;
        }
    }
}

} // namespace
} // namespace tovik::window
