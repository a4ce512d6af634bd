// SPDX-License-Identifier: GPL-3.0-or-later
// The values that cross the border of the sound library: handles, error codes, flags, records. Any
// thread.
#pragma once

#include <cstdint>

namespace tovik::sound {

/// Names a channel, a filter, a sync or a recording. 0 is "none". A handle is never given out
/// twice in one run of the program.
using Handle = std::uint32_t;

inline constexpr Handle kNoHandle = 0;

/// Why the last operation of the calling thread failed; the numbers are those that the table of
/// error texts explains to the user.
enum class ErrorCode : int {
    ok = 0,
    memory = 1,
    cannotOpenFile = 2,
    noDriver = 3,
    invalidHandle = 5,
    unsupportedFormat = 6,
    invalidPosition = 7,
    notInitialized = 8,
    notStarted = 9,
    alreadyInitialized = 14,
    noFreeChannel = 18,
    illegalType = 19,
    illegalParameter = 20,
    illegalDevice = 23,
    notPlaying = 24,
    illegalRate = 25,
    notFileStream = 27,
    cannotCreateFile = 33,
    effectsNotEnabled = 34,
    notAvailable = 37,
    decodingChannel = 38,
    unknown = -1,
};

/// Flags of the create operations; other bits are ignored.
inline constexpr std::uint32_t BASS_SAMPLE_8BITS = 1;
inline constexpr std::uint32_t BASS_MUSIC_LOOP = 4;   ///< a module starts again at its end
inline constexpr std::uint32_t BASS_SAMPLE_FX = 128;  ///< the channel may have filters
inline constexpr std::uint32_t BASS_MUSIC_RAMP = 512; ///< accepted; modules are always ramped
inline constexpr std::uint32_t BASS_STREAM_AUTOFREE = 0x40000; ///< freed when stopped
inline constexpr std::uint32_t BASS_STREAM_DECODE = 0x200000;  ///< read by the caller, not heard
inline constexpr std::uint32_t BASS_STREAM_META = 0x400000;    ///< ask for titles

/// Filter type: one parametric equalizer band.
inline constexpr std::uint32_t BASS_FX_PARAMEQ = 7;

/// Instead of a byte count in BASS_ChannelGetData: a 512-sample spectrum, 256 floats.
inline constexpr std::uint32_t BASS_DATA_FFT512 = 0x80000000U;

/// What BASS_ChannelIsActive answers.
enum class Activity : std::uint32_t { stopped = 0, playing = 1, stalled = 2, paused = 3 };

/// The form of a channel.
struct BASS_CHANNELINFO {
    std::uint32_t freq = 0;  ///< sample rate in Hz
    std::uint32_t chans = 0; ///< 1 or 2; sources with more channels are mixed down to 2
    std::uint32_t flags = 0; ///< flags of creation
};

/// What the output can do. `size` must hold 60 when the record is handed in.
struct BASS_INFO {
    std::uint32_t size = 60;
    std::uint32_t dsver = 0;   ///< version of the system's sound interface; always 9
    std::uint32_t latency = 0; ///< ms between mixing and hearing
    std::uint32_t freq = 0;    ///< rate of the mix in Hz
};

/// One band of the parametric equalizer: centre in Hz, bandwidth in semitones, gain in dB.
struct BASS_FXPARAMEQ {
    float fCenter = 0;
    float fBandwidth = 0;
    float fGain = 0;
};

} // namespace tovik::sound
