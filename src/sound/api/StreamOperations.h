// SPDX-License-Identifier: GPL-3.0-or-later
// Operations that make, start and free channels. Interface thread only.
//
// Each create operation looks at the content of the file, never at its name, and refuses what is
// not its own: streams take MP3, Ogg Vorbis, WAV and AIFF; music takes the tracker family; WMA and
// FLAC have calls of their own. Stream and music handles are different kinds: an operation on the
// wrong kind fails with invalidHandle and has no effect.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>
#include <string_view>

namespace tovik::sound {

class StreamOperations {
public:
    virtual ~StreamOperations() = default;

    /// Opens `path` (bytes of a file name) as a stream. `memory` must be false; `offset` and
    /// `length` must be 0. Returns the handle, or 0: cannotOpenFile when there is no such file or
    /// its disk does not answer within 2 s, which is how long this waits at most,
    /// unsupportedFormat when it is not this operation's kind or is broken.
    ///
    /// A channel made with BASS_STREAM_DECODE is read by its caller, who waits for the disk in
    /// BASS_ChannelGetData, BASS_ChannelSetPosition and BASS_ChannelStop: that is for a render or a
    /// job whose thread may wait, never for the thread that serves the windows.
    [[nodiscard]] virtual Handle BASS_StreamCreateFile(bool memory, std::string_view path,
                                                       std::uint32_t offset, std::uint32_t length,
                                                       std::uint32_t flags) = 0;
    /// The same for tracker modules. `freq` is accepted and has no effect: modules are rendered at
    /// the rate of the mix.
    [[nodiscard]] virtual Handle BASS_MusicLoad(bool memory, std::string_view path,
                                                std::uint32_t offset, std::uint32_t length,
                                                std::uint32_t flags, std::uint32_t freq) = 0;
    /// The same for Windows Media Audio.
    [[nodiscard]] virtual Handle BASS_WMA_StreamCreateFile(bool memory, std::string_view path,
                                                           std::uint32_t offset,
                                                           std::uint32_t length,
                                                           std::uint32_t flags) = 0;
    /// The same for FLAC.
    [[nodiscard]] virtual Handle BASS_FLAC_StreamCreateFile(bool memory, std::string_view path,
                                                            std::uint32_t offset,
                                                            std::uint32_t length,
                                                            std::uint32_t flags) = 0;

    /// Opens `path` as what it turns out to be: the first of the four, in the order above, that
    /// takes it; an operation of our own. Waits for nothing: the handle stands still until there is
    /// something to hear, counts as a stream until it is known to be a module, and has ended when
    /// nothing opens. `repeats`: a module starts again at its end. 0 only without a library or
    /// room.
    [[nodiscard]] virtual Handle openAhead(std::string_view path, bool repeats) = 0;

    /// Above 0 when the handle is a WMA stream.
    [[nodiscard]] virtual std::uint32_t BASS_WMA_GetIWMReader(Handle stream) = 0;

    /// Starts a stream where it stands; at its beginning when `flush` is set or it had ended.
    virtual bool BASS_StreamPlay(Handle stream, bool flush, std::uint32_t flags) = 0;

    /// Starts a module where it stands.
    virtual bool BASS_MusicPlay(Handle music) = 0;

    /// Silences (with a short ramp) and forgets the channel.
    virtual bool BASS_StreamFree(Handle stream) = 0;
    virtual bool BASS_MusicFree(Handle music) = 0;

    /// Length in bytes of the 16-bit form; -1 for a module, 0 for a dead handle.
    [[nodiscard]] virtual std::int64_t BASS_StreamGetLength(Handle stream) = 0;

    /// Length of a module: in bytes of the 16-bit form when `playLength` is set, else its number
    /// of orders; 0 for anything that is no live module.
    [[nodiscard]] virtual std::int64_t BASS_MusicGetLength(Handle music, bool playLength) = 0;
};

} // namespace tovik::sound
