// SPDX-License-Identifier: GPL-3.0-or-later
// What a voice was at in one block of the mix: plain values, which the mixer notes and whoever asks
// for what is heard reads, on any thread.
#pragma once

#include <cstdint>

namespace tovik::sound {

struct HeardBlock {
    std::int64_t clock = 0;  ///< the mixer's, at the beginning of the block
    std::int64_t taken = 0;  ///< frames taken from the feed before the block
    std::int64_t tapped = 0; ///< frames noted for the spectrum before the block
    std::int32_t frames = 0; ///< length of the block
    std::int32_t given = 0;  ///< frames that the feed gave to it
    std::uint32_t feed = 0;  ///< number of that feed
    std::uint32_t level = 0; ///< packed as BASS_ChannelGetLevel returns it
    float volume = 1.0F;     ///< at the end of the block
    float pan = 0.0F;        ///< at the end of the block
    bool starved = false;    ///< the feed had too little
};

} // namespace tovik::sound
