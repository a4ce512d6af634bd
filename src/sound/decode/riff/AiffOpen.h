// SPDX-License-Identifier: GPL-3.0-or-later
// Opens AIFF and AIFF-C files of plain samples (Apple, "Audio Interchange File Format: AIFF", 1989,
// and "AIFF-C", 1991), the older kin of RIFF WAVE. Any thread.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"

namespace tovik::sound::riff {

[[nodiscard]] bool isAiff(const ByteStore& store);

/// "Mine" are files whose samples are whole numbers or floats.
[[nodiscard]] OpenResult openAiff(const std::shared_ptr<const ByteStore>& store);

} // namespace tovik::sound::riff
