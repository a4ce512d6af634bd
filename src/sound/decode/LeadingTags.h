// SPDX-License-Identifier: GPL-3.0-or-later
// The tags that stand in front of the sound of a file. Any thread.
#pragma once

#include "sound/decode/ByteStore.h"

#include <cstdint>

namespace tovik::sound {

/// Bytes of the ID3v2 tags at the beginning; 0 without one. May lie beyond the end of the store.
[[nodiscard]] std::int64_t leadingTagBytes(const ByteStore& store);

} // namespace tovik::sound
