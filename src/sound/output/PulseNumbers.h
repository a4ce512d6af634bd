// SPDX-License-Identifier: GPL-3.0-or-later
// Sizes and times of the stream to a PulseAudio server. Constants, any thread.
#pragma once

#include "sound/output/OutputDevice.h"

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace tovik::sound::pulse {

inline constexpr std::size_t kFrameBytes = kMixChannels * sizeof(float);

constexpr std::int64_t framesIn(std::chrono::microseconds time) {
    return time.count() * kMixRate / 1'000'000;
}

constexpr std::uint32_t bytesIn(std::chrono::microseconds time) {
    return static_cast<std::uint32_t>(static_cast<std::size_t>(framesIn(time)) * kFrameBytes);
}

/// The queue, and how much of it the server asks for at once: well below its half, or a PulseAudio
/// server would choose its smallest latency.
inline constexpr std::chrono::microseconds kQueue = std::chrono::milliseconds(1000);
inline constexpr std::chrono::microseconds kRequest = std::chrono::milliseconds(400);

} // namespace tovik::sound::pulse
