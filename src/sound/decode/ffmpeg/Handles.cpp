// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/Handles.h"

extern "C" {
#include <libavutil/log.h>
}

namespace tovik::sound::ffmpeg {

void silenceLog() noexcept {
    av_log_set_level(AV_LOG_QUIET);
}

} // namespace tovik::sound::ffmpeg
