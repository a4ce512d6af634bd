// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds that the mixer has done with, but may need again if it goes back. Used on the thread that
// mixes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tovik::sound {

class Feed;

class ReturnsAhead {
public:
    /// The mixer does not need `feed` any more once it never goes back before `clock`, which never
    /// lies before that of the call before.
    void add(Feed* feed, std::int64_t clock) noexcept {
        // Each voice frees three at most between two commands.
        if (count_ < entries_.size()) {
            entries_[count_++] = {feed, clock};
        }
    }

    /// The mixer went back to `clock`: what was freed behind it is needed again.
    void goBack(std::int64_t clock) noexcept {
        while (count_ > 0 && entries_[count_ - 1].clock > clock) {
            --count_;
        }
    }

    /// Takes out, in their order, those that are free when the mixer never goes back before
    /// `clock`.
    template <typename GiveBack>
    void settle(std::int64_t clock, GiveBack giveBack) noexcept {
        std::size_t done = 0;
        while (done < count_ && entries_[done].clock <= clock) {
            giveBack(entries_[done++].feed);
        }
        for (std::size_t i = done; done > 0 && i < count_; ++i) {
            entries_[i - done] = entries_[i];
        }
        count_ -= done;
    }

private:
    struct Entry {
        Feed* feed = nullptr;
        std::int64_t clock = 0;
    };

    // Commands free more than that, but those are settled at once.
    std::array<Entry, 2048> entries_{};
    std::size_t count_ = 0;
};

} // namespace tovik::sound
