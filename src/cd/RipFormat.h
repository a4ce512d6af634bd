// SPDX-License-Identifier: GPL-3.0-or-later
// The formats of a rip, as the settings name them. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::cd {

/// Who writes the files: the first three letters of a type.
enum class RipBranch : std::uint8_t { mp3, ogg, wav, wma };

struct RipFormat {
    std::string_view type; ///< such as "MP3C": what the encoders' table is asked for
    RipBranch branch = RipBranch::wav;
    std::optional<std::size_t> rate; ///< where its bitrate stands in "DOB"
    std::string_view extension;      ///< of the files of a whole disc
};

/// What the text of "DOF" names, in any case of its letters; what begins with "WAV" or "WMA" is
/// that. Nothing for other texts.
[[nodiscard]] std::optional<RipFormat> ripFormat(std::string_view dof);

/// The element of "DOB", numbers between commas, counted from 0. Raises 9 where there are fewer,
/// 13 and 6 for one that is no number of 32 bits.
[[nodiscard]] std::int32_t ripRate(std::string_view dob, std::size_t element);

/// The extension of a track that is ripped alone: a dot and the first three letters of the type.
[[nodiscard]] std::string shortExtension(const RipFormat& format);

} // namespace tovik::cd
