// SPDX-License-Identifier: GPL-3.0-or-later
// Writing sound to files in other formats. Interface thread only; nothing here waits for a disk or
// for another program: how an encoder fares is asked for.
#pragma once

#include "sound/api/Types.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::sound {

/// An encoder program as it is to be run.
struct EncoderCommand {
    std::string text{};                   ///< the whole line, for who tells of it
    std::string program{};                ///< the executable, an absolute path
    std::vector<std::string> arguments{}; ///< a word each; no shell looks at them
    std::string output{};                 ///< the file that it writes, also one of the arguments
    int niceness = 0;                     ///< 0 (as the player) to 19 (only when all else rests)
};

enum class EncodeStage {
    starting, ///< the file is not open yet
    running,  ///< takes samples
    ending,   ///< has all it gets, and writes the rest
    finished, ///< the file is complete
    failed,   ///< there will be no more of the file
};

/// How an encoder stands.
struct EncodeReport {
    EncodeStage stage = EncodeStage::starting;
    bool takesMore = false; ///< has room for more samples; never so once it has failed
    std::string words{};    ///< of one that failed: what it or the system said; may be empty
};

class EncodeOperations {
public:
    virtual ~EncodeOperations() = default;

    /// Runs an encoder program that is fed with what BASS_ChannelGetData reads from a decoding
    /// channel: the header of a WAV file of unknown length, then the samples. One that the channel
    /// has already is stopped. False when the program cannot be run (cannotCreateFile) or the
    /// channel is none that the caller reads.
    virtual bool BASS_Encode_Start(Handle channel, const EncoderCommand& command,
                                   std::uint32_t flags) = 0;

    /// The encoder gets no more, and ends by itself; its report can be asked for until the channel
    /// is freed. False without an encoder.
    virtual bool BASS_Encode_Stop(Handle channel) = 0;

    /// Begins a file of Windows Media Audio: 16-bit stereo at `freq` Hz, at about `bitrate` bits a
    /// second. The handle is there at once, the file is opened beside; a failure is reported.
    [[nodiscard]] virtual Handle BASS_WMA_EncodeOpenFile(std::uint32_t freq, std::uint32_t flags,
                                                         std::uint32_t bitrate,
                                                         std::string_view path) = 0;

    /// Before the first samples: what a tag such as "WM/Year" says, in UTF-8. Without a tag's name:
    /// there are no more.
    virtual bool BASS_WMA_EncodeSetTag(Handle encoder, std::string_view tag,
                                       std::string_view value) = 0;

    /// False once it failed (cannotCreateFile).
    virtual bool BASS_WMA_EncodeWrite(Handle encoder, std::span<const std::byte> samples) = 0;

    /// No more samples come; the report can be asked for until the next one is begun.
    virtual bool BASS_WMA_EncodeClose(Handle encoder) = 0;

    /// Of a WMA encoder, or of the encoder of a channel; nothing where there is none.
    [[nodiscard]] virtual std::optional<EncodeReport> encodeReport(Handle handle) = 0;
};

} // namespace tovik::sound
