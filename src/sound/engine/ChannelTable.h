// SPDX-License-Identifier: GPL-3.0-or-later
// The living channels and their filters by handle. Handles of channels, filters, syncs and
// recordings come from one count, so none is ever given out twice. Interface thread only.
#pragma once

#include "sound/engine/Channel.h"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tovik::sound {

class ChannelTable {
public:
    [[nodiscard]] Handle newHandle() noexcept { return ++lastHandle_; }

    Handle add(std::unique_ptr<Channel> channel);

    /// Null for a dead handle, and for the handle of anything that is no channel.
    [[nodiscard]] Channel* find(Handle handle) const;

    /// The same, and null for a channel of the other kind.
    [[nodiscard]] Channel* findStream(Handle handle) const;
    [[nodiscard]] Channel* findMusic(Handle handle) const;

    template <typename Action>
    void forEach(Action action) const {
        for (const auto& [handle, channel] : channels_) {
            action(*channel);
        }
    }

    [[nodiscard]] std::unique_ptr<Channel> take(Handle handle);
    [[nodiscard]] std::vector<std::unique_ptr<Channel>> takeAll();

    /// How many channels are there to be heard, that is, do not only decode.
    [[nodiscard]] std::size_t audibleCount() const;

    /// How many of them were told to play and not stopped since.
    [[nodiscard]] std::size_t startedCount() const;

    /// The mixer does not use `feed` any more.
    void dropFeed(const Feed* feed);

    struct EffectPlace {
        Channel* channel = nullptr;
        std::size_t slot = 0;
    };

    /// Adds a filter to a channel that has room.
    [[nodiscard]] Handle addEffect(Channel& channel, const BASS_FXPARAMEQ& parameters);

    /// `channel` is null for a dead handle.
    [[nodiscard]] EffectPlace findEffect(Handle effect) const;

private:
    Handle lastHandle_ = kNoHandle;
    std::unordered_map<Handle, std::unique_ptr<Channel>> channels_;
    std::unordered_map<Handle, EffectPlace> effects_;
};

} // namespace tovik::sound
