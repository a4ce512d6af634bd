// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TextFields.h"

#include "ui/BaseLetters.h"
#include "ui/GlyphText.h"
#include "window/MainRows.h"

#include <algorithm>
#include <cmath>

namespace tovik::window {

namespace {

/// The source that text is drawn from holds the strip that was used last.
void becomeSource(MainElements& elements, ui::Picture strip) {
    if (elements.get(MainElement::songname2).picture != strip) {
        elements.touch(MainElement::songname2).picture = strip;
    }
}

} // namespace

void TextFields::show(MainElement name, std::size_t index, std::string_view words, Strip strip) {
    ui::Element& element = elements_.touch(name, index);
    element.caption = words;
    element.textColour = strip == Strip::Bright ? rows::kWhite : rows::kDim;
    static_cast<void>(draw(name, index, ui::drawableCharacters(words), strip));
}

bool TextFields::draw(MainElement name, std::size_t index, std::u32string_view characters,
                      Strip strip) {
    const ui::Picture source =
        elements_.get(strip == Strip::Bright ? MainElement::textImg : MainElement::textImg2)
            .picture;
    const ui::PixelImage* const glyphs = pictures_.find(source);
    if (glyphs == nullptr) {
        return false;
    }
    becomeSource(elements_, source);
    if (!ui::suitsStrips(characters)) {
        writeSmall(name, index, characters, *glyphs);
        return true;
    }
    const ui::Element& element = elements_.get(name, index);
    const auto width = static_cast<int>(std::lround(element.width));
    const std::size_t fitting = static_cast<std::size_t>(std::max(width, 0)) / ui::kGlyphWidth + 1;
    Drawn wanted{.picture = {},
                 .strip = source,
                 .characters = std::u32string(characters.substr(0, fitting)),
                 .width = element.width,
                 .height = element.height};
    Drawn& last = drawn_[{name, index}];
    if (!last.picture || !last.sameAs(wanted)) {
        ui::cMemDC surface;
        surface.Init(width, static_cast<int>(std::lround(element.height)));
        ui::drawText(surface, *glyphs, wanted.characters);
        wanted.picture = last.picture ? pictures_.replace(last.picture, surface.DetachBitmap())
                                      : pictures_.add(surface.DetachBitmap());
        last = std::move(wanted);
    }
    if (element.picture != last.picture || !element.smallText.empty()) {
        ui::Element& written = elements_.touch(name, index);
        written.picture = last.picture;
        written.smallText.clear();
    }
    return true;
}

void TextFields::writeSmall(MainElement name, std::size_t index, std::u32string_view characters,
                            const ui::PixelImage& strip) {
    const ui::Element& before = elements_.get(name, index);
    // No character is narrower than a pixel.
    const auto fitting = static_cast<std::size_t>(std::max(before.width, 0.0));
    const std::string words = ui::utf8Of(characters.substr(0, fitting));
    const ui::StripColours colours = ui::stripColours(strip);
    if (before.smallText != words || before.textColour != colours.ink ||
        before.backColour != colours.ground) {
        ui::Element& element = elements_.touch(name, index);
        element.smallText = words;
        element.textColour = colours.ink;
        element.backColour = colours.ground;
    }
}

} // namespace tovik::window
