// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipFormat.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tovik::cd {

namespace {

struct Row {
    std::string_view dof; ///< in capitals
    bool beginning;       ///< what follows it does not count
    RipFormat format;
};

constexpr std::array<Row, 6> kRows{{
    {"MP3 CBR", false, {"MP3C", RipBranch::mp3, 1, ".mp3"}},
    {"MP3 VBR", false, {"MP3V", RipBranch::mp3, 2, ".mp3"}},
    {"OGG VORBIS CBR", false, {"OGGC", RipBranch::ogg, 3, ".ogg"}},
    {"OGG VORBIS VBR", false, {"OGGV", RipBranch::ogg, 4, ".ogg"}},
    {"WAV", true, {"WAV", RipBranch::wav, std::nullopt, ".WAV"}},
    {"WMA", true, {"WMA", RipBranch::wma, 5, ".WMA"}},
}};

} // namespace

std::optional<RipFormat> ripFormat(std::string_view dof) {
    const std::string text = base::toUpperAscii(dof);
    const auto* const row = std::ranges::find_if(kRows, [&](const Row& candidate) {
        return candidate.beginning ? text.starts_with(candidate.dof) : text == candidate.dof;
    });
    return row == kRows.end() ? std::nullopt : std::optional(row->format);
}

std::int32_t ripRate(std::string_view dob, std::size_t element) {
    for (; element > 0; --element) {
        const std::size_t comma = dob.find(',');
        if (comma == std::string_view::npos) {
            throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
        }
        dob.remove_prefix(comma + 1);
    }
    return base::toInt32(base::textToNumber(dob.substr(0, dob.find(','))));
}

std::string shortExtension(const RipFormat& format) {
    constexpr std::size_t kLetters = 3;
    return "." + std::string(format.type.substr(0, kLetters));
}

} // namespace tovik::cd
