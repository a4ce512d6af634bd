// SPDX-License-Identifier: GPL-3.0-or-later
// The operations on streams from the Internet. Interface thread only.
#pragma once

#include "sound/api/NetworkOperations.h"
#include "sound/engine/EngineCore.h"

namespace tovik::sound {

class NetworkCalls : public virtual NetworkOperations {
public:
    explicit NetworkCalls(EngineCore& core) : core_(core) {}

    Handle BASS_StreamCreateURL(std::string_view url, std::uint32_t offset, std::uint32_t flags,
                                DownloadRoutine routine, std::uintptr_t user) override;
    std::optional<std::string> BASS_StreamGetTags(Handle stream, std::uint32_t tags) override;
    Handle BASS_ChannelSetSyncMeta(Handle stream, MetaRoutine routine,
                                   std::uintptr_t user) override;
    std::optional<StreamReport> streamReport(Handle stream) override;

private:
    /// Null, with the reason noted, when it is none of the network.
    [[nodiscard]] const Channel* living(Handle stream);

    EngineCore& core_;
};

} // namespace tovik::sound
