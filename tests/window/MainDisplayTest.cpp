// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainDisplay.h"

#include "base/RegularFile.h"
#include "config/Profile.h"
#include "support/host/TestHost.h"
#include "ui/BaseLetters.h"
#include "ui/GlyphText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <span>

namespace tovik::window {
namespace {

class Display : public testing::Test {
protected:
    [[nodiscard]] const ui::Element& element(MainElement name, std::size_t index = 0) const {
        return elements_.get(name, index);
    }

    player::PlayerState state_;
    MainElements elements_{mainLayout()};
    std::vector<std::string> captions_;
    ui::PictureStore pictures_;
    TextFields fields_{elements_, pictures_};
    test::TestHost host_;
    std::u32string title_; ///< as it was drawn last
    ui::ImgScroller scroller_{host_.clock, [this](std::u32string_view text) { title_ = text; }};
    MainDisplay display_{state_, elements_, fields_, scroller_,
                         [this](const std::string& caption) { captions_.push_back(caption); }};
    player::NowPlaying playing_;
};

TEST_F(Display, facts) {
    playing_.infoText = "128 kbps  44 KHZ";
    playing_.fields = {"Artist", "Title", "Album", "Year", "Genre"};
    display_.showFacts(playing_);
    EXPECT_EQ(element(MainElement::musicinfo_img).caption, "128 kbps  44 KHZ");
    for (std::size_t i = 0; i < player::kTagFields; ++i) {
        EXPECT_EQ(element(MainElement::lblinfo, i).caption, playing_.fields[i]);
    }
}

TEST_F(Display, aLongFieldIsWholeInItsTooltip) {
    playing_.fields[1] = "The beginning";
    playing_.wholeFields[1] = "The beginning of it all";
    playing_.fields[2] = "Whole";
    playing_.wholeFields[2] = "Whole";
    playing_.fields[3] = "2001";
    playing_.wholeFields[3] = "of another track";
    display_.showFacts(playing_);
    EXPECT_EQ(element(MainElement::lblinfo, 1).tooltip, "The beginning of it all");
    EXPECT_EQ(element(MainElement::lblinfo, 2).tooltip, "");
    EXPECT_EQ(element(MainElement::lblinfo, 3).tooltip, "");
    playing_.fields[1] = "Other";
    display_.showFacts(playing_);
    EXPECT_EQ(element(MainElement::lblinfo, 1).tooltip, "");
}

TEST_F(Display, theWordThatAppliesIsBright) {
    playing_.mode = "Mono";
    display_.showFacts(playing_);
    const ui::Colour bright = element(MainElement::mono_img).textColour;
    const ui::Colour dim = element(MainElement::Stereo_img).textColour;
    EXPECT_GT(bright.red, dim.red);
    playing_.mode = "Stereo";
    display_.showFacts(playing_);
    EXPECT_EQ(element(MainElement::mono_img).textColour, dim);
    EXPECT_EQ(element(MainElement::Stereo_img).textColour, bright);
    playing_.mode = "";
    display_.showFacts(playing_);
    EXPECT_EQ(element(MainElement::mono_img).textColour, dim);
    EXPECT_EQ(element(MainElement::Stereo_img).textColour, dim);
}

TEST_F(Display, wordsAreDrawnWithTheStripsOnceThereAreSome) {
    for (const auto& [name, pixel] :
         {std::pair{MainElement::textImg, 0xFF00FF00U}, {MainElement::textImg2, 0xFF0000FFU}}) {
        elements_.touch(name).picture =
            pictures_.add({155, 18, std::vector<std::uint32_t>(155U * 18U, pixel)});
    }
    playing_.infoText = "128 kbps";
    playing_.mode = "Stereo";
    playing_.volumeText = "Volume 80%";
    playing_.balanceText = "Left 25%";
    display_.showFacts(playing_);
    display_.showVolume(playing_);
    display_.showBalance(playing_);
    const auto ink = [this](MainElement name, std::size_t index = 0) {
        const ui::PixelImage* const image = pictures_.find(element(name, index).picture);
        return image == nullptr ? 0
                                : image->pixels.at(static_cast<std::size_t>(3 * image->width + 1));
    };
    EXPECT_EQ(ink(MainElement::musicinfo_img), 0xFF00FF00U);
    EXPECT_EQ(ink(MainElement::Stereo_img), 0xFF00FF00U);
    EXPECT_EQ(ink(MainElement::mono_img), 0xFF0000FFU);
    EXPECT_EQ(ink(MainElement::shwchange, 0), 0xFF00FF00U);
    EXPECT_EQ(ink(MainElement::shwchange, 1), 0xFF00FF00U);
}

TEST_F(Display, aNoticeThatIsCutStandsWholeInItsTooltip) {
    playing_.notice = "Type mismatch";
    display_.showNotice(playing_);
    EXPECT_EQ(elements_.get(MainElement::notice_img).tooltip, "");
    playing_.notice = "Type mismatch: a file with a long name.m3u";
    display_.showNotice(playing_);
    EXPECT_EQ(elements_.get(MainElement::notice_img).tooltip, playing_.notice);
}

TEST_F(Display, noLetterOfTheNoticeIsCutInAnyLanguage) {
    // Every glyph is ink as wide as it may be, so that what is cut off is missed.
    constexpr std::uint32_t kInk = 0xFF00FF00U;
    elements_.touch(MainElement::textImg).picture =
        pictures_.add({155, 18, std::vector<std::uint32_t>(155U * 18U, kInk)});
    int languages = 0;
    for (const auto& file : std::filesystem::directory_iterator(TOVIK_DATA_DIR "/Languages")) {
        SCOPED_TRACE(file.path().filename().string());
        std::string bytes;
        ASSERT_FALSE(base::readWholeFile(file.path().string(), bytes));
        playing_.notice = config::profileValue(bytes, "TovikNotice", "item0");
        ASSERT_FALSE(playing_.notice.empty());
        display_.showNotice(playing_);
        const ui::PixelImage* const drawn =
            pictures_.find(element(MainElement::notice_img).picture);
        ASSERT_NE(drawn, nullptr);
        const auto line = std::span(drawn->pixels)
                              .subspan(static_cast<std::size_t>(4 * drawn->width),
                                       static_cast<std::size_t>(drawn->width));
        EXPECT_EQ(std::ranges::count(line, kInk),
                  ui::kGlyphWidth * std::ssize(ui::drawableCharacters(playing_.notice)));
        EXPECT_TRUE(element(MainElement::notice_img).smallText.empty());
        ++languages;
    }
    EXPECT_EQ(languages, 2);
}

TEST_F(Display, titles) {
    playing_.scrollerText = " Song (01:00)";
    playing_.caption = " Caption";
    display_.showTitles(playing_);
    EXPECT_EQ(element(MainElement::songname).caption, " Song (01:00)");
    EXPECT_EQ(title_, U" Song (01:00)***");
    host_.clock.advanceTo(200);
    EXPECT_EQ(title_, U"Song (01:00)*** ");
    EXPECT_THAT(captions_, testing::ElementsAre(" Caption"));
    display_.holdTitles();
    host_.clock.advanceTo(1000);
    EXPECT_EQ(title_, U"Song (01:00)*** ");
}

TEST_F(Display, digits) {
    const std::string colon = element(MainElement::timed, 3).caption;
    playing_.time = "12:34";
    display_.showTime(playing_);
    EXPECT_EQ(element(MainElement::timed, 1).caption, "1");
    EXPECT_EQ(element(MainElement::timed, 2).caption, "2");
    EXPECT_EQ(element(MainElement::timed, 3).caption, colon);
    EXPECT_EQ(element(MainElement::timed, 4).caption, "3");
    EXPECT_EQ(element(MainElement::timed, 5).caption, "4");
    EXPECT_FALSE(element(MainElement::timed, 0).visible);
    state_.TimeDisplayMode = 1;
    display_.showTime(playing_);
    EXPECT_TRUE(element(MainElement::timed, 0).visible);
}

TEST_F(Display, theMarkGoesFromTheLeftEndOfTheBarToTheRight) {
    const ui::Element& bar = element(MainElement::posbar);
    const ui::Element& mark = element(MainElement::track);
    ASSERT_GT(mark.width, bar.width / 100);
    for (const double percent : {0.0, 50.0, 90.0}) {
        playing_.percent = percent;
        display_.showPosition(playing_);
        EXPECT_DOUBLE_EQ(mark.left, bar.left + bar.width * percent / 100);
    }
    for (const double percent : {99.0, 100.0, 120.0}) {
        playing_.percent = percent;
        display_.showPosition(playing_);
        EXPECT_DOUBLE_EQ(mark.left + mark.width, bar.left + bar.width) << "it ends with its bar";
    }
}

TEST_F(Display, theFieldsTakeThePlaceOfAStationsLine) {
    for (const bool radio : {true, false}) {
        state_.RadioMode = radio;
        display_.showSource();
        EXPECT_EQ(element(MainElement::lblRDinfo).visible, radio);
        for (std::size_t i = 0; i < player::kTagFields; ++i) {
            EXPECT_EQ(element(MainElement::lbltag, i).visible, !radio);
            EXPECT_EQ(element(MainElement::lblinfo, i).visible, !radio);
        }
    }
}

TEST_F(Display, theSignAndTheFieldsStayAwayFromOtherPanels) {
    state_.CurrentPanel = 2;
    state_.TimeDisplayMode = 1;
    state_.StopAfterCurrent = true;
    display_.showTime(playing_); // the clock ticks on whatever panel is shown
    display_.showSource();       // and a track starts there
    display_.showStopNote();
    EXPECT_FALSE(element(MainElement::timed, 0).visible);
    EXPECT_FALSE(element(MainElement::lbltag, 0).visible);
    EXPECT_FALSE(element(MainElement::lblinfo, 4).visible);
    EXPECT_FALSE(element(MainElement::stopNote).visible);
    state_.CurrentPanel = 1;
    display_.showStopNote();
    EXPECT_TRUE(element(MainElement::stopNote).visible);
}

} // namespace
} // namespace tovik::window
