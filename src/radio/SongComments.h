// SPDX-License-Identifier: GPL-3.0-or-later
// The comments of Vorbis, Opus and FLAC (xiph.org/vorbis/doc/v-comment.html). Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::radio {

/// "artist - title" of a block of comments, or what of it there is; empty for neither, and for a
/// block that is broken.
[[nodiscard]] std::string songInComments(std::string_view block);

/// A block with these two, UTF-8; an empty one is left out.
[[nodiscard]] std::string commentsOf(const std::string& artist, const std::string& title);

} // namespace tovik::radio
