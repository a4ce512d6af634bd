// SPDX-License-Identifier: GPL-3.0-or-later
// The operations that write sound to files in other formats. Interface thread only.
#pragma once

#include "sound/api/EncodeOperations.h"
#include "sound/encode/WmaEncoder.h"
#include "sound/engine/EngineCore.h"

#include <map>
#include <memory>

namespace tovik::sound {

class EncodeCalls : public virtual EncodeOperations {
public:
    explicit EncodeCalls(EngineCore& core) : core_(core) {}

    bool BASS_Encode_Start(Handle handle, const EncoderCommand& command,
                           std::uint32_t flags) override;
    bool BASS_Encode_Stop(Handle handle) override;
    Handle BASS_WMA_EncodeOpenFile(std::uint32_t freq, std::uint32_t flags, std::uint32_t bitrate,
                                   std::string_view path) override;
    bool BASS_WMA_EncodeSetTag(Handle encoder, std::string_view tag,
                               std::string_view value) override;
    bool BASS_WMA_EncodeWrite(Handle encoder, std::span<const std::byte> samples) override;
    bool BASS_WMA_EncodeClose(Handle encoder) override;
    std::optional<EncodeReport> encodeReport(Handle handle) override;

private:
    [[nodiscard]] WmaEncoder* wma(Handle encoder);

    EngineCore& core_;
    std::map<Handle, std::unique_ptr<WmaEncoder>> wmaEncoders_;
};

} // namespace tovik::sound
