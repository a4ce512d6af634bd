// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of a stream: pulls what came in through the decoders of live sound and brings it to
// stereo at the engine's rate, so that a station may change its own. Used under the lock of its
// source.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/net/StreamState.h"

#include <memory>
#include <stop_token>

namespace tovik::sound {

/// Waits until there is enough to be heard, and opens it. When a stop is requested, now or later,
/// the stream is closed and whatever waits for it returns.
[[nodiscard]] OpenResult openNetDecoder(const std::shared_ptr<StreamState>& state,
                                        const std::stop_token& calledOff);

} // namespace tovik::sound
