// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a file by what it holds, and the words of its tags. Any thread.
#pragma once

#include "tags/taglib/TagStream.h"

#include <taglib/fileref.h>
#include <taglib/tstring.h>

#include <string>

namespace tovik::tags::taglib {

/// No word goes to the terminal, and single-byte texts are read as the rest of the program does.
/// To be called before anything else of the library; more than once does no harm.
void quiet();

/// The file, by its content, or, where that does not tell, by the ending of its name. Null where no
/// reader takes it. `nameless` has no name; both streams outlive it.
[[nodiscard]] TagLib::FileRef openTagged(TagStream& nameless, TagStream& named);

/// A text in UTF-8, whole.
[[nodiscard]] std::string textOf(const TagLib::String& text);

/// The same on one line, as a fact; see `FileFacts`.
[[nodiscard]] std::string factOf(const TagLib::String& text);

} // namespace tovik::tags::taglib
