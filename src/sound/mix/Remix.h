// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of mixing ahead: a device that queues about a second takes the mix in blocks of one size,
// and at the beginning of each the mixer keeps what it needs to mix that block again. Any thread.
#pragma once

#include <cstddef>

namespace tovik::sound {

/// Must it be possible to go back and mix again?
enum class Remix {
    never,
    possible,
};

/// Length of the blocks mixed ahead: 11.6 ms.
inline constexpr std::size_t kAheadBlockFrames = 512;

/// Places to go back to: 1.49 s of such blocks.
inline constexpr std::size_t kCheckpoints = 128;

} // namespace tovik::sound
