// SPDX-License-Identifier: GPL-3.0-or-later
// The queue is a second long and refilled by 400 ms, which costs player and server least. A change
// is written over what is queued, at its absolute place: the queue is never flushed, since frames
// counted from the stream's beginning would lose their meaning.
#include "sound/output/PulseNumbers.h"
#include "sound/output/PulseRoutines.h"
#include "sound/output/PulseStream.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <utility>

namespace tovik::sound {

namespace {

using pulse::framesIn;
using pulse::kFrameBytes;
using pulse::kQueue;
using pulse::kRequest;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::size_t kBlockBytes = MixSource::kAheadBlock * kFrameBytes;

/// What the source can take back ends somewhere: no server needs so much.
constexpr std::int64_t kMostQueued = framesIn(milliseconds(1300));

/// What the sink has taken out of the queue cannot be changed any more; that is known to this.
constexpr microseconds kSafety = milliseconds(10);
constexpr std::int64_t kLeastMargin = framesIn(milliseconds(20));
constexpr std::int64_t kMostMargin = framesIn(milliseconds(250));

/// Changes by many small steps, as of a dragged volume, are written together.
constexpr microseconds kBetweenChanges = milliseconds(20);

/// A server that works is heard of every 1.5 s at the latest.
constexpr microseconds kQuietLimit = milliseconds(2500);
constexpr microseconds kLastPatience = milliseconds(1000);

} // namespace

void PulseStream::resume() {
    if (failed_) {
        return;
    }
    ahead_.begin();
    pausing_ = false;
    ahead_.fill(static_cast<std::size_t>(framesIn(kQueue)), heardFrame());
    publish();
    lastSign_ = steady_clock::now();
    armWatch(kQuietLimit);
    if (!expect(pa_stream_cork(stream_, 0, nullptr, nullptr))) {
        fail();
    }
}

void PulseStream::pause() {
    if (failed_) {
        return;
    }
    pausing_ = true;
    if (!expect(pa_stream_cork(stream_, 1, PulseRoutines::success<&PulseStream::corked>, this))) {
        fail();
    }
}

void PulseStream::corked() {
    if (!expect(pa_stream_update_timing_info(
            stream_, PulseRoutines::success<&PulseStream::readIndexKnown>, this))) {
        fail();
    }
}

/// What the server has not read yet can be replaced without a trace.
void PulseStream::readIndexKnown() {
    if (!std::exchange(pausing_, false)) {
        return;
    }
    std::int64_t kept = heardFrame();
    const pa_timing_info* const timing = pa_stream_get_timing_info(stream_);
    if (timing != nullptr && timing->read_index_corrupt == 0) {
        const std::int64_t read = timing->read_index / static_cast<std::int64_t>(kFrameBytes);
        kept = std::clamp(read, kept, std::max(kept, ahead_.written()));
    }
    ahead_.end(kept);
    heard_.set({.clock = ahead_.clockAt(heardFrame()),
                .when = steady_clock::now(),
                .runs = false,
                .limit = ahead_.clockAt(ahead_.written())});
    listener_.streamPaused();
}

void PulseStream::requested(std::size_t bytes) {
    lastSign_ = steady_clock::now();
    if (!ahead_.running() || failed_) {
        return;
    }
    const std::int64_t heard = heardFrame();
    const auto most = std::max<std::int64_t>(0, heard + kMostQueued - ahead_.written());
    ahead_.fill(std::min(bytes / kFrameBytes, static_cast<std::size_t>(most)), heard);
    publish();
}

void PulseStream::timingUpdated() {
    lastSign_ = steady_clock::now();
    warned_ = false;
    if (ahead_.running()) {
        publish();
    }
}

void PulseStream::changed() {
    if (!ahead_.running() || changePending_) {
        return;
    }
    const auto due = lastChange_ + kBetweenChanges;
    const auto now = steady_clock::now();
    if (now >= due) {
        change();
        return;
    }
    const auto delay = std::chrono::duration_cast<microseconds>(due - now) + microseconds(1);
    const pa_usec_t when = pa_rtclock_now() + static_cast<pa_usec_t>(delay.count());
    changePending_ = true;
    if (changeTimer_ == nullptr) {
        changeTimer_ =
            pa_context_rttime_new(context_, when, PulseRoutines::timer<&PulseStream::change>, this);
    } else {
        pa_context_rttime_restart(context_, changeTimer_, when);
    }
}

void PulseStream::change() {
    changePending_ = false;
    lastChange_ = steady_clock::now();
    if (ahead_.running() && !failed_) {
        ahead_.change(heardFrame() + marginFrames());
        publish();
    }
}

std::int64_t PulseStream::heardFrame() const {
    pa_usec_t time = 0;
    if (pa_stream_get_time(stream_, &time) < 0) {
        const auto clock = heard_.at(steady_clock::now());
        return clock ? *clock - ahead_.clockAt(0) : 0;
    }
    return std::min(framesIn(microseconds(time)), ahead_.written());
}

std::int64_t PulseStream::marginFrames() const {
    const pa_timing_info* const timing = pa_stream_get_timing_info(stream_);
    const microseconds sink = timing != nullptr && timing->configured_sink_usec > 0
                                  ? microseconds(timing->configured_sink_usec)
                                  : (kQueue - 2 * kRequest) / 2;
    return std::clamp(framesIn(sink + kSafety), kLeastMargin, kMostMargin);
}

void PulseStream::publish() {
    const pa_timing_info* const timing = pa_stream_get_timing_info(stream_);
    heard_.set({.clock = ahead_.clockAt(heardFrame()),
                .when = steady_clock::now(),
                .runs = timing != nullptr && timing->playing != 0 && !failed_,
                .limit = ahead_.clockAt(ahead_.written())});
}

void PulseStream::armWatch(microseconds delay) {
    const pa_usec_t when = pa_rtclock_now() + static_cast<pa_usec_t>(delay.count());
    if (watch_ == nullptr) {
        watch_ = pa_context_rttime_new(context_, when,
                                       PulseRoutines::timer<&PulseStream::watchFired>, this);
    } else {
        pa_context_rttime_restart(context_, watch_, when);
    }
}

/// A server that was stopped reports nothing, not even that.
void PulseStream::watchFired() {
    if (!ahead_.running() || failed_) {
        return; // `resume` arms it again
    }
    const auto quiet = std::chrono::duration_cast<microseconds>(steady_clock::now() - lastSign_);
    if (quiet < kQuietLimit || pa_stream_is_suspended(stream_) > 0) {
        warned_ = false;
        armWatch(quiet < kQuietLimit ? kQuietLimit - quiet + microseconds(1) : kQuietLimit);
    } else if (!std::exchange(warned_, true)) {
        // Perhaps it was this process that stood still: the server gets a last chance.
        static_cast<void>(expect(pa_stream_update_timing_info(stream_, nullptr, nullptr)));
        armWatch(kLastPatience);
    } else {
        fail();
    }
}

std::span<float> PulseStream::room(std::size_t frames) noexcept {
    void* memory = nullptr;
    std::size_t bytes = frames * kFrameBytes;
    if (failed_ || pa_stream_begin_write(stream_, &memory, &bytes) < 0) {
        return {};
    }
    bytes = std::min(bytes, frames * kFrameBytes) / kBlockBytes * kBlockBytes;
    return {static_cast<float*>(memory), bytes / sizeof(float)};
}

void PulseStream::put(std::int64_t frame, std::span<const float> samples) noexcept {
    const bool onwards = frame == nextFrame_;
    pa_stream_write(stream_, samples.data(), samples.size_bytes(), nullptr,
                    onwards ? 0 : frame * static_cast<std::int64_t>(kFrameBytes),
                    onwards ? PA_SEEK_RELATIVE : PA_SEEK_ABSOLUTE);
    nextFrame_ = frame + static_cast<std::int64_t>(samples.size() / kMixChannels);
}

} // namespace tovik::sound
