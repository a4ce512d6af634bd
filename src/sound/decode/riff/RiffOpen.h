// SPDX-License-Identifier: GPL-3.0-or-later
// Opens RIFF WAVE files. Any thread.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"

namespace tovik::sound::riff {

/// "Mine" are files of plain samples, of IMA and Microsoft ADPCM, and of MPEG audio.
[[nodiscard]] OpenResult openRiff(const std::shared_ptr<const ByteStore>& store);

} // namespace tovik::sound::riff
