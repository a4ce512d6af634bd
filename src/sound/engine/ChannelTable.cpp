// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/ChannelTable.h"

#include <algorithm>

namespace tovik::sound {

Handle ChannelTable::add(std::unique_ptr<Channel> channel) {
    const Handle handle = newHandle();
    channels_.emplace(handle, std::move(channel));
    return handle;
}

Channel* ChannelTable::find(Handle handle) const {
    const auto found = channels_.find(handle);
    return found != channels_.end() ? found->second.get() : nullptr;
}

Channel* ChannelTable::findStream(Handle handle) const {
    Channel* channel = find(handle);
    return channel != nullptr && !channel->isMusic() ? channel : nullptr;
}

Channel* ChannelTable::findMusic(Handle handle) const {
    Channel* channel = find(handle);
    return channel != nullptr && channel->isMusic() ? channel : nullptr;
}

std::unique_ptr<Channel> ChannelTable::take(Handle handle) {
    auto node = channels_.extract(handle);
    if (node.empty()) {
        return nullptr;
    }
    Channel* channel = node.mapped().get();
    std::erase_if(effects_, [channel](const auto& e) { return e.second.channel == channel; });
    return std::move(node.mapped());
}

std::vector<std::unique_ptr<Channel>> ChannelTable::takeAll() {
    std::vector<std::unique_ptr<Channel>> all;
    for (auto& [handle, channel] : channels_) {
        all.push_back(std::move(channel));
    }
    channels_.clear();
    effects_.clear();
    return all;
}

std::size_t ChannelTable::audibleCount() const {
    return static_cast<std::size_t>(std::ranges::count_if(
        channels_, [](const auto& entry) { return !entry.second->isDecoding(); }));
}

std::size_t ChannelTable::startedCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(channels_, [](const auto& entry) { return entry.second->started; }));
}

void ChannelTable::dropFeed(const Feed* feed) {
    for (const auto& [handle, channel] : channels_) {
        if (channel->dropFeed(feed)) {
            return;
        }
    }
}

Handle ChannelTable::addEffect(Channel& channel, const BASS_FXPARAMEQ& parameters) {
    const Handle handle = newHandle();
    const std::size_t slot = channel.effectCount++;
    channel.effects[slot] = {.handle = handle, .parameters = parameters};
    effects_.emplace(handle, EffectPlace{.channel = &channel, .slot = slot});
    return handle;
}

ChannelTable::EffectPlace ChannelTable::findEffect(Handle effect) const {
    const auto found = effects_.find(effect);
    return found != effects_.end() ? found->second : EffectPlace{};
}

} // namespace tovik::sound
