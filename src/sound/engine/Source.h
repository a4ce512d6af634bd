// SPDX-License-Identifier: GPL-3.0-or-later
// The decoding side of a channel: decoder, resampler and the feed being filled. Every member may be
// called on any thread; a lock keeps the decoder to one at a time. It is held while the decoder
// opens and reads, as long as disk or network want: a thread that must not wait calls only what is
// said to return at once.
#pragma once

#include "base/Mutex.h"
#include "sound/decode/Decoder.h"
#include "sound/engine/MixConverter.h"
#include "sound/mix/Feed.h"
#include "sound/mix/Remix.h"
#include "sound/output/OutputDevice.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace tovik::sound {

/// Gets a decoder, waiting for disk or network. It is called once, on a thread that may wait, and
/// may outlive whoever asked for it: it owns what it uses. When a stop is requested nobody wants
/// the source any more: opener and decoder then give up whatever they can give up waiting for. Who
/// registers a callback for that is called on the interface thread, and returns at once.
using Opener = std::function<OpenResult(const std::stop_token& calledOff)>;

/// How far ahead of what is heard a source is read.
enum class Reading {
    file, ///< about a second
    disc, ///< 4 s, since a scratch may hold it up for that long
};

class Source {
public:
    /// Nothing is opened yet: `begin` does that.
    explicit Source(Opener opener, Remix remix = Remix::never, Reading reading = Reading::file);

    /// Before it is opened: how long it is thought to be, in frames.
    void expectLength(std::int64_t frames) { length_.store(frames, std::memory_order_release); }

    // Opening -------------------------------------------------------------------------------

    /// Opens, fills the feed that was asked for with a first slice, and looks for the length for
    /// some milliseconds; then the answer is there. A feed of what does not open is complete at
    /// once. To be called once; waits for disk or network.
    void begin();

    /// Waits for the answer, `patience` at most; nothing when there is none by then.
    [[nodiscard]] std::optional<OpenStatus> waitForAnswer(std::chrono::milliseconds patience);

    /// The answer is that it cannot be opened, unless there is one.
    void refuse();

    /// Nobody wants the source any more. Returns at once; what waits for disk or network may do so
    /// for longer.
    void callOff() { calledOff_.request_stop(); }

    // What is known; before it is opened, of a stereo stream without a length. Returns at once.

    [[nodiscard]] int sampleRate() const noexcept { return facts().rate; }

    [[nodiscard]] int channels() const noexcept { return facts().channels; }

    [[nodiscard]] bool loops() const noexcept { return facts().loops; }

    [[nodiscard]] int orders() const noexcept { return facts().orders; }

    /// Length in frames of the channel as known now; exact once the scan is done, and at the latest
    /// when the decoder has met the end.
    [[nodiscard]] std::int64_t lengthFrames() const noexcept {
        return length_.load(std::memory_order_acquire);
    }

    /// True while the length is an estimate that a scan will replace.
    [[nodiscard]] bool lengthIsEstimate() const noexcept {
        return estimate_.load(std::memory_order_acquire);
    }

    /// Nothing is left to do but for what the caller reads himself: no feed was ever asked for, and
    /// the length is exact. Returns at once.
    [[nodiscard]] bool needsNoThread() const;

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
    /// Does not change once the answer is there.
    struct Facts {
        int rate;
        int channels;
        bool loops;
        int orders;
    };

    static constexpr Facts kUnknown{kMixRate, 2, false, 0};

    [[nodiscard]] const Facts& facts() const noexcept {
        return known_.load(std::memory_order_acquire) ? facts_ : kUnknown;
    }

    [[nodiscard]] OpenStatus open() TOVIK_REQUIRES(mutex_);
    void answer(OpenStatus status);
    std::size_t decode(std::span<float> interleaved) TOVIK_REQUIRES(mutex_);
    void decodeSlice() TOVIK_REQUIRES(mutex_);
    void decodeTo(std::size_t frames) TOVIK_REQUIRES(mutex_);
    [[nodiscard]] std::size_t roomForSlice() const noexcept TOVIK_REQUIRES(mutex_);
    void finishFeed() TOVIK_REQUIRES(mutex_);
    [[nodiscard]] std::shared_ptr<Feed> takeAsked();
    bool beginAsked() TOVIK_REQUIRES(mutex_);
    std::int64_t goTo(std::int64_t frame) TOVIK_REQUIRES(mutex_);

    const Remix remix_;
    const Reading reading_;
    std::stop_source calledOff_;
    Facts facts_ = kUnknown; ///< written before `known_` becomes true, and not afterwards
    std::atomic<bool> known_ = false;

    base::Mutex answerMutex_; ///< never held while anything is done
    base::Condition answered_;
    std::optional<OpenStatus> answer_ TOVIK_GUARDED_BY(answerMutex_);

    base::Mutex scanMutex_;
    std::unique_ptr<PacketScan> scan_ TOVIK_GUARDED_BY(scanMutex_);
    std::atomic<std::int64_t> length_ = 0;
    std::atomic<bool> estimate_ = false;

    mutable base::Mutex askMutex_;                            ///< never held while anything is done
    std::shared_ptr<Feed> asked_ TOVIK_GUARDED_BY(askMutex_); ///< not begun yet
    std::uint32_t feeds_ TOVIK_GUARDED_BY(askMutex_) = 0;     ///< asked for so far
    bool refused_ TOVIK_GUARDED_BY(askMutex_) = false;        ///< nothing will be begun

    mutable base::Mutex mutex_;
    Opener opener_ TOVIK_GUARDED_BY(mutex_);                    ///< empty once it was called
    std::unique_ptr<Decoder> decoder_ TOVIK_GUARDED_BY(mutex_); ///< null unless opened
    std::vector<float> decoded_ TOVIK_GUARDED_BY(mutex_);       ///< one slice
    std::optional<MixConverter> converter_ TOVIK_GUARDED_BY(mutex_);
    std::shared_ptr<Feed> feed_ TOVIK_GUARDED_BY(mutex_);
    std::atomic<std::int64_t> position_ = 0; ///< of the decoder
    std::atomic<bool> end_ = false;          ///< the decoder has met the end
};

} // namespace tovik::sound
