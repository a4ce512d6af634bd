// SPDX-License-Identifier: GPL-3.0-or-later
// The 128 bytes of an ID3v1 tag at the end of a file, edited field by field. Any thread.
#pragma once

#include "tags/EditTags.h"
#include "tags/TagBytes.h"

namespace tovik::tags {

/// Texts up to a zero byte, without blanks at their ends. The genre is a number.
[[nodiscard]] EditTag readVersion1(TagBytes& bytes);

/// Changes the fields that are to change, appends a tag, or cuts one off. What has no place is cut;
/// a genre is a number.
void changeVersion1(TagBytes& bytes, const TagChange& change);

} // namespace tovik::tags
