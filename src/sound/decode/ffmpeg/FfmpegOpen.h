// SPDX-License-Identifier: GPL-3.0-or-later
// Decides by content whether a file is of a family that FFmpeg reads for us, and opens it. Any
// thread.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"

namespace tovik::sound::ffmpeg {

/// Any thread. `family` is any but music, which is never "mine" here.
[[nodiscard]] OpenResult openFfmpeg(FormatFamily family, std::shared_ptr<const ByteStore> store);

} // namespace tovik::sound::ffmpeg
