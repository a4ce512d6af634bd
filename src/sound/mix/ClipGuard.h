// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the mix within full scale. Used on the thread that mixes.
#pragma once

#include <span>

namespace tovik::sound {

/// A limiter without latency, one gain for both sides: the gain falls at once to what the loudest
/// sample allows and comes back over about 150 ms. While it is 1 and nothing exceeds full scale the
/// samples are not touched.
class ClipGuard {
public:
    /// Works on left, right, ... in place. Samples that are no numbers, or infinite, become 0.
    void process(std::span<float> interleaved) noexcept;

    /// The gain at the last frame; 1 while it is transparent.
    [[nodiscard]] float gain() const noexcept { return 1.0F - reduction_; }

    void reset() noexcept { reduction_ = 0.0F; }

private:
    float reduction_ = 0.0F; ///< 1 minus the gain
};

} // namespace tovik::sound
