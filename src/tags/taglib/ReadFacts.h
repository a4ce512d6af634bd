// SPDX-License-Identifier: GPL-3.0-or-later
// The facts and pictures of a file by TagLib. Any thread.
#pragma once

#include "tags/FileFacts.h"
#include "tags/TagBytes.h"

#include <string>
#include <vector>

namespace tovik::tags::taglib {

/// What cannot be read, for whatever reason, is not known.
[[nodiscard]] FileFacts readFacts(TagBytes& bytes, const std::string& name);

/// Front cover first, then the others in their order.
[[nodiscard]] std::vector<std::string> readPictures(TagBytes& bytes, const std::string& name);

} // namespace tovik::tags::taglib
