// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the encoder programs. Any thread.
#pragma once

#include "tags/FreshTags.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::cd {

/// A command as a text, and what of it is run: no shell ever sees the text.
struct EncoderLine {
    std::string text{};                   ///< with the data folder and ".exe", the path in quotes
    std::string program{};                ///< "lame.exe": what `host::Programs` is asked for
    std::string package{};                ///< the Debian package that it comes with
    std::vector<std::string> arguments{}; ///< the last one is the path, whatever is in it
    int niceness = 0;                     ///< in the place of lame's "--priority"
};

/// The command of a type such as "MP3C"; nothing for one that no program encodes.
[[nodiscard]] std::optional<EncoderLine> encoderLine(std::string_view type, std::int32_t bitrate,
                                                     std::int32_t priority,
                                                     std::string_view dataFolder,
                                                     const std::string& path);

/// Has the program write these tags, where it is one that makes Ogg: UTF-8; what is empty is left
/// out.
void addTags(EncoderLine& line, const tags::FreshTags& tags);

} // namespace tovik::cd
