// SPDX-License-Identifier: GPL-3.0-or-later
// Where the texts of a language go: a window takes them by the names of its elements, so that
// languages reach captions without knowing any window. Interface thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace tovik::config {

enum class TextKind : std::uint8_t {
    Caption,   ///< what an element, a menu entry or, without a name, the window itself bears
    Tooltip,   ///< what shows while the mouse rests on the element
    Text,      ///< what stands in a box for typing
    Tab,       ///< the caption of one tab; the index counts the tabs
    ListEntry, ///< one entry of a list; the index counts the entries
    Name,      ///< what a screen reader calls an element whose other texts do not say it
    Kept,      ///< not shown as it is: code asks for it
};

/// The index that stands for every element of a name.
inline constexpr int kEveryElement = -1;

class TextTargets {
public:
    virtual ~TextTargets() = default;

    /// Puts a text (bytes: valid UTF-8, or else Windows-1252) in its place. An element that the
    /// window does not have is passed over.
    virtual void setText(std::string_view element, int index, TextKind kind,
                         std::string_view text) = 0;
};

} // namespace tovik::config
