// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TrackFields.h"

#include <array>
#include <string>

namespace tovik::window {

namespace {

/// The digit elements and the places of their characters in "mm:ss"; the colon between them stays.
constexpr std::array<std::uint16_t, 4> kDigits = {1, 2, 4, 5};

constexpr const char* kMono = "Mono";
constexpr const char* kStereo = "Stereo";

/// "01:02" of "1:02:03": there are four digits, and from an hour on they tell hours and minutes.
std::string firstTwoNumbers(const std::string& time) {
    constexpr std::size_t kTwoNumbers = 5;
    std::string digits = time.substr(0, time.find(':', time.find(':') + 1));
    digits.insert(0, digits.size() < kTwoNumbers ? kTwoNumbers - digits.size() : 0, '0');
    return digits.substr(digits.size() - kTwoNumbers);
}

Strip brightIf(bool bright) {
    return bright ? Strip::Bright : Strip::Dim;
}

} // namespace

void TrackFields::showFormat(const player::NowPlaying& playing) {
    fields_.show(places_.info, playing.infoText, Strip::Bright);
    fields_.show(places_.mono, kMono, brightIf(playing.mode == kMono));
    fields_.show(places_.stereo, kStereo, brightIf(playing.mode == kStereo));
}

void TrackFields::showTime(const player::NowPlaying& playing) {
    const std::string digits = firstTwoNumbers(playing.time);
    for (const std::uint16_t digit : kDigits) {
        showDigit(digit, digits.at(digit - 1U));
    }
}

void TrackFields::showDigit(std::uint16_t place, char digit) {
    ui::Element& element = elements_.touchAt({places_.timed.name, place});
    element.caption = digit;
    if (digit >= '0' && digit <= '9') {
        const auto number = static_cast<std::uint16_t>(digit - '0');
        element.picture = elements_.at(elements_.slotOf({places_.digits.name, number})).picture;
    }
}

void TrackFields::showVolume(const player::NowPlaying& playing) {
    fields_.show(places_.volume, playing.volumeText, Strip::Bright);
}

} // namespace tovik::window
