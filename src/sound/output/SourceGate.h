// SPDX-License-Identifier: GPL-3.0-or-later
// Stands between a device, or a system's audio thread, and the mix, so that the mix can be taken
// away for certain although that thread may still be running, or hang in the system.
#pragma once

#include "sound/output/OutputDevice.h"

#include <atomic>

namespace tovik::sound {

/// The calls of a MixSource come from one thread at a time and are as real-time safe as those of
/// the source behind it.
class SourceGate final : public MixSource {
public:
    /// From now on the calls go to `source`.
    void open(MixSource& source) noexcept { source_.store(&source); }

    /// From now on the mix is silence and nothing is taken back, except in a call that has begun
    /// already. Any thread.
    void shut() noexcept { source_.store(nullptr); }

    /// Shuts, and waits for a call that has begun: afterwards the source is not used any more.
    void shutAndWait() noexcept;

    void mix(std::span<float> interleaved) noexcept override;
    void decodeAhead(std::size_t frames) override;
    std::int64_t beginAhead() noexcept override;
    void mixAhead(std::span<float> interleaved) noexcept override;
    void settle(std::int64_t heard) noexcept override;
    [[nodiscard]] std::optional<std::int64_t> takeBack(std::int64_t earliest) noexcept override;
    void endAhead(std::int64_t heard) noexcept override;

private:
    static_assert(std::atomic<MixSource*>::is_always_lock_free);
    static_assert(std::atomic<bool>::is_always_lock_free);

    template <typename Call>
    bool pass(Call call);

    std::atomic<MixSource*> source_ = nullptr;
    std::atomic<bool> taking_ = false;
};

} // namespace tovik::sound
