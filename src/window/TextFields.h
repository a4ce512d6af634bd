// SPDX-License-Identifier: GPL-3.0-or-later
// The small fields of a window that show words: with the glyphs of the skin's strips, and as
// plain captions as long as there are none. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "ui/PictureStore.h"
#include "window/MainElements.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tovik::window {

/// The strip that words are drawn with.
enum class Strip { Bright, Dim };

/// The elements that keep the strips, and the one of the window itself that holds the strip that
/// was used last.
struct StripPlaces {
    const ui::ElementStore& kept;
    ui::ElementAddress bright;
    ui::ElementAddress dim;
    ui::ElementAddress source;
};

class TextFields {
public:
    /// All of them outlive the object.
    TextFields(ui::ElementStore& elements, ui::PictureStore& pictures, const StripPlaces& strips)
        : elements_(elements), pictures_(pictures), strips_(strips) {}

    /// Those of the main window, which keeps the strips.
    TextFields(MainElements& elements, ui::PictureStore& pictures);

    /// What is kinder, which outlives the object; nothing is without it.
    void obey(const base::Comfort& comfort) { comfort_ = &comfort; }

    /// Shows words on an element: bytes, valid UTF-8 or else Windows-1252. Nothing is drawn anew
    /// for words that it shows already. Letters that the strips lack become base letters; words
    /// that they cannot draw then either are drawn with a small font.
    void show(ui::ElementAddress field, std::string_view words, Strip strip);

    template <typename Name>
    void show(Name name, std::size_t index, std::string_view words, Strip strip) {
        show(ui::addressOf(name, index), words, strip);
    }

    /// The same with characters as they are to be drawn (see `drawableCharacters`), of which only
    /// the first ones fit, as a title that scrolls has them; its caption stays. Whether there is a
    /// strip to draw with.
    [[nodiscard]] bool draw(ui::ElementAddress field, std::u32string_view characters, Strip strip);

    template <typename Name>
    [[nodiscard]] bool draw(Name name, std::size_t index, std::u32string_view characters,
                            Strip strip) {
        return draw(ui::addressOf(name, index), characters, strip);
    }

private:
    /// Leaves the words to a small font, in the colours of the strip.
    void writeSmall(ui::ElementAddress field, std::u32string_view characters,
                    const ui::PixelImage& strip);

    void becomeSource(ui::Picture strip);

    /// The characters as they are drawn: a sign that the strips lack may be a blank.
    [[nodiscard]] std::u32string drawn(std::u32string_view characters) const;

    [[nodiscard]] const ui::Element& element(ui::ElementAddress address) const {
        return elements_.at(elements_.slotOf(address));
    }

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

    ui::ElementStore& elements_;
    ui::PictureStore& pictures_;
    StripPlaces strips_;
    const base::Comfort* comfort_ = nullptr;
    std::map<std::pair<std::uint16_t, std::uint16_t>, Drawn> drawn_; ///< by name and index
};

} // namespace tovik::window
