// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a file by what it holds, and the words of its tags. Any thread.
#pragma once

#include "tags/taglib/TagStream.h"

#include <taglib/fileref.h>
#include <taglib/tstring.h>

#include <cstdint>
#include <string>

namespace tovik::tags::taglib {

/// No word goes to the terminal, and single-byte texts are read as the rest of the program does.
/// To be called before anything else of the library; more than once does no harm.
void quiet();

/// A file, opened by its content, or, where that does not tell, by the ending of its name.
class OpenTagged {
public:
    /// Calls `quiet`. The bytes outlive it; no more than `mostBytes` of them are read.
    OpenTagged(TagBytes& bytes, const std::string& name, std::int64_t mostBytes, bool readOnly);

    /// Null where no reader takes it.
    [[nodiscard]] TagLib::FileRef& file() noexcept { return file_; }

    /// Not all was read that should have been.
    [[nodiscard]] bool exhausted() const noexcept {
        return nameless_.exhausted() || named_.exhausted();
    }

private:
    TagStream nameless_;
    TagStream named_;
    TagLib::FileRef file_;
};

/// A text in UTF-8, whole.
[[nodiscard]] std::string textOf(const TagLib::String& text);

/// The same on one line, as a fact; see `FileFacts`.
[[nodiscard]] std::string factOf(const TagLib::String& text);

} // namespace tovik::tags::taglib
