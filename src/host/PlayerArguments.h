// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the command line that are meant for the player: switches, files and addresses.
// Pure: looks at no file. Any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::host {

/// Stands for a double quote inside a name while the name travels in the command-line text, where
/// double quotes enclose names.
inline constexpr char kQuoteStandIn = '\x1F';

struct PlayerArguments {
    /// The command-line text as the player takes it apart: `/Play "/music/a b.mp3"`.
    std::string text;
    /// The files and addresses alone, in order, as they are.
    std::vector<std::string> files;
};

/// The words "/Play", "/ADD" and "/Open" (in any case) are switches and stand as they are. An
/// address of a file on this machine becomes its path, any other address stays; everything else
/// is a file name and becomes absolute. Empty words are dropped.
[[nodiscard]] PlayerArguments playerArguments(std::span<const std::string_view> words,
                                              std::string_view workingFolder);

/// A name taken out of the command-line text, with its double quotes back in place.
[[nodiscard]] std::string withQuotes(std::string_view name);

} // namespace tovik::host
