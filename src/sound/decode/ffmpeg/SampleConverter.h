// SPDX-License-Identifier: GPL-3.0-or-later
// Turns decoded frames of any sample form into interleaved float in one or two channels. One thread
// at a time.
#pragma once

#include "sound/decode/ffmpeg/Handles.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tovik::sound::ffmpeg {

class SampleConverter {
public:
    /// Writes the samples of `frame` from `first` on as `channels` (1 or 2) interleaved channels,
    /// as many as `out` has room for. Whole numbers are divided by their full scale and floats
    /// kept, so 24 bits and less survive exactly; other channel counts are mixed as `Downmix` does.
    /// Silence if the form is unknown.
    void convert(const AVFrame& frame, std::size_t first, std::size_t channels,
                 std::span<float> out);

private:
    void mix(const AVFrame& frame, std::size_t first, std::size_t channels, std::span<float> out);

    std::vector<float> all_; ///< all channels of the frame
};

} // namespace tovik::sound::ffmpeg
