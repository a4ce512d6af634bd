// SPDX-License-Identifier: GPL-3.0-or-later
// One channel as the interface thread keeps it: its source, its voice in the mixer, the feeds that
// the mixer may still be using, and what was last set. Interface thread only.
#pragma once

#include "sound/api/Types.h"
#include "sound/cd/RipStream.h"
#include "sound/cd/TrackHealth.h"
#include "sound/decode/Decoder.h"
#include "sound/encode/Encoder.h"
#include "sound/engine/Source.h"
#include "sound/mix/Voice.h"
#include "sound/net/NetStream.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tovik::sound {

class Channel {
public:
    static constexpr std::size_t kMaxEffects = 10;

    /// What the opener finds out, on its thread.
    using Family = std::shared_ptr<const std::atomic<FormatFamily>>;

    /// Nothing is opened yet; a channel that is to be heard has asked for its first feed.
    Channel(Family family, std::uint32_t flags, Opener opener, Remix remix = Remix::never,
            Reading reading = Reading::file);

    /// The same of a family that is known.
    Channel(FormatFamily family, std::uint32_t flags, Opener opener, Remix remix = Remix::never,
            Reading reading = Reading::file);

    [[nodiscard]] FormatFamily family() const noexcept {
        return family_->load(std::memory_order_acquire);
    }

    [[nodiscard]] bool isMusic() const noexcept { return family() == FormatFamily::music; }

    [[nodiscard]] std::uint32_t flags() const noexcept { return flags_; }

    [[nodiscard]] bool isDecoding() const noexcept { return (flags_ & BASS_STREAM_DECODE) != 0; }

    [[nodiscard]] const std::shared_ptr<Source>& source() const noexcept { return source_; }

    /// For a channel that was freed and only fades out: it has no source any more.
    [[nodiscard]] std::shared_ptr<Source> giveAwaySource() { return std::move(source_); }

    /// Null for a decoding channel.
    [[nodiscard]] Voice* voice() const noexcept { return voice_.get(); }

    /// Begins a new feed at `frame`, keeps it until it is given back, and makes it the one that
    /// positions are read from.
    [[nodiscard]] Feed& beginFeed(std::int64_t frame);

    /// The same with a feed that the source has still to begin. Waits for nothing.
    [[nodiscard]] Feed& askForFeed(std::int64_t frame);

    /// It stands at `frame`, and nothing was heard from there yet.
    [[nodiscard]] bool isReadyAt(std::int64_t frame) const noexcept {
        return !feedUsed && current_->anchorFrame() == frame;
    }

    /// The mixer does not use `feed` any more. False when it is none of this channel's.
    bool dropFeed(const Feed* feed);

    [[nodiscard]] std::int64_t bytesFromFrames(std::int64_t frames) const noexcept;
    [[nodiscard]] std::int64_t framesFromBytes(std::int64_t bytes) const noexcept;

    /// What is heard when `heardClock` frames of the mix are heard; never goes back but by a seek.
    [[nodiscard]] std::int64_t heardFrame(std::int64_t heardClock) const noexcept;

    /// Length in frames; while it is an estimate, kept ahead of `heard`.
    [[nodiscard]] std::int64_t lengthFrames(std::int64_t heard) const noexcept;

    /// True once every sample was heard or, for a decoding channel, taken by the caller.
    [[nodiscard]] bool ended(std::int64_t heardClock) const noexcept;

    /// Of a stream from the Internet; null for all others.
    std::shared_ptr<NetStream> net;

    /// Gets what the caller reads of a decoding channel, or got it; null for most.
    std::unique_ptr<Encoder> encoder;

    /// Of a track of a disc: how its reading goes; null for all others.
    std::shared_ptr<TrackHealth> discHealth;

    /// Of a track of a disc that the caller reads; null for all others. Its source is never opened.
    std::unique_ptr<RipStream> rip;

    bool started = false; ///< told to play and not stopped since

    bool feedUsed = false; ///< told to play since the current feed began

    /// Volume or pan as last set, in percent.
    struct Attribute {
        int target;
        bool sliding = false; ///< the mixer knows how far it is
    };

    Attribute volume{100};
    Attribute pan{0};

    struct Effect {
        Handle handle = kNoHandle;
        BASS_FXPARAMEQ parameters{};
    };

    std::array<Effect, kMaxEffects> effects{};
    std::size_t effectCount = 0;

private:
    Feed& keep(std::shared_ptr<Feed> feed);
    [[nodiscard]] std::int64_t wrapped(std::int64_t frame) const noexcept;
    [[nodiscard]] std::int64_t heardOfFeed(std::int64_t heardClock) const noexcept;

    Family family_;
    std::uint32_t flags_;
    std::shared_ptr<Source> source_;
    std::vector<std::shared_ptr<Feed>> feeds_;
    Feed* current_ = nullptr;
    /// Frames of the mix of the current feed. What was once heard stays heard, also when a device
    /// is opened anew.
    mutable std::int64_t heardFrames_ = 0;
    std::unique_ptr<Voice> voice_;
};

} // namespace tovik::sound
