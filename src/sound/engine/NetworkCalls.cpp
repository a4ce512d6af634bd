// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/NetworkCalls.h"

#include <memory>
#include <utility>

namespace tovik::sound {

const Channel* NetworkCalls::living(Handle stream) {
    const Channel* const channel = core_.channels().find(stream);
    if (channel == nullptr || channel->net == nullptr) {
        core_.fail(channel == nullptr ? ErrorCode::invalidHandle : ErrorCode::notAvailable);
        return nullptr;
    }
    core_.succeed();
    return channel;
}

Handle NetworkCalls::BASS_StreamCreateURL(std::string_view url, std::uint32_t offset,
                                          std::uint32_t flags, DownloadRoutine routine,
                                          std::uintptr_t user) {
    if (!core_.initialized()) {
        core_.fail(ErrorCode::notInitialized);
        return kNoHandle;
    }
    if (offset != 0) {
        core_.fail(ErrorCode::illegalParameter);
        return kNoHandle;
    }
    // Who reads by himself, and a render, would wait for the network.
    if ((flags & BASS_STREAM_DECODE) != 0 || core_.feederMode() == FeederMode::inCaller) {
        core_.fail(ErrorCode::notAvailable);
        return kNoHandle;
    }
    auto net =
        std::make_shared<NetStream>(NetStream::Order{.url = std::string(url),
                                                     .titles = (flags & BASS_STREAM_META) != 0,
                                                     .routine = std::move(routine),
                                                     .user = user},
                                    core_.net());
    auto channel = std::make_unique<Channel>(
        FormatFamily::stream, flags | BASS_SAMPLE_FX,
        [net](const std::stop_token& calledOff) { return net->open(calledOff); }, core_.remix());
    channel->net = net;
    const Handle handle = core_.add(std::move(channel), Answer::later);
    if (handle == kNoHandle) {
        net->close();
    }
    return handle;
}

std::optional<std::string> NetworkCalls::BASS_StreamGetTags(Handle stream, std::uint32_t tags) {
    const Channel* const channel = living(stream);
    auto text = channel != nullptr ? channel->net->tags(tags) : std::nullopt;
    if (channel != nullptr && !text) {
        core_.fail(ErrorCode::notAvailable);
    }
    return text;
}

Handle NetworkCalls::BASS_ChannelSetSyncMeta(Handle stream, MetaRoutine routine,
                                             std::uintptr_t user) {
    const Channel* const channel = living(stream);
    if (channel == nullptr) {
        return kNoHandle;
    }
    channel->net->setMeta(std::move(routine), user);
    return core_.channels().newHandle();
}

std::optional<StreamReport> NetworkCalls::streamReport(Handle stream) {
    const Channel* const channel = living(stream);
    if (channel == nullptr) {
        return std::nullopt;
    }
    return channel->net->report(core_.heardFrame(*channel), channel->ended(core_.heardClock()));
}

} // namespace tovik::sound
