// SPDX-License-Identifier: GPL-3.0-or-later
// What the module with TagLib hands over. Nothing in it throws. Any thread, one a file.
#pragma once

#include "tags/EditTags.h"
#include "tags/FileFacts.h"
#include "tags/TagBytes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tovik::tags {

/// The record that the module shows under the name `kTagSymbol`.
struct TagModule {
    std::uint32_t version; ///< kTagVersion of when it was built

    FileFacts (*facts)(TagBytes& bytes, const std::string& name);

    /// Pictures as they lie in the file, the best one first.
    std::vector<std::string> (*pictures)(TagBytes& bytes, const std::string& name);

    /// The ID3v2 tag of MPEG audio.
    EditTag (*readId3v2)(TagBytes& bytes);

    /// The tag of a file that is no MPEG audio.
    EditTags (*readOther)(TagBytes& bytes, const std::string& name);

    /// Changes that; false where it cannot be done.
    bool (*changeOther)(TagBytes& bytes, const std::string& name, const TagChange& change);
};

inline constexpr std::uint32_t kTagVersion = 2;
inline constexpr const char* kTagSymbol = "tovikTags";
inline constexpr const char* kTagFile = "tovik-tags.so";

/// The module, which the first call loads; null where there is none.
[[nodiscard]] const TagModule* tagModule();

} // namespace tovik::tags
