// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of a package, by their names. Any thread.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace tovik::skin {

/// How a picture's name is written, and its stream (`Huffman.h`).
struct PackedPicture {
    std::string_view fileName;
    std::string_view payload;
};

using PackedPictures = std::map<std::string, PackedPicture>; ///< by the name in lower case

/// Those in the bytes of a package, which must outlive the answer; none in bytes without the
/// signature of one. Raises what reading a package raises.
[[nodiscard]] PackedPictures picturesOf(std::string_view bytes);

} // namespace tovik::skin
