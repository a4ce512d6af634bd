// SPDX-License-Identifier: GPL-3.0-or-later
// The loop that moves a track's sound from its stream to whoever writes it. Interface thread.
#pragma once

#include "cd/RipNeeds.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace tovik::cd {

class TrackFlow {
public:
    /// Where the sound goes.
    struct Sink {
        std::function<bool()> takesMore; ///< has room; also true when it has failed
        std::function<bool()> failed;
        std::function<void(std::span<const std::byte>)> take;
    };

    /// What is moved, and how it is shown.
    struct Job {
        sound::Handle channel = sound::kNoHandle;
        std::size_t block = 0; ///< bytes at a time
        std::int32_t row = 0;  ///< of the list of tracks, from 0; below 0: none
        int decimals = 0;      ///< of the percentage
    };

    explicit TrackFlow(const RipNeeds& needs);

    /// What was waited for.
    enum class Waited : std::uint8_t {
        done,
        givenUp, ///< the user has cancelled, and it did not come for some time after that
        ending,  ///< the program
    };

    /// Moves until the stream ends, the sink fails or the user cancels; the rest of the program
    /// goes on meanwhile. False when the program is ending.
    [[nodiscard]] bool run(const Job& job, const Sink& sink);

    /// Gives way until `done`; where nothing is to be done, this thread rests for a moment.
    [[nodiscard]] Waited waitFor(const std::function<bool()>& done) const;

    /// Bytes that the last run moved.
    [[nodiscard]] std::int64_t moved() const noexcept { return moved_; }

    /// Whether the stream of the last run ended before its length, which neither the sink nor the
    /// user wanted.
    [[nodiscard]] bool brokenOff() const noexcept { return brokenOff_; }

    /// Whether the user ended the last run before its stream's end.
    [[nodiscard]] bool stopped() const noexcept { return stopped_; }

private:
    [[nodiscard]] bool cancelled() const;
    void show(const Job& job) const;

    const RipNeeds& needs_;
    std::int64_t moved_ = 0;
    std::int64_t beganMs_ = 0;
    bool brokenOff_ = false;
    bool stopped_ = false;
    bool cancelledBefore_ = false; ///< with an earlier track
};

} // namespace tovik::cd
