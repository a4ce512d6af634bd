// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/TimeLine.h"

namespace tovik::sound::ffmpeg {

std::int64_t TimeLine::frameAt(std::int64_t pts, std::int64_t otherwise) const noexcept {
    if (pts == AV_NOPTS_VALUE) {
        return otherwise;
    }
    const std::int64_t frame = av_rescale_q(av_sat_sub64(pts, base_), timeBase_, {1, rate_});
    return frame == INT64_MIN ? otherwise : frame; // the library's answer to an overflow
}

std::int64_t TimeLine::ptsOf(std::int64_t frame) const noexcept {
    return av_sat_add64(base_, av_rescale_q(frame, {1, rate_}, timeBase_));
}

void TimeLine::shift(std::int64_t from, std::int64_t to) noexcept {
    base_ = av_sat_add64(base_, av_rescale_q(av_sat_sub64(from, to), {1, rate_}, timeBase_));
}

} // namespace tovik::sound::ffmpeg
