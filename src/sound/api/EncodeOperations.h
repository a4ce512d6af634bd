// SPDX-License-Identifier: GPL-3.0-or-later
// Writing sound to files in other formats. Interface thread only.
#pragma once

#include "sound/api/Types.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace tovik::sound {

class EncodeOperations {
public:
    virtual ~EncodeOperations() = default;

    /// Runs an encoder program that is fed with what is read from a decoding channel.
    virtual bool BASS_Encode_Start(Handle channel, std::string_view commandLine,
                                   std::uint32_t flags) = 0;
    virtual bool BASS_Encode_Stop(Handle channel) = 0;

    /// `bitrate` in bits a second; 0 when the file cannot be written.
    [[nodiscard]] virtual Handle BASS_WMA_EncodeOpenFile(std::uint32_t freq, std::uint32_t flags,
                                                         std::uint32_t bitrate,
                                                         std::string_view path) = 0;
    virtual bool BASS_WMA_EncodeSetTag(Handle encoder, std::string_view tag,
                                       std::string_view value) = 0;
    virtual bool BASS_WMA_EncodeWrite(Handle encoder, std::span<const std::byte> samples) = 0;
    virtual bool BASS_WMA_EncodeClose(Handle encoder) = 0;
};

} // namespace tovik::sound
