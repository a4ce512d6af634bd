// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/SkewedCascade.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace tovik::sound {

namespace {

using Mask = std::int32_t __attribute__((vector_size(16)));
using Halves = double __attribute__((vector_size(16)));

// A frame is moved as one piece of eight bytes: two halves would stall the next vector load.

/// The frame becomes the even band's input; the odd band keeps what it has.
Lanes withFrame(Lanes input, const float* frame) noexcept {
    double both = 0.0;
    std::memcpy(&both, frame, sizeof both);
    return std::bit_cast<Lanes>(Halves{both, std::bit_cast<Halves>(input)[1]});
}

/// What the odd band gives becomes the frame.
void storeFrame(Lanes output, float* frame) noexcept {
    const double both = std::bit_cast<Halves>(output)[1];
    std::memcpy(frame, &both, sizeof both);
}

/// Which of two stages have a sample of the block: the even one is at `frame`, the odd one behind.
Mask busyStages(std::ptrdiff_t frame, std::ptrdiff_t frames) noexcept {
    const std::int32_t even = frame >= 0 && frame < frames ? -1 : 0;
    const std::int32_t odd = frame >= 1 && frame <= frames ? -1 : 0;
    return Mask{even, even, odd, odd};
}

/// `Pairs` pairs at work on one block; stage n (0 to 2 * Pairs - 1) is one band.
template <std::size_t Pairs>
class Cascade {
public:
    explicit Cascade(std::span<CascadePair* const> pairs) noexcept {
        for (std::size_t i = 0; i < Pairs; ++i) {
            pair_[i] = *pairs[i];
        }
    }

    void store(std::span<CascadePair* const> pairs) const noexcept {
        for (std::size_t i = 0; i < Pairs; ++i) {
            *pairs[i] = pair_[i];
        }
    }

    void run(float* samples, std::ptrdiff_t frames, bool ramping) noexcept {
        const std::ptrdiff_t steps = frames + kDelay;
        const bool everyStageBusy = !ramping && frames > kDelay;
        const std::ptrdiff_t busyBegin = everyStageBusy ? kDelay : steps;
        const std::ptrdiff_t busyEnd = everyStageBusy ? frames : steps;
        for (std::ptrdiff_t step = 0; step < busyBegin; ++step) {
            heldStep(samples, step, frames, ramping);
        }
        busySteps(samples, busyBegin, busyEnd);
        for (std::ptrdiff_t step = busyEnd; step < steps; ++step) {
            heldStep(samples, step, frames, ramping);
        }
    }

private:
    static constexpr std::ptrdiff_t kDelay = 2 * Pairs - 1;

    /// The steps in which every stage has a sample.
    void busySteps(float* samples, std::ptrdiff_t begin, std::ptrdiff_t end) noexcept {
        Cascade at = *this; // a copy that the samples cannot overlap stays in registers
        for (std::ptrdiff_t step = begin; step < end; ++step) {
            at.input_[0] = withFrame(at.input_[0], samples + 2 * step);
            at.allStages();
            storeFrame(at.output_, samples + 2 * (step - kDelay));
        }
        *this = at;
    }

    /// One step of every stage, and the inputs of the next step.
    void allStages() noexcept {
        Lanes before{};
        for (std::size_t i = 0; i < Pairs; ++i) {
            CascadePair& at = pair_[i];
            const Lanes x = input_[i];
            const Lanes pushed = at.gain * x;
            const Lanes band = at.drive + pushed;
            const Lanes y = x + band;
            at.drive = (pushed - at.frequency * at.low) + at.feedback * band;
            at.low += at.frequency * band;
            input_[i] = __builtin_shufflevector(before, y, 2, 3, 4, 5);
            before = y;
        }
        output_ = before;
    }

    /// A step in which some stages may have no sample: they keep their states.
    [[gnu::noinline]] void heldStep(float* samples, std::ptrdiff_t step, std::ptrdiff_t frames,
                                    bool ramping) noexcept {
        if (step < frames) {
            input_[0] = withFrame(input_[0], samples + 2 * step);
        }
        std::array<Lanes, Pairs> drive;
        std::array<Lanes, Pairs> low;
        for (std::size_t i = 0; i < Pairs; ++i) {
            drive[i] = pair_[i].drive;
            low[i] = pair_[i].low;
        }
        allStages();
        for (std::size_t i = 0; i < Pairs; ++i) {
            CascadePair& at = pair_[i];
            const Mask works = busyStages(step - static_cast<std::ptrdiff_t>(2 * i), frames);
            at.drive = works ? at.drive : drive[i];
            at.low = works ? at.low : low[i];
            if (ramping) {
                at.gain += works ? at.gainStep : Lanes{};
                at.frequency += works ? at.frequencyStep : Lanes{};
                at.feedback += works ? at.feedbackStep : Lanes{};
            }
        }
        if (step >= kDelay) {
            storeFrame(output_, samples + 2 * (step - kDelay));
        }
    }

    std::array<CascadePair, Pairs> pair_;
    std::array<Lanes, Pairs> input_{};
    Lanes output_{};
};

template <std::size_t Pairs>
void runPairs(std::span<CascadePair* const> pairs, std::span<float> interleaved,
              bool ramping) noexcept {
    Cascade<Pairs> cascade(pairs);
    cascade.run(interleaved.data(), static_cast<std::ptrdiff_t>(interleaved.size() / 2), ramping);
    cascade.store(pairs);
}

} // namespace

void runCascade(std::span<CascadePair* const> pairs, std::span<float> interleaved,
                bool ramping) noexcept {
    using Run = void (*)(std::span<CascadePair* const>, std::span<float>, bool) noexcept;
    static constexpr std::array<Run, 5> kRuns{runPairs<1>, runPairs<2>, runPairs<3>, runPairs<4>,
                                              runPairs<5>};
    if (!pairs.empty() && interleaved.size() > 1) {
        kRuns[pairs.size() - 1](pairs, interleaved, ramping);
    }
}

} // namespace tovik::sound
