// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/flac/FlacScan.h"

namespace tovik::sound::flac {

void FlacScan::begin() {
    stream_ = FlacStream::open(store_, inOgg_);
    if (!stream_) {
        done_ = true;
        return;
    }
    const std::int64_t told = stream_->info().frames;
    if (told <= 0 || !stream_->seek(told - 1)) {
        stream_->rewind(); // the head told nothing, or too much
    }
    length_ = stream_->block().end();
}

bool FlacScan::run(std::chrono::milliseconds slice) {
    const auto until = std::chrono::steady_clock::now() + slice;
    if (!done_ && !stream_) {
        begin();
    }
    while (!done_) {
        done_ = !stream_->next();
        length_ = stream_->block().end();
        if (done_) {
            stream_.reset();
        } else if (std::chrono::steady_clock::now() >= until) {
            return false;
        }
    }
    return true;
}

} // namespace tovik::sound::flac
