// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/ScreenModule.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <string_view>

namespace tovik::vis {

namespace {

constexpr int kFewColours = 4;
constexpr int kByteOfColours = 8;

std::string colourText(int bits) {
    switch (bits) {
    case kFewColours:
        return "16 colors";
    case kByteOfColours:
        return "256 colors";
    default:
        return std::to_string(bits) + "bit color";
    }
}

std::string textOf(const host::DisplayMode& mode) {
    const std::string rate =
        mode.hertz > 1 ? std::to_string(mode.hertz) + " Hz" : "(Hardware default)";
    return std::to_string(mode.width) + " x " + std::to_string(mode.height) + ", " +
           colourText(mode.bitsPerPixel) + ", " + rate;
}

} // namespace

std::vector<std::string> ScreenModule::ListDisplayModes() const {
    std::vector<std::string> texts;
    std::ranges::transform(modes_.all(), std::back_inserter(texts), textOf);
    return texts;
}

int ScreenModule::CurrentDisplayMode() const {
    const std::vector<host::DisplayMode> all = modes_.all();
    const auto found = std::ranges::find(all, modes_.current());
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

std::int16_t ScreenModule::ColourDepth() const {
    const int current = CurrentDisplayMode();
    if (current < 0) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    const std::string text = ListDisplayModes().at(static_cast<std::size_t>(current));
    std::string_view colours = text;
    colours.remove_prefix(colours.find(',') + 1);
    colours = colours.substr(0, colours.find(','));
    // Without the letter the whole text is no number.
    return base::toInt16(base::textToNumber(colours.substr(0, colours.find('b'))));
}

} // namespace tovik::vis
