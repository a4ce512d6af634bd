// SPDX-License-Identifier: GPL-3.0-or-later
// Which frames of an ID3v2 tag do not outlive a save, by their own standards: version 2 by
// id3.org/id3v2-00, version 3 by id3v2.3.0, version 4 by id3v2.4.0-structure. Any thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovik::tags {

/// The ids of the frames that a save as it is would write otherwise than they are, each once, in
/// their order. Only a tag at the start of the file counts. With `genre` (0 to 255) the editor's
/// fields are set in it: then a plain comment is kept, and so is a genre that is this one.
[[nodiscard]] std::vector<std::string> lostFrames(const std::string& path,
                                                  std::optional<int> genre);

} // namespace tovik::tags
