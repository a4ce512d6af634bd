// SPDX-License-Identifier: GPL-3.0-or-later
// What a station says in words: its name, the title of the song, and the name of the file that the
// song is saved under. Texts are bytes, as the server sent them. Pure; any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovik::radio {

enum class TitleAnswer {
    none,   ///< it does not begin with "StreamTitle='"
    title,  ///< there is a title, which may be empty
    broken, ///< no end of the title is found
};

struct StreamTitle {
    TitleAnswer answer = TitleAnswer::none;
    std::string_view title{};
};

/// The title in a metadata string, which ends at its first NUL. The title reaches to two characters
/// before the first ";": a deliberate oddity, for a title that holds one is cut there and loses the
/// character before it, too. `whole`: it reaches to the first "';".
[[nodiscard]] StreamTitle streamTitle(std::string_view metadata, bool whole = false) noexcept;

/// The same as people see it: in UTF-8, with characters for references such as "&amp;" and
/// "&#1046;", whose ";" ends no title. Nothing where there is no title.
[[nodiscard]] std::optional<std::string> shownTitle(std::string_view metadata, bool whole = false);

/// The name that a station gives itself in its headers (see `BASS_TAG_ICY`): what stands behind
/// "icy-name:", spelled so, of the last such header. Nothing without one.
[[nodiscard]] std::optional<std::string_view> stationName(std::string_view headers) noexcept;

/// The text without the characters that no file name may hold everywhere: :/\?*|<>" - nothing else
/// is changed.
[[nodiscard]] std::string CleanName(std::string_view text);

/// The name of a song's file, without a folder: at most 255 bytes with its extension, in UTF-8,
/// never half a character. Nothing in it leads out of a folder.
[[nodiscard]] std::string songFileName(std::string_view title);

/// What people see of a text: UTF-8, or else Windows-1252, without control characters and the
/// blanks around it.
[[nodiscard]] std::string shownText(std::string_view text);

/// The same of a text of a server, which may have references for characters.
[[nodiscard]] std::string shownServerText(std::string_view text);

} // namespace tovik::radio
