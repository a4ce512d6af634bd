// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/StreamCalls.h"

#include <chrono>
#include <string>
#include <utility>

namespace tovik::sound {

namespace {

/// A scan for the exact length may hold up the start of a track for this long.
constexpr std::chrono::milliseconds kScanPatience(50);

ErrorCode reason(OpenStatus status) {
    return status == OpenStatus::noFile ? ErrorCode::cannotOpenFile : ErrorCode::unsupportedFormat;
}

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
    OpenResult opened = openDecoder(family, std::string(place.path), {.repeat = repeat});
    if (opened.status != OpenStatus::opened) {
        core_.fail(reason(opened.status));
        return kNoHandle;
    }
    auto channel =
        std::make_unique<Channel>(family, flags, std::move(opened.decoder), core_.remix());
    do {
        channel->source()->scan(kScanPatience);
    } while (core_.feederMode() == FeederMode::inCaller && channel->source()->lengthIsEstimate());
    return core_.add(std::move(channel));
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
