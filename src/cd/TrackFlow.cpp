// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/TrackFlow.h"

#include <chrono>
#include <optional>
#include <thread>
#include <vector>

namespace tovik::cd {

namespace {

/// A rest is short against what one sees, and long against what the loop itself takes.
constexpr std::chrono::milliseconds kRest{1};

/// How long a track behind a cancelled one is waited for.
constexpr std::int64_t kBlockPatienceMs = 2000;

/// How long a cancelled track may take to be finished: a disk that does not answer keeps nobody.
constexpr std::int64_t kCancelPatienceMs = 10'000;

} // namespace

TrackFlow::TrackFlow(const RipNeeds& needs)
    : needs_(needs), beganMs_(needs.host.clock.monotonicMs()),
      cancelledBefore_(needs.disc.CancelRip) {}

/// A deliberate oddity: the flag stays for the rest of the job, and no track looks at it before it
/// has moved something. So a user who cancels gets a file of one block of each track that follows.
bool TrackFlow::cancelled() const {
    const bool waits = cancelledBefore_ && moved_ == 0 &&
                       needs_.host.clock.monotonicMs() - beganMs_ < kBlockPatienceMs;
    return needs_.disc.CancelRip && !waits;
}

bool TrackFlow::run(const Job& job, const Sink& sink) {
    sound::SoundLibrary& sound = needs_.core.sound;
    std::vector<std::byte> buffer(job.block);
    const std::int64_t length = sound.BASS_StreamGetLength(job.channel);
    while (sound.BASS_ChannelIsActive(job.channel) != sound::Activity::stopped && !sink.failed()) {
        if (sink.takesMore()) {
            const std::int32_t got = sound.BASS_ChannelGetData(
                job.channel, buffer.data(), static_cast<std::uint32_t>(buffer.size()));
            if (got < 0) {
                break;
            }
            sink.take(std::span(buffer).first(static_cast<std::size_t>(got)));
            moved_ += got;
        } else {
            std::this_thread::sleep_for(kRest);
        }
        needs_.core.state.RippingNow = true;
        show(job);
        if (!needs_.host.pump.Step()) {
            return false;
        }
        stopped_ = cancelled();
        if (stopped_) {
            break;
        }
    }
    stopped_ = stopped_ && moved_ < length;
    brokenOff_ = !stopped_ && moved_ < length && !sink.failed();
    return true;
}

TrackFlow::Waited TrackFlow::waitFor(const std::function<bool()>& done) const {
    std::optional<std::int64_t> cancelledMs;
    while (!done()) {
        if (!needs_.host.pump.Step()) {
            return Waited::ending;
        }
        if (needs_.disc.CancelRip) {
            const std::int64_t now = needs_.host.clock.monotonicMs();
            if (now - cancelledMs.value_or(now) >= kCancelPatienceMs) {
                return Waited::givenUp;
            }
            cancelledMs = cancelledMs.value_or(now);
        }
        std::this_thread::sleep_for(kRest);
    }
    return Waited::done;
}

void TrackFlow::show(const Job& job) const {
    sound::SoundLibrary& sound = needs_.core.sound;
    needs_.progress.round(job.row, sound.BASS_ChannelGetPosition(job.channel),
                          sound.BASS_StreamGetLength(job.channel), needs_.words.progress(),
                          job.decimals);
}

} // namespace tovik::cd
