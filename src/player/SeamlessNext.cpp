// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/SeamlessNext.h"

#include "base/Url.h"

#include <utility>

namespace tovik::player {

namespace {

/// The legs of a crossfade: they name the channels here, too.
constexpr std::int16_t kSecondaryLeg = 1;
constexpr std::int16_t kPrimaryLeg = 2;

} // namespace

std::int16_t SeamlessNext::freeLeg() const {
    return core_.state.ActiveChannel == ChannelSlot::primary ? kSecondaryLeg : kPrimaryLeg;
}

sound::Handle& SeamlessNext::channelOf(std::int16_t leg) const {
    return leg == kSecondaryLeg ? core_.state.SecondaryChannel : core_.state.PrimaryChannel;
}

void SeamlessNext::makeCurrent(std::int16_t leg) const {
    core_.state.CrossfadeLeg = leg;
    core_.state.ActiveChannel =
        leg == kSecondaryLeg ? ChannelSlot::secondary : ChannelSlot::primary;
}

/// Whoever starts, stops or frees a channel does so by the record of both, and knows nothing of
/// what waits on one of them.
bool SeamlessNext::stillWaits() const {
    return waiting_ && waiting_->before == core_.state.active() &&
           waiting_->channel != sound::kNoHandle && waiting_->channel == channelOf(freeLeg());
}

SeamlessNext::Waiting SeamlessNext::open(const TrackRef& track) {
    const base::Comfort& comfort = core_.state.comfort;
    Waiting waiting{.track = track,
                    .channel = sound::kNoHandle,
                    .before = core_.state.active(),
                    .ofDisc = false};
    if (!namesCdTrack(track.path)) {
        waiting.channel = opener_.openAhead(track.path, comfort);
        return waiting;
    }
    waiting.channel = opener_.open(track.path, comfort); // there is no such file, as a rule
    if (waiting.channel == sound::kNoHandle) {
        if (const auto number = cdTrackOf(track.path)) {
            waiting.channel = opener_.openCdTrack(*number);
            waiting.ofDisc = true;
        }
    }
    return waiting;
}

/// Volume, balance and bands go to the current channel: this one is it meanwhile.
void SeamlessNext::setUp(sound::Handle channel, std::int16_t leg) {
    PlayerState& state = core_.state;
    const std::int16_t formerLeg = state.CrossfadeLeg;
    const ChannelSlot formerSlot = state.ActiveChannel;
    makeCurrent(leg);
    starter_.setUp(channel);
    state.CrossfadeLeg = formerLeg;
    state.ActiveChannel = formerSlot;
}

void SeamlessNext::prepare(const TrackRef& track) {
    config::guard(core_.errors, config::player("Next_track"), [&] {
        const sound::Handle before = core_.state.active();
        if (waiting_ && waiting_->before == before && waiting_->track.row == track.row &&
            waiting_->track.path == track.path &&
            (stillWaits() || waiting_->channel == sound::kNoHandle)) {
            return;
        }
        drop();
        if (before == sound::kNoHandle || base::isWebUrl(track.path)) {
            return;
        }
        const std::int16_t leg = freeLeg();
        sound::Handle& channel = channelOf(leg);
        if (sounds(channel)) {
            return; // a track still fades out on it, and is freed when that is over
        }
        opener_.free(channel);
        waiting_ = open(track);
        channel = waiting_->channel;
        if (channel == sound::kNoHandle) {
            return;
        }
        setUp(channel, leg);
        if (!core_.sound.playBehind(channel, before)) {
            drop();
        }
    });
}

void SeamlessNext::drop() {
    if (stillWaits()) {
        opener_.free(waiting_->channel);
    }
    waiting_.reset();
}

bool SeamlessNext::sounds(sound::Handle channel) const {
    return core_.sound.BASS_ChannelIsActive(channel) != sound::Activity::stopped;
}

/// One that still waits for its disk sounds when somebody starts it the usual way.
bool SeamlessNext::followed() const {
    const sound::Handle channel = waiting_->channel;
    return sounds(channel) &&
           (waiting_->ofDisc ||
            core_.sound.BASS_ChannelIsActive(channel) != sound::Activity::stalled ||
            core_.sound.BASS_ChannelGetPosition(channel) > 0);
}

std::optional<TrackRef> SeamlessNext::takeOver() {
    if (!stillWaits() || !followed()) {
        drop();
        return std::nullopt;
    }
    PlayerState& state = core_.state;
    const Waiting next = *std::exchange(waiting_, std::nullopt);
    core_.lists.stdSS.SelectIndex(next.track.row);
    facts_.takeOverFields();
    opener_.free(next.before);
    makeCurrent(freeLeg());
    ++state.TracksStarted;
    state.SilenceTicks = 0;
    state.IsWmaStream = core_.sound.BASS_WMA_GetIWMReader(next.channel) > 0;
    core_.news.restartVisualisation();
    if (next.ofDisc) {
        facts_.showNothingKnown(next.track);
    } else {
        facts_.show(next.channel, next.track, {});
    }
    return next.track;
}

} // namespace tovik::player
