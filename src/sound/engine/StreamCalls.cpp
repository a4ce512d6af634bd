// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/StreamCalls.h"

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

namespace tovik::sound {

namespace {

/// Offline the exact length is waited for.
constexpr std::chrono::milliseconds kScanSlice(50);

} // namespace

Handle StreamCalls::create(FormatFamily family, const Place& place, std::uint32_t flags) {
    // A channel that only decodes needs no device, only the library.
    if (!core_.initialized()) {
        core_.fail(ErrorCode::notInitialized);
        return kNoHandle;
    }
    if (place.memory || place.offset != 0 || place.length != 0) {
        core_.fail(ErrorCode::illegalParameter);
        return kNoHandle;
    }
    const bool repeat = family == FormatFamily::music && (flags & BASS_MUSIC_LOOP) != 0;
    auto opener = [open = core_.openFile(), family, path = std::string(place.path),
                   repeat](const std::stop_token& /*calledOff*/) {
        return open(family, path, {.repeat = repeat});
    };
    auto channel = std::make_unique<Channel>(family, flags, std::move(opener), core_.remix());
    return add(std::move(channel), Answer::awaited);
}

Handle StreamCalls::add(std::unique_ptr<Channel> channel, Answer answer) {
    Channel& added = *channel;
    const Handle handle = core_.add(std::move(channel), answer);
    while (handle != kNoHandle && core_.feederMode() == FeederMode::inCaller &&
           added.source()->lengthIsEstimate()) {
        added.source()->scan(kScanSlice);
    }
    return handle;
}

Handle StreamCalls::BASS_StreamCreateFile(bool memory, std::string_view path, std::uint32_t offset,
                                          std::uint32_t length, std::uint32_t flags) {
    return create(FormatFamily::stream, {memory, path, offset, length}, flags);
}

Handle StreamCalls::BASS_MusicLoad(bool memory, std::string_view path, std::uint32_t offset,
                                   std::uint32_t length, std::uint32_t flags,
                                   std::uint32_t /*freq*/) {
    return create(FormatFamily::music, {memory, path, offset, length}, flags);
}

Handle StreamCalls::BASS_WMA_StreamCreateFile(bool memory, std::string_view path,
                                              std::uint32_t offset, std::uint32_t length,
                                              std::uint32_t flags) {
    return create(FormatFamily::wma, {memory, path, offset, length}, flags);
}

Handle StreamCalls::BASS_FLAC_StreamCreateFile(bool memory, std::string_view path,
                                               std::uint32_t offset, std::uint32_t length,
                                               std::uint32_t flags) {
    return create(FormatFamily::flac, {memory, path, offset, length}, flags);
}

Handle StreamCalls::openAhead(std::string_view path, bool repeats) {
    static constexpr std::array kInTurn = {FormatFamily::stream, FormatFamily::music,
                                           FormatFamily::wma, FormatFamily::flac};
    if (!core_.initialized()) {
        core_.fail(ErrorCode::notInitialized);
        return kNoHandle;
    }
    auto family = std::make_shared<std::atomic<FormatFamily>>(FormatFamily::stream);
    auto opener = [open = core_.openFile(), path = std::string(path), repeats,
                   family](const std::stop_token& calledOff) {
        OpenResult result;
        for (const FormatFamily asked : kInTurn) {
            result = open(asked, path, {.repeat = repeats && asked == FormatFamily::music});
            if (result.status == OpenStatus::opened) {
                family->store(asked, std::memory_order_release);
            }
            if (result.status == OpenStatus::opened || result.status == OpenStatus::noFile ||
                calledOff.stop_requested()) {
                break;
            }
        }
        return result;
    };
    return add(std::make_unique<Channel>(std::move(family), BASS_SAMPLE_FX, std::move(opener),
                                         core_.remix()),
               Answer::later);
}

std::uint32_t StreamCalls::BASS_WMA_GetIWMReader(Handle stream) {
    const Channel* channel = core_.channels().find(stream);
    if (channel == nullptr || channel->family() != FormatFamily::wma) {
        core_.fail(channel == nullptr ? ErrorCode::invalidHandle : ErrorCode::notAvailable);
        return 0;
    }
    core_.succeed();
    return stream;
}

bool StreamCalls::play(Channel* channel, bool fromStart) {
    if (channel == nullptr) {
        return core_.fail(ErrorCode::invalidHandle);
    }
    if (channel->isDecoding()) {
        return core_.fail(ErrorCode::decodingChannel);
    }
    if (fromStart || channel->ended(core_.heardClock())) {
        core_.seek(*channel, 0);
    }
    core_.start(*channel);
    return core_.succeed();
}

bool StreamCalls::BASS_StreamPlay(Handle stream, bool flush, std::uint32_t /*flags*/) {
    return play(core_.channels().findStream(stream), flush);
}

bool StreamCalls::BASS_MusicPlay(Handle music) {
    return play(core_.channels().findMusic(music), false);
}

bool StreamCalls::free(Handle handle, const Channel* channel) {
    if (channel == nullptr) {
        return core_.fail(ErrorCode::invalidHandle);
    }
    core_.kill(handle);
    return core_.succeed();
}

bool StreamCalls::BASS_StreamFree(Handle stream) {
    return free(stream, core_.channels().findStream(stream));
}

bool StreamCalls::BASS_MusicFree(Handle music) {
    return free(music, core_.channels().findMusic(music));
}

std::int64_t StreamCalls::lengthBytes(const Channel& channel) {
    core_.succeed();
    if (channel.net != nullptr) {
        return 0; // unknown
    }
    return channel.bytesFromFrames(channel.lengthFrames(core_.heardFrame(channel)));
}

std::int64_t StreamCalls::BASS_StreamGetLength(Handle stream) {
    const Channel* channel = core_.channels().find(stream);
    if (channel == nullptr) {
        core_.fail(ErrorCode::invalidHandle);
        return 0;
    }
    if (channel->isMusic()) {
        core_.fail(ErrorCode::invalidHandle);
        return -1;
    }
    return lengthBytes(*channel);
}

std::int64_t StreamCalls::BASS_MusicGetLength(Handle music, bool playLength) {
    const Channel* channel = core_.channels().findMusic(music);
    if (channel == nullptr) {
        core_.fail(ErrorCode::invalidHandle);
        return 0;
    }
    return playLength ? lengthBytes(*channel) : channel->source()->orders();
}

} // namespace tovik::sound
