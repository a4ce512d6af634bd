// SPDX-License-Identifier: GPL-3.0-or-later
// The small fields of the main window that show words: with the glyphs of the skin's strips, and as
// plain captions as long as there are none. Interface thread.
#pragma once

#include "ui/PictureStore.h"
#include "window/MainElements.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tovik::window {

/// The strip that words are drawn with.
enum class Strip { Bright, Dim };

class TextFields {
public:
    /// Both outlive the object.
    TextFields(MainElements& elements, ui::PictureStore& pictures)
        : elements_(elements), pictures_(pictures) {}

    /// Shows words on an element: bytes, valid UTF-8 or else Windows-1252. Nothing is drawn anew
    /// for words that it shows already. Letters that the strips lack become base letters; words
    /// that they cannot draw then either are drawn with a small font.
    void show(MainElement name, std::size_t index, std::string_view words, Strip strip);

    /// The same with characters as they are to be drawn (see `drawableCharacters`), of which only
    /// the first ones fit, as a title that scrolls has them; its caption stays. Whether there is a
    /// strip to draw with.
    [[nodiscard]] bool draw(MainElement name, std::size_t index, std::u32string_view characters,
                            Strip strip);

private:
    /// Leaves the words to a small font, in the colours of the strip.
    void writeSmall(MainElement name, std::size_t index, std::u32string_view characters,
                    const ui::PixelImage& strip);

    /// What an element's picture was drawn from.
    struct Drawn {
        ui::Picture picture;
        ui::Picture strip;
        std::u32string characters;
        double width = 0;
        double height = 0;

        [[nodiscard]] bool sameAs(const Drawn& other) const {
            return strip == other.strip && characters == other.characters && width == other.width &&
                   height == other.height;
        }
    };

    MainElements& elements_;
    ui::PictureStore& pictures_;
    std::map<std::pair<MainElement, std::size_t>, Drawn> drawn_;
};

} // namespace tovik::window
