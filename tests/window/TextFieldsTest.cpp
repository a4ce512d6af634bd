// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TextFields.h"

#include "ui/GlyphText.h"
#include "ui/StripPicture.h"

#include <gmock/gmock.h>

namespace tovik::window {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using ui::test::stripPixel;

class TextFieldsTest : public testing::Test {
protected:
    void giveStrips() {
        elements.touch(MainElement::textImg).picture = pictures.add(ui::test::strip(1));
        elements.touch(MainElement::textImg2).picture = pictures.add(ui::test::strip(2));
    }

    /// The pixel of an element's picture at (1, 3), where its first glyph begins.
    std::uint32_t corner(MainElement name, std::size_t index = 0) {
        const ui::PixelImage* const image = pictures.find(elements.get(name, index).picture);
        return image != nullptr ? image->pixels.at(static_cast<std::size_t>(3 * image->width + 1))
                                : 0;
    }

    MainElements elements{mainLayout()};
    ui::PictureStore pictures;
    TextFields fields{elements, pictures};
};

TEST_F(TextFieldsTest, withoutStripsWordsAreCaptions) {
    fields.show(MainElement::mono_img, 0, "Mono", Strip::Dim);
    fields.show(MainElement::shwchange, 1, "Centre", Strip::Bright);
    EXPECT_EQ(elements.get(MainElement::mono_img).caption, "Mono");
    EXPECT_FALSE(elements.get(MainElement::mono_img).picture);
    EXPECT_EQ(elements.get(MainElement::shwchange, 1).caption, "Centre");
    EXPECT_NE(elements.get(MainElement::mono_img).textColour,
              elements.get(MainElement::shwchange, 1).textColour);
    EXPECT_FALSE(fields.draw(MainElement::songname, 0, U"x", Strip::Bright));
}

TEST_F(TextFieldsTest, drawsWithTheBrightOrTheDimStrip) {
    giveStrips();
    fields.show(MainElement::musicinfo_img, 0, "C", Strip::Bright);
    EXPECT_EQ(corner(MainElement::musicinfo_img), stripPixel(10, 0, 1));
    EXPECT_EQ(elements.get(MainElement::songname2).picture,
              elements.get(MainElement::textImg).picture);
    fields.show(MainElement::mono_img, 0, "0", Strip::Dim);
    EXPECT_EQ(corner(MainElement::mono_img), stripPixel(0, 6, 2));
    EXPECT_EQ(elements.get(MainElement::songname2).picture,
              elements.get(MainElement::textImg2).picture);
    EXPECT_EQ(elements.get(MainElement::mono_img).caption, "0");
}

TEST_F(TextFieldsTest, aSignWithoutAGlyphMayBeBlank) {
    giveStrips();
    base::Comfort comfort;
    fields.obey(comfort);
    fields.show(MainElement::mono_img, 0, ";a", Strip::Bright);
    EXPECT_EQ(corner(MainElement::mono_img), stripPixel(0, 0, 1));
    comfort.leavesUnknownSignsBlank = true;
    fields.show(MainElement::mono_img, 0, ";a", Strip::Bright);
    EXPECT_EQ(corner(MainElement::mono_img), stripPixel(145, 0, 1));
    EXPECT_EQ(elements.get(MainElement::mono_img).caption, ";a");
    fields.show(MainElement::mono_img, 0, "a;", Strip::Bright);
    EXPECT_EQ(corner(MainElement::mono_img), stripPixel(0, 0, 1));
}

TEST_F(TextFieldsTest, onADenseScreenWordsAreDrawnWithAStripOfThatSize) {
    giveStrips();
    const ui::PixelImage fine{310, 36, std::vector<std::uint32_t>(310 * 36, 0xFF778899), 2};
    elements.touch(MainElement::textImg2).picture = pictures.add(
        ui::test::strip(2), [&](int factor) { return factor == 2 ? fine : ui::PixelImage{}; });
    fields.show(MainElement::mono_img, 0, "0", Strip::Dim);
    const ui::Picture dim = elements.get(MainElement::mono_img).picture;
    const ui::PixelImage* const words = pictures.find(dim, 2);
    EXPECT_EQ(words->density, 2);
    EXPECT_EQ(words->width, 2 * pictures.find(dim)->width);
    EXPECT_EQ(words->pixels.at(static_cast<std::size_t>(6 * words->width + 2)), 0xFF778899);
    EXPECT_EQ(words->pixels.at(static_cast<std::size_t>(6 * words->width + 1)), 0U);
    EXPECT_EQ(pictures.find(dim, 3)->density, 1) << "the strip is not drawn in that size";
    // With a strip of the skin's own there is none to draw with: its words are enlarged.
    fields.show(MainElement::musicinfo_img, 0, "C", Strip::Bright);
    EXPECT_EQ(pictures.find(elements.get(MainElement::musicinfo_img).picture, 2)->density, 1);
}

TEST_F(TextFieldsTest, thePictureHasTheSizeOfItsElement) {
    giveStrips();
    fields.show(MainElement::shwchange, 0, "Volume", Strip::Bright);
    const ui::PixelImage* image = pictures.find(elements.get(MainElement::shwchange, 0).picture);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->width, 60);
    EXPECT_EQ(image->height, 10);
}

TEST_F(TextFieldsTest, wordsThatAreShownAlreadyChangeNothing) {
    giveStrips();
    fields.show(MainElement::shwchange, 0, "Volume", Strip::Bright);
    static_cast<void>(elements.takeChanges());
    fields.show(MainElement::shwchange, 0, "Volume", Strip::Bright);
    EXPECT_THAT(elements.takeChanges(), IsEmpty());
    const ui::Picture before = elements.get(MainElement::shwchange, 0).picture;
    fields.show(MainElement::shwchange, 0, "Volume", Strip::Dim);
    EXPECT_THAT(elements.takeChanges(), SizeIs(1));
    EXPECT_EQ(elements.get(MainElement::shwchange, 0).picture.number, before.number);
    EXPECT_EQ(corner(MainElement::shwchange), stripPixel(105, 0, 2));
}

TEST_F(TextFieldsTest, onlyWhatFitsCounts) {
    giveStrips();
    EXPECT_TRUE(fields.draw(MainElement::Stereo_img, 0, std::u32string(40, U'a'), Strip::Bright));
    const ui::Picture before = elements.get(MainElement::Stereo_img).picture;
    EXPECT_TRUE(
        fields.draw(MainElement::Stereo_img, 0, std::u32string(41, U'a') + U'b', Strip::Bright));
    EXPECT_EQ(elements.get(MainElement::Stereo_img).picture, before);
    EXPECT_TRUE(fields.draw(MainElement::Stereo_img, 0, U"b", Strip::Bright));
    EXPECT_NE(elements.get(MainElement::Stereo_img).picture, before);
}

TEST_F(TextFieldsTest, lettersThatTheStripLacksAreDrawnAsPlainOnes) {
    giveStrips();
    fields.show(MainElement::shwchange, 0, "\u010C", Strip::Bright);
    EXPECT_EQ(corner(MainElement::shwchange), stripPixel(10, 0, 1));
    EXPECT_EQ(elements.get(MainElement::shwchange, 0).smallText, "");
    EXPECT_EQ(elements.get(MainElement::shwchange, 0).caption, "\u010C");
}

TEST_F(TextFieldsTest, whatTheStripCannotDrawIsLeftToASmallFont) {
    giveStrips();
    fields.show(MainElement::shwchange, 0, "\u0416\u010D a", Strip::Bright);
    const ui::Element& element = elements.get(MainElement::shwchange, 0);
    EXPECT_EQ(element.smallText, "\u0416\u010D a") << "the whole text as it is";
    EXPECT_EQ(element.textColour, ui::stripColours(ui::test::strip(1)).ink);
    EXPECT_EQ(element.backColour, ui::stripColours(ui::test::strip(1)).ground);
    static_cast<void>(elements.takeChanges());
    fields.show(MainElement::shwchange, 0, "\u0416\u010D a", Strip::Bright);
    EXPECT_THAT(elements.takeChanges(), IsEmpty());
    fields.show(MainElement::shwchange, 0, "c", Strip::Bright);
    EXPECT_EQ(element.smallText, "");
    EXPECT_EQ(corner(MainElement::shwchange), stripPixel(10, 0, 1));
}

TEST_F(TextFieldsTest, aTitleThatScrollsKeepsItsFontWhateverIsInSight) {
    giveStrips();
    EXPECT_TRUE(fields.draw(MainElement::songname, 0, std::u32string(400, U'a') + U'\u0416',
                            Strip::Bright));
    EXPECT_EQ(elements.get(MainElement::songname).smallText, std::string(150, 'a'));
}

TEST_F(TextFieldsTest, whatTheAlphabetLeavesOutLooksLikeTheFirstGlyph) {
    giveStrips();
    fields.show(MainElement::shwchange, 0, ";", Strip::Bright);
    EXPECT_EQ(corner(MainElement::shwchange), stripPixel(0, 0, 1));
    EXPECT_EQ(elements.get(MainElement::shwchange, 0).smallText, "");
}

TEST_F(TextFieldsTest, anotherStripDrawsAnew) {
    giveStrips();
    fields.show(MainElement::musicinfo_img, 0, "C", Strip::Bright);
    elements.touch(MainElement::textImg).picture = pictures.add(ui::test::strip(3));
    fields.show(MainElement::musicinfo_img, 0, "C", Strip::Bright);
    EXPECT_EQ(corner(MainElement::musicinfo_img), stripPixel(10, 0, 3));
}

} // namespace
} // namespace tovik::window
