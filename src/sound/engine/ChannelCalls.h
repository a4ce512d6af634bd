// SPDX-License-Identifier: GPL-3.0-or-later
// The operations on a channel of any kind, without its filters. Interface thread only.
#pragma once

#include "sound/api/ChannelOperations.h"
#include "sound/engine/EngineCore.h"
#include "sound/mix/Spectrum.h"

#include <optional>
#include <span>
#include <vector>

namespace tovik::sound {

class ChannelCalls : public virtual ChannelOperations {
public:
    explicit ChannelCalls(EngineCore& core) : core_(core) {}

    std::int64_t BASS_ChannelGetPosition(Handle handle) override;
    bool BASS_ChannelSetPosition(Handle handle, std::int64_t bytes) override;
    double BASS_ChannelBytes2Seconds(Handle handle, std::int64_t bytes) override;
    std::int64_t BASS_ChannelSeconds2Bytes(Handle handle, double seconds) override;
    bool BASS_ChannelGetAttributes(Handle handle, int& frequency, int& volume, int& pan) override;
    bool BASS_ChannelSetAttributes(Handle handle, int frequency, int volume, int pan) override;
    bool BASS_ChannelSlideAttributes(Handle handle, int frequency, int volume, int pan,
                                     std::uint32_t milliseconds) override;
    bool BASS_ChannelGetInfo(Handle handle, BASS_CHANNELINFO& info) override;
    std::int32_t BASS_ChannelGetLevel(Handle handle) override;
    std::int32_t BASS_ChannelGetData(Handle handle, void* buffer, std::uint32_t length) override;
    Activity BASS_ChannelIsActive(Handle handle) override;
    void crossfade(Handle in, Handle out, std::uint32_t milliseconds) override;
    bool playBehind(Handle next, Handle before) override;
    bool BASS_ChannelStop(Handle handle) override;
    Handle BASS_ChannelSetSync(Handle handle, std::uint32_t type, std::int64_t parameter,
                               SyncRoutine routine, std::uintptr_t user) override;

private:
    /// The channel, or null with the reason noted.
    [[nodiscard]] Channel* living(Handle handle);
    bool slide(Handle handle, int frequency, int volume, int pan, std::int32_t frames);
    /// Fills samples as far as there are some; how many.
    [[nodiscard]] std::size_t decodeSamples(Channel& channel, std::span<std::int16_t> samples);
    [[nodiscard]] std::int32_t readSamples(Channel& channel, std::span<std::int16_t> samples);
    [[nodiscard]] std::int32_t readSpectrum(Channel& channel,
                                            std::span<float, Spectrum::kBins> magnitudes);

    EngineCore& core_;
    std::optional<Spectrum> spectrum_; ///< made when first asked for
    std::vector<float> scratch_;
};

} // namespace tovik::sound
