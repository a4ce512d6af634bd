// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the tags of all formats for an editor, and writing those that are no ID3, by TagLib. Any
// thread.
#pragma once

#include "tags/EditTags.h"
#include "tags/TagBytes.h"

#include <string>

namespace tovik::tags::taglib {

/// The ID3v2 tag of MPEG audio, whatever its version.
[[nodiscard]] EditTag readId3v2(TagBytes& bytes);

/// The tag of a file of another kind; `TagKind::none` where it is not known here.
[[nodiscard]] EditTags readOther(TagBytes& bytes, const std::string& name);

/// Changes the tag of such a file. False, and what was changed is worth nothing, where that fails.
[[nodiscard]] bool changeOther(TagBytes& bytes, const std::string& name, const TagChange& change);

} // namespace tovik::tags::taglib
