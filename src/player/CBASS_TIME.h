// SPDX-License-Identifier: GPL-3.0-or-later
// Turns bytes of a channel into seconds and facts to show. Interface thread.
#pragma once

#include "sound/SoundLibrary.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::player {

/// The second argument of `SetPlayingPos` is in seconds; all positions and lengths are whole ones.
class CBASS_TIME {
public:
    explicit CBASS_TIME(sound::SoundLibrary& sound) : sound_(sound) {}

    /// "hh:mm:ss"; "00:00:00" for 0 or less.
    [[nodiscard]] static std::string GetTime(std::int32_t seconds);

    /// The seconds of "hh:mm:ss". Raises 13 where a part is no number.
    [[nodiscard]] static std::int32_t GetSeconds(std::string_view time);

    /// Rounded, halves to even. Raises 6 beyond 32767 seconds.
    [[nodiscard]] std::int16_t GetPlayingPos(sound::Handle channel) const;

    /// The same for what goes on for days. Raises 6 beyond 32 bits.
    [[nodiscard]] std::int32_t GetHeardSeconds(sound::Handle channel) const;

    /// Rounded, halves to even; 0 for a dead handle.
    [[nodiscard]] std::int32_t GetDuration(sound::Handle channel) const;

    /// From what is heard to the end; 0 for a dead handle.
    [[nodiscard]] std::int64_t GetMillisecondsLeft(sound::Handle channel) const;

    /// Of the 16-bit form, also for channels with 8 bits.
    [[nodiscard]] std::int32_t GetBytesPerSecond(sound::Handle channel) const;

    /// The average over the whole file in kilobits a second; 0 where there is no duration. Raises 6
    /// beyond 32767.
    [[nodiscard]] std::int16_t GetBitsPerSecond(sound::Handle channel,
                                                std::int64_t fileLength) const;

    /// "Mono" or "Stereo".
    [[nodiscard]] std::string GetMode(sound::Handle channel) const;
    [[nodiscard]] static std::string modeOf(int channels);

    /// 8 or 16.
    [[nodiscard]] std::uint8_t GetBits(sound::Handle channel) const;

    /// In Hz; 0 for a dead handle.
    [[nodiscard]] std::int32_t GetFrequency(sound::Handle channel) const;

    /// The version of the sound interface that the library reports.
    [[nodiscard]] std::uint8_t GetDXver() const;

    /// A place that the library refuses is left unvisited, without a word.
    void SetPlayingPos(sound::Handle channel, std::int32_t seconds, bool unused) const;

private:
    [[nodiscard]] sound::BASS_CHANNELINFO info(sound::Handle channel) const;
    [[nodiscard]] std::int64_t lengthOf(sound::Handle channel) const;
    [[nodiscard]] std::int32_t wholeSeconds(sound::Handle channel, std::int64_t bytes) const;

    sound::SoundLibrary& sound_;
};

} // namespace tovik::player
