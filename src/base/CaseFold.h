// SPDX-License-Identifier: GPL-3.0-or-later
// Texts without the difference between capital and small letters. Any thread.
// The table follows the simple case folding that the Unicode standard publishes, for the Latin,
// Greek, Cyrillic and Armenian letters.
#pragma once

#include <string>
#include <string_view>

namespace tovik::base {

/// Appends what people see of any bytes (`displayText`), in UTF-8, its letters small. Two texts are
/// equal but for case when their folded forms are equal; a text holds another one but for case when
/// its folded form holds the other's.
void appendFolded(std::string& to, std::string_view bytes);

/// The same without accents: letters by their base letters, marks left out.
void appendPlain(std::string& to, std::string_view bytes);

/// The same as a text of its own.
[[nodiscard]] std::string foldedText(std::string_view bytes);

} // namespace tovik::base
