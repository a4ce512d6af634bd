// SPDX-License-Identifier: GPL-3.0-or-later
// Operations on a channel of any kind. Interface thread only. Positions and lengths are bytes of
// the channel's 16-bit form: frame * channels * 2.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>
#include <functional>

namespace tovik::sound {

/// Called when a sync is met: the sync, its channel, data of the kind of sync, the user value.
using SyncRoutine = std::function<void(Handle, Handle, std::uint32_t, std::uintptr_t)>;

class ChannelOperations {
public:
    virtual ~ChannelOperations() = default;

    /// What is heard now; equals the length at the end and never exceeds it before. 0 for a dead
    /// handle.
    [[nodiscard]] virtual std::int64_t BASS_ChannelGetPosition(Handle channel) = 0;

    /// Refuses (invalidPosition, nothing happens) a position before 0 or past the length.
    virtual bool BASS_ChannelSetPosition(Handle channel, std::int64_t bytes) = 0;

    /// 0 for a dead handle or a negative argument.
    [[nodiscard]] virtual double BASS_ChannelBytes2Seconds(Handle channel, std::int64_t bytes) = 0;

    /// 0 for a dead handle; -1, which is refused as a position, for what can be no place in time:
    /// so seeking back beyond the beginning does nothing.
    [[nodiscard]] virtual std::int64_t BASS_ChannelSeconds2Bytes(Handle channel,
                                                                 double seconds) = 0;

    /// Rate in Hz, volume 0 to 100, pan -100 to 100, as last set (a slide shows where it is).
    virtual bool BASS_ChannelGetAttributes(Handle channel, int& frequency, int& volume,
                                           int& pan) = 0;

    /// -1 keeps frequency or volume, -101 keeps pan; -1 for the pan of this call is a pan of -1.
    /// A frequency other than the channel's own is refused (illegalRate); values beyond the ranges
    /// are refused (illegalParameter). Takes effect over a few milliseconds, without a click.
    virtual bool BASS_ChannelSetAttributes(Handle channel, int frequency, int volume, int pan) = 0;

    /// The same, linear over `milliseconds`.
    virtual bool BASS_ChannelSlideAttributes(Handle channel, int frequency, int volume, int pan,
                                             std::uint32_t milliseconds) = 0;

    virtual bool BASS_ChannelGetInfo(Handle channel, BASS_CHANNELINFO& info) = 0;

    /// Low word left, high word right, each 0 to 128: the loudest sample of the last block before
    /// bands and volume, rounded up, so that only digital silence is 0. 0 at the end; -1 while the
    /// output is paused and for a dead handle.
    [[nodiscard]] virtual std::int32_t BASS_ChannelGetLevel(Handle channel) = 0;

    /// For a decoding channel: fills up to `length` bytes with 16-bit samples and returns the bytes
    /// written (0 at the end); this decodes and waits for the disk, so nobody calls it on the
    /// thread that serves the windows. For BASS_DATA_FFT512, which returns at once: 256 floats, the
    /// spectrum of what is heard, 0 to 1. -1 on failure.
    virtual std::int32_t BASS_ChannelGetData(Handle channel, void* buffer,
                                             std::uint32_t length) = 0;

    [[nodiscard]] virtual Activity BASS_ChannelIsActive(Handle channel) = 0;

    /// Stops a channel and sets it back to its beginning; one made with BASS_STREAM_AUTOFREE is
    /// freed.
    virtual bool BASS_ChannelStop(Handle channel) = 0;

    /// Starts `next`, which was not started before, with the very sample behind the last one of
    /// `before`, which is playing: an operation of our own. Until then `next` can be stopped or
    /// freed like any channel; where `before` is stopped or freed first, it stays silent.
    virtual bool playBehind(Handle next, Handle before) = 0;

    /// Lets `in`, which is about to start, come up from silence and `out` fall to it, within
    /// `milliseconds` and with equal power all along (sine and cosine): an operation of our own.
    /// Volumes stay what they are. One of the two may be dead.
    virtual void crossfade(Handle in, Handle out, std::uint32_t milliseconds) = 0;

    /// Registers a routine. Position and end syncs are accepted and never raised: the player finds
    /// the end of a track by looking at the position.
    virtual Handle BASS_ChannelSetSync(Handle channel, std::uint32_t type, std::int64_t parameter,
                                       SyncRoutine routine, std::uintptr_t user) = 0;
};

} // namespace tovik::sound
