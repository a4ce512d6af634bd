// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/TocText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace tovik::discs {

namespace {

constexpr std::uint32_t kSumModulus = 255;
constexpr unsigned kSumShift = 24;
constexpr unsigned kLengthShift = 8;
constexpr std::uint32_t kLengthMask = 0xFFFF;
constexpr int kIdDigits = 8;
constexpr std::uint32_t kTen = 10;
constexpr auto kSectorsInSecond = static_cast<std::uint32_t>(sound::kSectorsPerSecond);

std::uint32_t digitSum(std::uint32_t number) {
    std::uint32_t sum = 0;
    for (; number > 0; number /= kTen) {
        sum += number % kTen;
    }
    return sum;
}

/// Takes the number in front, and the blank behind it.
std::optional<std::uint32_t> takeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || (rest != end && *rest != ' ')) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()) + (rest != end ? 1U : 0U));
    return number;
}

} // namespace

std::string tocText(const sound::DiscToc& toc) {
    std::string text = std::to_string(toc.tracks.size());
    for (const sound::DiscTrack& track : toc.tracks) {
        text += " " + std::to_string(track.firstSector + sound::kLeadInSectors);
    }
    text += " " + std::to_string((toc.leadOut + sound::kLeadInSectors) / sound::kSectorsPerSecond);
    return parseToc(text) ? text : std::string();
}

std::optional<TocNumbers> parseToc(std::string_view toc) {
    const auto count = takeNumber(toc);
    if (!count || *count == 0 || *count > kMostTracks) {
        return std::nullopt;
    }
    TocNumbers numbers;
    while (numbers.starts.size() < *count) {
        const auto start = takeNumber(toc);
        if (!start || (!numbers.starts.empty() && *start < numbers.starts.back())) {
            return std::nullopt;
        }
        numbers.starts.push_back(*start);
    }
    const auto seconds = takeNumber(toc);
    if (!seconds || !toc.empty() || *seconds < numbers.starts.back() / kSectorsInSecond) {
        return std::nullopt;
    }
    numbers.seconds = *seconds;
    return numbers;
}

std::string discId(std::string_view toc) {
    const auto numbers = parseToc(toc);
    if (!numbers) {
        return {};
    }
    std::uint32_t sum = 0;
    for (const std::uint32_t start : numbers->starts) {
        sum += digitSum(start / kSectorsInSecond);
    }
    const std::uint32_t length = numbers->seconds - numbers->starts.front() / kSectorsInSecond;
    const std::uint32_t id = (sum % kSumModulus) << kSumShift |
                             (length & kLengthMask) << kLengthShift |
                             static_cast<std::uint32_t>(numbers->starts.size());
    std::array<char, kIdDigits> digits{};
    constexpr int kBase = 16;
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), id, kBase).ptr - digits.data();
    const std::string text(digits.data(), static_cast<std::size_t>(written));
    return std::string(kIdDigits - text.size(), '0') + text;
}

} // namespace tovik::discs
