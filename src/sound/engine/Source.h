// SPDX-License-Identifier: GPL-3.0-or-later
// The decoding side of a channel: decoder, resampler and the feed being filled. Every member may be
// called on any thread; a lock keeps the decoder to one at a time. It is held while the decoder
// reads, as long as the disk wants: a thread that must not wait calls only what is said to return
// at once.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/engine/MixConverter.h"
#include "sound/mix/Feed.h"
#include "sound/mix/Remix.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace tovik::sound {

class Source {
public:
    explicit Source(std::unique_ptr<Decoder> decoder, Remix remix = Remix::never);

    [[nodiscard]] int sampleRate() const noexcept { return rate_; }

    [[nodiscard]] int channels() const noexcept { return channels_; }

    [[nodiscard]] bool loops() const noexcept { return loops_; }

    [[nodiscard]] int orders() const noexcept { return orders_; }

    /// Length in frames of the channel as known now; exact once the scan is done, and at the latest
    /// when the decoder has met the end.
    [[nodiscard]] std::int64_t lengthFrames() const noexcept {
        return length_.load(std::memory_order_acquire);
    }

    /// True while the length is an estimate that a scan will replace.
    [[nodiscard]] bool lengthIsEstimate() const noexcept {
        return estimate_.load(std::memory_order_acquire);
    }

    /// Looks for the exact length for about `slice`. Waits for the disk.
    void scan(std::chrono::milliseconds slice);

    /// A new feed for what lies at `frame`. Whoever fills the feeds goes there next; what was asked
    /// before and not begun yet stays empty. Returns at once.
    [[nodiscard]] std::shared_ptr<Feed> askForFeed(std::int64_t frame);

    /// The same, gone to by the caller: it has a first slice of samples. The feed before gets what
    /// it needs to fade out, and nothing more.
    [[nodiscard]] std::shared_ptr<Feed> beginFeed(std::int64_t frame);

    /// The current feed will be left: sees to it that it can fade out.
    void prepareFade();

    /// Begins the feed that was asked for, else decodes one slice into the current one; false when
    /// that is full or complete.
    bool fillSlice();

    /// Decodes until the current feed holds `frames` frames of the mix (half its capacity at most)
    /// or all there is.
    void fillTo(std::size_t frames);

    /// How long the current feed lasts before it should be filled again; nothing when it needs no
    /// more.
    [[nodiscard]] std::optional<std::chrono::milliseconds> timeToRefill() const;

    // For channels that the caller reads himself: no feed is begun.

    /// Decodes up to `interleaved` in the channel's own form; frames written, 0 at the end.
    [[nodiscard]] std::size_t read(std::span<float> interleaved);
    void seek(std::int64_t frame);

    [[nodiscard]] std::int64_t position() const noexcept {
        return position_.load(std::memory_order_acquire);
    }

    [[nodiscard]] bool atEnd() const noexcept { return end_.load(std::memory_order_acquire); }

private:
    std::size_t decode(std::span<float> interleaved);
    void decodeSlice();
    void decodeTo(std::size_t frames);
    [[nodiscard]] std::size_t roomForSlice() const noexcept;
    void finishFeed();
    bool beginAsked();
    std::int64_t goTo(std::int64_t frame);

    const int rate_;
    const int channels_;
    const bool loops_;
    const int orders_;
    const Remix remix_;

    std::mutex scanMutex_;
    std::unique_ptr<PacketScan> scan_; ///< guarded by scanMutex_
    std::atomic<std::int64_t> length_;
    std::atomic<bool> estimate_;

    std::mutex askMutex_;         ///< guards the next two; never held while anything is done
    std::shared_ptr<Feed> asked_; ///< not begun yet
    std::uint32_t feeds_ = 0;     ///< asked for so far

    mutable std::mutex mutex_; ///< guards all below but the atomics
    std::unique_ptr<Decoder> decoder_;
    std::vector<float> decoded_; ///< one slice
    MixConverter converter_;
    std::shared_ptr<Feed> feed_;
    std::atomic<std::int64_t> position_ = 0; ///< of the decoder
    std::atomic<bool> end_ = false;          ///< the decoder has met the end
};

} // namespace tovik::sound
