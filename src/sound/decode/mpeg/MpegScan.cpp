// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/mpeg/MpegScan.h"

#include <algorithm>

namespace tovik::sound::mpeg {
namespace {

constexpr int kFramesBetweenClockReadings = 64;

} // namespace

bool MpegScan::run(std::chrono::milliseconds slice) {
    const auto until = std::chrono::steady_clock::now() + slice;
    if (!done_ && !handle_) {
        handle_ = MpegHandle::open(store_);
        done_ = !handle_;
    }
    while (!done_) {
        for (int n = 0; n < kFramesBetweenClockReadings && !done_; ++n) {
            const int result = mpg123_framebyframe_next(handle_->get());
            done_ = result != MPG123_OK && result != MPG123_NEW_FORMAT;
        }
        if (done_) {
            // Behind the last frame stands what will have been given by then.
            length_ = std::max<std::int64_t>(mpg123_tell(handle_->get()), 0);
            handle_.reset();
        } else if (std::chrono::steady_clock::now() >= until) {
            return false;
        }
    }
    return true;
}

} // namespace tovik::sound::mpeg
