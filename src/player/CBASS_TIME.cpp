// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/CBASS_TIME.h"

#include "base/Numbers.h"
#include "base/TimeText.h"

#include <algorithm>
#include <cmath>

namespace tovik::player {

namespace {

constexpr std::uint32_t kMostChannels = 2;
constexpr std::int32_t kBytesPerSample = 2;

} // namespace

std::string CBASS_TIME::GetTime(std::int32_t seconds) {
    return base::GetTime(seconds);
}

std::int32_t CBASS_TIME::GetSeconds(std::string_view time) {
    return base::GetSeconds(time);
}

std::int32_t CBASS_TIME::wholeSeconds(sound::Handle channel, std::int64_t bytes) const {
    return base::toInt32(sound_.BASS_ChannelBytes2Seconds(channel, bytes));
}

std::int16_t CBASS_TIME::GetPlayingPos(sound::Handle channel) const {
    const std::int64_t position = sound_.BASS_ChannelGetPosition(channel);
    return base::toInt16(sound_.BASS_ChannelBytes2Seconds(channel, position));
}

std::int32_t CBASS_TIME::GetHeardSeconds(sound::Handle channel) const {
    return wholeSeconds(channel, sound_.BASS_ChannelGetPosition(channel));
}

std::int64_t CBASS_TIME::lengthOf(sound::Handle channel) const {
    const std::int64_t length = sound_.BASS_StreamGetLength(channel);
    return length != -1 ? length : sound_.BASS_MusicGetLength(channel, true);
}

std::int32_t CBASS_TIME::GetDuration(sound::Handle channel) const {
    return wholeSeconds(channel, lengthOf(channel));
}

std::int64_t CBASS_TIME::GetMillisecondsLeft(sound::Handle channel) const {
    constexpr double kMillisecondsPerSecond = 1000;
    const std::int64_t left = lengthOf(channel) - sound_.BASS_ChannelGetPosition(channel);
    return std::llround(sound_.BASS_ChannelBytes2Seconds(channel, std::max<std::int64_t>(left, 0)) *
                        kMillisecondsPerSecond);
}

sound::BASS_CHANNELINFO CBASS_TIME::info(sound::Handle channel) const {
    sound::BASS_CHANNELINFO info;
    sound_.BASS_ChannelGetInfo(channel, info);
    return info;
}

std::int32_t CBASS_TIME::GetBytesPerSecond(sound::Handle channel) const {
    const std::uint32_t channels = std::min(info(channel).chans, kMostChannels);
    // The doubling is meant for 16-bit samples only, but happens for 8-bit ones as well.
    return GetFrequency(channel) * static_cast<std::int32_t>(channels) * kBytesPerSample;
}

std::int16_t CBASS_TIME::GetBitsPerSecond(sound::Handle channel, std::int64_t fileLength) const {
    const std::int32_t duration = GetDuration(channel);
    if (duration == 0) {
        return 0;
    }
    return base::toInt16(static_cast<double>(fileLength) * 8 / duration / 1000);
}

std::string CBASS_TIME::modeOf(int channels) {
    return channels == 1 ? "Mono" : "Stereo";
}

std::string CBASS_TIME::GetMode(sound::Handle channel) const {
    return modeOf(static_cast<int>(info(channel).chans));
}

std::uint8_t CBASS_TIME::GetBits(sound::Handle channel) const {
    return (info(channel).flags & sound::BASS_SAMPLE_8BITS) != 0 ? 8 : 16;
}

std::int32_t CBASS_TIME::GetFrequency(sound::Handle channel) const {
    int frequency = 0;
    int volume = 0;
    int pan = 0;
    sound_.BASS_ChannelGetAttributes(channel, frequency, volume, pan);
    return frequency;
}

std::uint8_t CBASS_TIME::GetDXver() const {
    sound::BASS_INFO record;
    sound_.BASS_GetInfo(record);
    return static_cast<std::uint8_t>(record.dsver);
}

void CBASS_TIME::SetPlayingPos(sound::Handle channel, std::int32_t seconds, bool /*unused*/) const {
    const std::int64_t bytes = sound_.BASS_ChannelSeconds2Bytes(channel, seconds);
    sound_.BASS_ChannelSetPosition(channel, bytes);
}

} // namespace tovik::player
