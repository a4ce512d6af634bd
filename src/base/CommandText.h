// SPDX-License-Identifier: GPL-3.0-or-later
// Taking the command-line text apart. Pure; any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovik::base {

/// The pieces of the command line that the program was started with; piece 1 is the file to play.
/// A text with a double quote is split at double quotes, so piece 1 is what stands between the
/// first pair and no switch in front of it is looked at. Any other text is split at "/", and piece
/// 1 is then the whole text. There are always at least two pieces.
[[nodiscard]] std::vector<std::string> commandArguments(std::string_view commandLine);

/// A command line whose switches count.
struct CommandWords {
    bool adds = false; ///< "/ADD" stands in it, in any case of letters: nothing is started
    std::vector<std::string> files{};

    friend bool operator==(const CommandWords&, const CommandWords&) = default;
};

/// What stands between pairs of double quotes are the files, what stands outside of them are
/// switches. A text without a double quote is one file, unless it is a switch.
[[nodiscard]] CommandWords commandWords(std::string_view commandLine);

/// What a second instance hands over to the running one: piece 1 of the text, split at double
/// quotes, or at "/" where there is none. A text without either is all switch: empty.
[[nodiscard]] std::string handedOverPath(std::string_view commandLine);

} // namespace tovik::base
