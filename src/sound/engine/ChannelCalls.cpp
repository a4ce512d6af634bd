// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/ChannelCalls.h"

#include "sound/engine/Heard.h"
#include "sound/mix/ToPcm16.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>

namespace tovik::sound {

namespace {

constexpr int kKeep = -1;
constexpr int kKeepPan = -101;

/// How long a reading from a disc is waited for: short enough for a window to answer.
constexpr std::chrono::milliseconds kRipPatience(20);

bool isVolume(int volume) {
    return volume == kKeep || (volume >= 0 && volume <= 100);
}

bool isPan(int pan) {
    return pan >= kKeepPan && pan <= 100;
}

std::int32_t slideFrames(std::uint32_t milliseconds) {
    constexpr std::int64_t kMostFrames = INT32_MAX;
    const std::int64_t frames = std::int64_t{milliseconds} * kMixRate / 1000;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(frames, kRampFrames, kMostFrames));
}

int percent(float share) {
    return static_cast<int>(std::lround(share * 100.0F));
}

} // namespace

Channel* ChannelCalls::living(Handle handle) {
    Channel* channel = core_.channels().find(handle);
    if (channel == nullptr) {
        core_.fail(ErrorCode::invalidHandle);
    } else {
        core_.succeed();
    }
    return channel;
}

std::int64_t ChannelCalls::BASS_ChannelGetPosition(Handle handle) {
    const Channel* channel = living(handle);
    return channel != nullptr ? channel->bytesFromFrames(core_.heardFrame(*channel)) : 0;
}

bool ChannelCalls::BASS_ChannelSetPosition(Handle handle, std::int64_t bytes) {
    Channel* channel = living(handle);
    if (channel == nullptr) {
        return false;
    }
    if (channel->net != nullptr || channel->rip != nullptr) {
        return core_.fail(ErrorCode::notAvailable);
    }
    const std::int64_t length = channel->lengthFrames(core_.heardFrame(*channel));
    if (bytes < 0 || bytes > channel->bytesFromFrames(length)) {
        return core_.fail(ErrorCode::invalidPosition);
    }
    core_.seek(*channel, channel->framesFromBytes(bytes));
    return core_.succeed();
}

double ChannelCalls::BASS_ChannelBytes2Seconds(Handle handle, std::int64_t bytes) {
    const Channel* channel = living(handle);
    if (channel == nullptr || bytes < 0) {
        return 0;
    }
    return static_cast<double>(channel->framesFromBytes(bytes)) / channel->source()->sampleRate();
}

std::int64_t ChannelCalls::BASS_ChannelSeconds2Bytes(Handle handle, double seconds) {
    const Channel* channel = living(handle);
    // Beyond 2^62 bytes nothing is a position any more, and the conversion would not hold.
    constexpr double kMostSeconds = 1e12;
    if (channel == nullptr) {
        return 0;
    }
    if (!(seconds >= 0) || seconds > kMostSeconds) {
        return -1;
    }
    return channel->bytesFromFrames(std::llround(seconds * channel->source()->sampleRate()));
}

bool ChannelCalls::BASS_ChannelGetAttributes(Handle handle, int& frequency, int& volume, int& pan) {
    const Channel* channel = living(handle);
    if (channel == nullptr) {
        return false;
    }
    frequency = channel->source()->sampleRate();
    volume = channel->volume.target;
    pan = channel->pan.target;
    if (channel->volume.sliding || channel->pan.sliding) {
        const Voice& voice = *channel->voice();
        const std::int64_t clock = core_.heardClock();
        const auto block = voice.heard(clock);
        const bool sounds = block && clock < block->clock + block->frames;
        if (channel->volume.sliding) {
            volume = percent(sounds ? block->volume : voice.volume());
        }
        if (channel->pan.sliding) {
            pan = percent(sounds ? block->pan : voice.pan());
        }
    }
    return true;
}

bool ChannelCalls::slide(Handle handle, int frequency, int volume, int pan, std::int32_t frames) {
    Channel* channel = living(handle);
    if (channel == nullptr) {
        return false;
    }
    if (channel->isDecoding()) {
        return core_.fail(ErrorCode::decodingChannel);
    }
    if (frequency != kKeep && frequency != channel->source()->sampleRate()) {
        return core_.fail(ErrorCode::illegalRate);
    }
    if (!isVolume(volume) || !isPan(pan)) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    Voice* voice = channel->voice();
    const bool sliding = frames > kRampFrames;
    if (volume != kKeep) {
        channel->volume = {volume, sliding};
        core_.post(command::SetVolume{voice, static_cast<float>(volume) / 100.0F, frames});
    }
    if (pan != kKeepPan) {
        channel->pan = {pan, sliding};
        core_.post(command::SetPan{voice, static_cast<float>(pan) / 100.0F, frames});
    }
    return core_.succeed();
}

bool ChannelCalls::BASS_ChannelSetAttributes(Handle handle, int frequency, int volume, int pan) {
    return slide(handle, frequency, volume, pan, kRampFrames);
}

bool ChannelCalls::BASS_ChannelSlideAttributes(Handle handle, int frequency, int volume, int pan,
                                               std::uint32_t milliseconds) {
    return slide(handle, frequency, volume, pan, slideFrames(milliseconds));
}

void ChannelCalls::crossfade(Handle in, Handle out, std::uint32_t milliseconds) {
    const auto blend = [&](Handle handle, bool rises) {
        const Channel* channel = core_.channels().find(handle);
        if (channel != nullptr && channel->voice() != nullptr) {
            core_.post(command::Blend{channel->voice(), rises, slideFrames(milliseconds)});
        }
    };
    blend(in, true);
    blend(out, false);
}

bool ChannelCalls::BASS_ChannelGetInfo(Handle handle, BASS_CHANNELINFO& info) {
    const Channel* channel = living(handle);
    if (channel == nullptr) {
        return false;
    }
    info.freq = static_cast<std::uint32_t>(channel->source()->sampleRate());
    info.chans = static_cast<std::uint32_t>(channel->source()->channels());
    info.flags = channel->flags();
    return true;
}

std::int32_t ChannelCalls::BASS_ChannelGetLevel(Handle handle) {
    const Channel* channel = living(handle);
    if (channel == nullptr) {
        return -1;
    }
    if (channel->isDecoding()) {
        core_.fail(ErrorCode::decodingChannel);
        return -1;
    }
    if (core_.paused()) {
        core_.fail(ErrorCode::notPlaying);
        return -1;
    }
    const std::int64_t clock = core_.heardClock();
    if (channel->ended(clock) || !channel->started) {
        return 0;
    }
    const auto block = channel->voice()->heard(clock);
    return block ? static_cast<std::int32_t>(block->level) : 0;
}

std::size_t ChannelCalls::decodeSamples(Channel& channel, std::span<std::int16_t> samples) {
    if (channel.rip != nullptr) {
        return channel.rip->take(std::as_writable_bytes(samples), kRipPatience) /
               sizeof(std::int16_t);
    }
    const auto channels = static_cast<std::size_t>(channel.source()->channels());
    scratch_.resize(samples.size() / channels * channels);
    const std::size_t count = channel.source()->read(scratch_) * channels;
    toPcm16(std::span<const float>(scratch_).first(count), samples.first(count));
    return count;
}

std::int32_t ChannelCalls::readSamples(Channel& channel, std::span<std::int16_t> samples) {
    const std::size_t count = decodeSamples(channel, samples);
    if (channel.encoder != nullptr && count > 0) {
        channel.encoder->feed(std::as_bytes(samples.first(count)));
    }
    return static_cast<std::int32_t>(count * sizeof(std::int16_t));
}

std::int32_t ChannelCalls::readSpectrum(Channel& channel,
                                        std::span<float, Spectrum::kBins> magnitudes) {
    if (!spectrum_) {
        spectrum_.emplace();
    }
    std::array<SpectrumTap::Frame, Spectrum::kSamples> frames{};
    lookAtHeard(core_, channel, frames);
    std::array<float, Spectrum::kSamples> samples{};
    std::ranges::transform(frames, samples.begin(), meanOf);
    spectrum_->measure(samples, magnitudes);
    return static_cast<std::int32_t>(magnitudes.size_bytes());
}

std::int32_t ChannelCalls::BASS_ChannelGetData(Handle handle, void* buffer, std::uint32_t length) {
    Channel* channel = living(handle);
    if (channel == nullptr) {
        return -1;
    }
    if (buffer == nullptr) {
        core_.fail(ErrorCode::illegalParameter);
        return -1;
    }
    if (channel->isDecoding() && length <= INT32_MAX) {
        return readSamples(*channel,
                           {static_cast<std::int16_t*>(buffer), length / sizeof(std::int16_t)});
    }
    if (!channel->isDecoding() && length == BASS_DATA_FFT512) {
        return readSpectrum(*channel, std::span<float, Spectrum::kBins>(static_cast<float*>(buffer),
                                                                        Spectrum::kBins));
    }
    core_.fail(ErrorCode::notAvailable);
    return -1;
}

Activity ChannelCalls::BASS_ChannelIsActive(Handle handle) {
    const Channel* channel = living(handle);
    const std::int64_t clock = core_.heardClock();
    if (channel == nullptr || channel->ended(clock)) {
        return Activity::stopped;
    }
    if (channel->isDecoding()) {
        return Activity::playing;
    }
    if (!channel->started) {
        return Activity::stopped;
    }
    if (core_.paused()) {
        return Activity::paused;
    }
    const auto block = channel->voice()->heard(clock);
    return block && block->starved ? Activity::stalled : Activity::playing;
}

bool ChannelCalls::BASS_ChannelStop(Handle handle) {
    Channel* channel = living(handle);
    if (channel == nullptr) {
        return false;
    }
    if ((channel->flags() & BASS_STREAM_AUTOFREE) != 0) {
        core_.kill(handle);
    } else {
        core_.stop(*channel);
    }
    return core_.succeed();
}

bool ChannelCalls::playBehind(Handle next, Handle before) {
    const Channel* first = living(before);
    Channel* second = first != nullptr ? living(next) : nullptr;
    if (second == nullptr) {
        return false;
    }
    if (first->isDecoding() || second->isDecoding()) {
        return core_.fail(ErrorCode::decodingChannel);
    }
    if (!first->started || second->started) {
        return core_.fail(ErrorCode::notAvailable);
    }
    core_.startBehind(*second, *first);
    return core_.succeed();
}

Handle ChannelCalls::BASS_ChannelSetSync(Handle handle, std::uint32_t /*type*/,
                                         std::int64_t /*parameter*/, SyncRoutine /*routine*/,
                                         std::uintptr_t /*user*/) {
    return living(handle) != nullptr ? core_.channels().newHandle() : kNoHandle;
}

} // namespace tovik::sound
