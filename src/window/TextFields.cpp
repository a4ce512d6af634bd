// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TextFields.h"

#include "ui/BaseLetters.h"
#include "ui/GlyphText.h"
#include "window/MainRows.h"

#include <algorithm>
#include <cmath>

namespace tovik::window {

namespace {

/// As dense as the strip; width and height in skin pixels.
ui::PixelImage wordsPicture(const ui::PixelImage& strip, std::u32string_view characters, int width,
                            int height) {
    ui::cMemDC surface;
    surface.Init(width * strip.density, height * strip.density);
    ui::drawText(surface, strip, characters);
    ui::PixelImage words = surface.DetachBitmap();
    words.density = strip.density;
    return words;
}

} // namespace

TextFields::TextFields(MainElements& elements, ui::PictureStore& pictures)
    : TextFields(elements, pictures,
                 {.kept = elements,
                  .bright = ui::addressOf(MainElement::textImg),
                  .dim = ui::addressOf(MainElement::textImg2),
                  .source = ui::addressOf(MainElement::songname2)}) {}

/// The source that text is drawn from holds the strip that was used last.
void TextFields::becomeSource(ui::Picture strip) {
    if (element(strips_.source).picture != strip) {
        elements_.touchAt(strips_.source).picture = strip;
    }
}

void TextFields::show(ui::ElementAddress field, std::string_view words, Strip strip) {
    ui::Element& shown = elements_.touchAt(field);
    shown.caption = words;
    shown.textColour = strip == Strip::Bright ? rows::kWhite : rows::kDim;
    static_cast<void>(draw(field, ui::drawableCharacters(words), strip));
}

bool TextFields::draw(ui::ElementAddress field, std::u32string_view characters, Strip strip) {
    const ui::ElementAddress kept = strip == Strip::Bright ? strips_.bright : strips_.dim;
    const ui::Picture source = strips_.kept.at(strips_.kept.slotOf(kept)).picture;
    const ui::PixelImage* const glyphs = pictures_.find(source);
    if (glyphs == nullptr) {
        return false;
    }
    becomeSource(source);
    if (!ui::suitsStrips(characters)) {
        writeSmall(field, characters, *glyphs);
        return true;
    }
    const ui::Element& shown = element(field);
    const auto width = static_cast<int>(std::lround(shown.width));
    const std::size_t fitting = static_cast<std::size_t>(std::max(width, 0)) / ui::kGlyphWidth + 1;
    Drawn wanted{.picture = {},
                 .strip = source,
                 .characters = drawn(characters.substr(0, fitting)),
                 .width = shown.width,
                 .height = shown.height};
    Drawn& last = drawn_[{field.name, field.index}];
    if (!last.picture || !last.sameAs(wanted)) {
        const auto height = static_cast<int>(std::lround(shown.height));
        ui::Redraw words = [&pictures = pictures_, source, width, height,
                            characters = wanted.characters](int factor) {
            const ui::PixelImage* const fine = pictures.find(source, factor);
            return fine != nullptr && fine->density > 1
                       ? wordsPicture(*fine, characters, width, height)
                       : ui::PixelImage{};
        };
        ui::PixelImage plain = wordsPicture(*glyphs, wanted.characters, width, height);
        wanted.picture = last.picture
                             ? pictures_.replace(last.picture, std::move(plain), std::move(words))
                             : pictures_.add(std::move(plain), std::move(words));
        last = std::move(wanted);
    }
    if (shown.picture != last.picture || !shown.smallText.empty()) {
        ui::Element& written = elements_.touchAt(field);
        written.picture = last.picture;
        written.smallText.clear();
    }
    return true;
}

std::u32string TextFields::drawn(std::u32string_view characters) const {
    std::u32string text(characters);
    if (comfort_ != nullptr && comfort_->leavesUnknownSignsBlank) {
        std::ranges::replace_if(
            text, [](char32_t character) { return !ui::hasGlyph(character); }, U' ');
    }
    return text;
}

void TextFields::writeSmall(ui::ElementAddress field, std::u32string_view characters,
                            const ui::PixelImage& strip) {
    const ui::Element& before = element(field);
    // No character is narrower than a pixel.
    const auto fitting = static_cast<std::size_t>(std::max(before.width, 0.0));
    const std::string words = ui::utf8Of(characters.substr(0, fitting));
    const ui::StripColours colours = ui::stripColours(strip);
    if (before.smallText != words || before.textColour != colours.ink ||
        before.backColour != colours.ground) {
        ui::Element& written = elements_.touchAt(field);
        written.smallText = words;
        written.textColour = colours.ink;
        written.backColour = colours.ground;
    }
}

} // namespace tovik::window
