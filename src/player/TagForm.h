// SPDX-License-Identifier: GPL-3.0-or-later
// What the tag editor's pages hold. Interface thread.
#pragma once

#include "tags/TagField.h"

#include <array>
#include <cstdint>
#include <string>

namespace tovik::player {

/// The entry behind the list of genres, where the second tag has one of its own.
inline constexpr std::int32_t kForeignGenre = 149;

/// Entry 0 of a list of genres is empty, the others are the numbers from 0 to 147.
struct TagForm {
    std::string Text1{}; ///< the file's path

    bool Check1 = false;                   ///< tag version 1 is there, and to be kept
    std::array<tags::TagField, 5> Text2{}; ///< title, artist, album, year, comment
    tags::TagField Text5{};                ///< track
    std::int32_t genre = 0;

    bool Check2 = false; ///< tag version 2 is there, and to be kept
    /// Title, artist, year, comment, composer, original artist, copyright, artist URL, encoded by,
    /// album.
    std::array<tags::TagField, 10> Text4{};
    tags::TagField Text3{}; ///< track
    std::int32_t Genre2 = 0;
    bool albumEnabled = false; ///< the last of `Text4`; the others go by `Check2`

    bool mayWrite = false;        ///< the file can be edited: save and copy are enabled
    bool editsVersion1 = true;    ///< there are two tags, else the second alone
    std::string tagName{"ID3v2"}; ///< of the second
    std::string foreignGenre{};   ///< of the second, by `kForeignGenre`
};

/// The words of the technical page; where a label holds "[x]" it is the template of its value.
struct TagWords {
    std::string sizeTemplate{};
    std::string yes{};
    std::string no{};
    std::array<std::string, 11> labels{};
};

} // namespace tovik::player
