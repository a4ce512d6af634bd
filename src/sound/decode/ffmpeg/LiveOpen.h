// SPDX-License-Identifier: GPL-3.0-or-later
// Opens and decodes what comes in from a station. Any thread.
#pragma once

#include "sound/decode/LiveSound.h"

namespace tovik::sound::ffmpeg {

/// See openLiveSound.
[[nodiscard]] std::unique_ptr<LiveSound> openLive(std::shared_ptr<LiveBytes> bytes,
                                                  std::string_view contentType);

} // namespace tovik::sound::ffmpeg
