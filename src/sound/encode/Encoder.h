// SPDX-License-Identifier: GPL-3.0-or-later
// Something that turns samples into a file on a thread of its own. Nobody ever waits for that
// thread; it goes on to the end of the file when the encoder is let go. Interface thread.
#pragma once

#include "base/BlockQueue.h"
#include "sound/api/EncodeOperations.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace tovik::sound {

/// What the two threads of an encoder share. Any thread.
class EncoderState {
public:
    base::BlockQueue queue{kMostBytes};

    void enter(EncodeStage stage) {
        const base::MutexLock lock(mutex_);
        stage_ = stage;
    }

    /// Ends it: what comes is not taken any more.
    void fail(std::string words) {
        {
            const base::MutexLock lock(mutex_);
            stage_ = EncodeStage::failed;
            words_ = std::move(words);
        }
        queue.abandon();
    }

    [[nodiscard]] EncodeReport report() const {
        const base::MutexLock lock(mutex_);
        const bool takes = stage_ != EncodeStage::failed && !queue.closed() && queue.hasRoom();
        return {.stage = stage_, .takesMore = takes, .words = words_};
    }

private:
    /// Six seconds of a disc: enough for what the interface thread sleeps now and then.
    static constexpr std::size_t kMostBytes = std::size_t{1} << 20;

    mutable base::Mutex mutex_;
    EncodeStage stage_ TOVIK_GUARDED_BY(mutex_) = EncodeStage::starting;
    std::string words_ TOVIK_GUARDED_BY(mutex_);
};

class Encoder {
public:
    virtual ~Encoder() { close(); }

    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    /// Hands samples over; waits for nothing. False once it has failed.
    bool feed(std::span<const std::byte> samples) {
        return state_->queue.put(base::Block(samples.begin(), samples.end()));
    }

    /// No more samples come.
    void close() { state_->queue.close(); }

    [[nodiscard]] EncodeReport report() const { return state_->report(); }

protected:
    explicit Encoder(std::shared_ptr<EncoderState> state) : state_(std::move(state)) {}

    [[nodiscard]] const std::shared_ptr<EncoderState>& state() const { return state_; }

private:
    std::shared_ptr<EncoderState> state_;
};

} // namespace tovik::sound
