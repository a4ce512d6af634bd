// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/FakeSoundLibrary.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace tovik::test {

using sound::Activity;
using sound::Handle;

namespace {

constexpr int kKeep = -1;
constexpr std::int64_t kBytesPerSample = 2;

std::int64_t frameBytes(const FakeFile& file) {
    return kBytesPerSample * file.channels;
}

std::int64_t bytesOf(const FakeFile& file, double seconds) {
    return std::llround(seconds * file.rate) * frameBytes(file);
}

template <typename Value>
std::string shown(const Value& value) {
    if constexpr (std::is_convertible_v<Value, std::string_view>) {
        return std::string(value);
    } else if constexpr (std::is_floating_point_v<Value>) {
        std::string text = std::to_string(value);
        text.erase(text.find_last_not_of('0') + 1);
        return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
    } else {
        return std::to_string(value);
    }
}

/// "name(argument, ...)".
template <typename... Arguments>
std::string call(std::string name, const Arguments&... arguments) {
    name += "(";
    [[maybe_unused]] const char* separator = "";
    ((name += separator + shown(arguments), separator = ", "), ...);
    return name + ")";
}

} // namespace

FakeSoundLibrary::Channel* FakeSoundLibrary::find(Handle handle) {
    const auto found = channels_.find(handle);
    return found == channels_.end() ? nullptr : &found->second;
}

void FakeSoundLibrary::setSeconds(Handle handle, double seconds) {
    channel(handle).position = bytesOf(channel(handle).file, seconds);
}

void FakeSoundLibrary::elapse(std::int64_t milliseconds) {
    for (auto& [handle, channel] : channels_) {
        if (paused || channel.activity != Activity::playing) {
            continue;
        }
        const std::int64_t length = bytesOf(channel.file, channel.file.seconds);
        channel.position += milliseconds * channel.file.rate / 1000 * frameBytes(channel.file);
        if (channel.file.kind == FakeKind::station) {
            continue;
        }
        const bool loops =
            channel.file.kind == FakeKind::music && (channel.flags & sound::BASS_MUSIC_LOOP) != 0;
        if (channel.position >= length && loops) {
            channel.position -= length;
        } else if (channel.position >= length) {
            channel.position = length;
            channel.activity = Activity::stopped;
            startFollower(handle);
        }
    }
}

Handle FakeSoundLibrary::add(const FakeFile& file, std::uint32_t flags) {
    channels_[++lastHandle_] = {.file = file, .flags = flags};
    if ((flags & sound::BASS_STREAM_DECODE) != 0) {
        channel(lastHandle_).activity = Activity::playing;
    }
    return lastHandle_;
}

Handle FakeSoundLibrary::create(std::string_view path, FakeKind kind, std::uint32_t flags) {
    const auto found = files.find(path);
    return initialized && found != files.end() && found->second.kind == kind
               ? add(found->second, flags)
               : sound::kNoHandle;
}

bool FakeSoundLibrary::play(Handle handle, bool music) {
    Channel* const channel = find(handle);
    if (channel == nullptr || (channel->file.kind == FakeKind::music) != music) {
        return false;
    }
    channel->activity = Activity::playing;
    return true;
}

bool FakeSoundLibrary::free(Handle handle, bool music) {
    const Channel* const channel = find(handle);
    if (channel == nullptr || (channel->file.kind == FakeKind::music) != music) {
        return false;
    }
    std::erase_if(effects, [&](const auto& effect) { return effect.second.channel == handle; });
    stations.erase(handle);
    return channels_.erase(handle) == 1;
}

// The device --------------------------------------------------------------------------------------

bool FakeSoundLibrary::BASS_Init(int device, std::uint32_t freq, std::uint32_t flags,
                                 std::uintptr_t window, std::uintptr_t clsid) {
    calls.push_back(call("BASS_Init", device, freq, flags, window, clsid));
    if (initialized || !hasDevice) {
        return false;
    }
    paused = false;
    return initialized = true;
}

bool FakeSoundLibrary::BASS_Free() {
    calls.push_back(call("BASS_Free"));
    channels_.clear();
    stations.clear();
    effects.clear();
    return std::exchange(initialized, false);
}

bool FakeSoundLibrary::BASS_Pause() {
    calls.push_back(call("BASS_Pause"));
    return initialized && !std::exchange(paused, true);
}

bool FakeSoundLibrary::BASS_Stop() {
    calls.push_back(call("BASS_Stop"));
    for (auto& [handle, channel] : channels_) {
        channel.activity = Activity::stopped;
    }
    return initialized;
}

bool FakeSoundLibrary::BASS_SetVolume(int percent) {
    calls.push_back(call("BASS_SetVolume", percent));
    masterVolume = percent;
    return true;
}

bool FakeSoundLibrary::BASS_GetInfo(sound::BASS_INFO& info) {
    constexpr std::uint32_t kSize = 60;
    constexpr std::uint32_t kSystemVersion = 9;
    if (info.size != kSize) {
        return false;
    }
    info.dsver = kSystemVersion;
    return true;
}

std::uint32_t FakeSoundLibrary::BASS_SetConfig(std::uint32_t option, std::uint32_t value) {
    calls.push_back(call("BASS_SetConfig", option, value));
    return 0;
}

// Channels that are made and freed ----------------------------------------------------------------

Handle FakeSoundLibrary::BASS_StreamCreateFile(bool memory, std::string_view path,
                                               std::uint32_t offset, std::uint32_t length,
                                               std::uint32_t flags) {
    calls.push_back(call("BASS_StreamCreateFile", memory, path, offset, length, flags));
    return create(path, FakeKind::stream, flags);
}

Handle FakeSoundLibrary::BASS_MusicLoad(bool memory, std::string_view path, std::uint32_t offset,
                                        std::uint32_t length, std::uint32_t flags,
                                        std::uint32_t freq) {
    calls.push_back(call("BASS_MusicLoad", memory, path, offset, length, flags, freq));
    return create(path, FakeKind::music, flags);
}

Handle FakeSoundLibrary::BASS_WMA_StreamCreateFile(bool memory, std::string_view path,
                                                   std::uint32_t offset, std::uint32_t length,
                                                   std::uint32_t flags) {
    calls.push_back(call("BASS_WMA_StreamCreateFile", memory, path, offset, length, flags));
    return create(path, FakeKind::wma, flags);
}

Handle FakeSoundLibrary::BASS_FLAC_StreamCreateFile(bool memory, std::string_view path,
                                                    std::uint32_t offset, std::uint32_t length,
                                                    std::uint32_t flags) {
    calls.push_back(call("BASS_FLAC_StreamCreateFile", memory, path, offset, length, flags));
    return create(path, FakeKind::flac, flags);
}

Handle FakeSoundLibrary::openAhead(std::string_view path, bool repeats) {
    calls.push_back(call("openAhead", path, repeats));
    const auto found = files.find(path);
    // What does not open is as long as nothing.
    return add(found != files.end() ? found->second : FakeFile{},
               repeats ? sound::BASS_MUSIC_LOOP : 0);
}

Handle FakeSoundLibrary::BASS_CD_StreamCreate(std::uint32_t drive, std::uint32_t track,
                                              std::uint32_t flags) {
    calls.push_back(call("BASS_CD_StreamCreate", drive, track, flags));
    const auto found = discTracks.find(track);
    return drive == 0 && found != discTracks.end() ? add(found->second, flags) : sound::kNoHandle;
}

Handle FakeSoundLibrary::addStation(std::string_view url, std::uint32_t offset,
                                    std::uint32_t flags) {
    calls.push_back(call("BASS_StreamCreateURL", url, offset, flags));
    return initialized ? add({.kind = FakeKind::station}, flags) : sound::kNoHandle;
}

std::uint32_t FakeSoundLibrary::BASS_WMA_GetIWMReader(Handle stream) {
    calls.push_back(call("BASS_WMA_GetIWMReader", stream));
    const Channel* const channel = find(stream);
    return channel != nullptr && channel->file.kind == FakeKind::wma ? 1 : 0;
}

bool FakeSoundLibrary::BASS_StreamPlay(Handle stream, bool flush, std::uint32_t flags) {
    calls.push_back(call("BASS_StreamPlay", stream, flush, flags));
    return play(stream, false);
}

bool FakeSoundLibrary::BASS_MusicPlay(Handle music) {
    calls.push_back(call("BASS_MusicPlay", music));
    return play(music, true);
}

bool FakeSoundLibrary::BASS_StreamFree(Handle stream) {
    calls.push_back(call("BASS_StreamFree", stream));
    return free(stream, false);
}

bool FakeSoundLibrary::BASS_MusicFree(Handle music) {
    calls.push_back(call("BASS_MusicFree", music));
    return free(music, true);
}

std::int64_t FakeSoundLibrary::BASS_StreamGetLength(Handle stream) {
    const Channel* const channel = find(stream);
    if (channel == nullptr) {
        return 0;
    }
    return channel->file.kind == FakeKind::music ? -1
                                                 : bytesOf(channel->file, channel->file.seconds);
}

std::int64_t FakeSoundLibrary::BASS_MusicGetLength(Handle music, bool playLength) {
    const Channel* const channel = find(music);
    if (channel == nullptr || channel->file.kind != FakeKind::music) {
        return 0;
    }
    return playLength ? bytesOf(channel->file, channel->file.seconds) : 1;
}

// Channels that play ------------------------------------------------------------------------------

std::int64_t FakeSoundLibrary::BASS_ChannelGetPosition(Handle handle) {
    const Channel* const channel = find(handle);
    return channel == nullptr ? 0 : channel->position;
}

bool FakeSoundLibrary::BASS_ChannelSetPosition(Handle handle, std::int64_t bytes) {
    calls.push_back(call("BASS_ChannelSetPosition", handle, bytes));
    Channel* const channel = find(handle);
    if (channel == nullptr || bytes < 0 || bytes > bytesOf(channel->file, channel->file.seconds) ||
        error == sound::ErrorCode::invalidPosition) {
        return false;
    }
    channel->position = bytes;
    return true;
}

double FakeSoundLibrary::BASS_ChannelBytes2Seconds(Handle handle, std::int64_t bytes) {
    const Channel* const channel = find(handle);
    return channel == nullptr || bytes < 0
               ? 0
               : static_cast<double>(bytes) / static_cast<double>(frameBytes(channel->file)) /
                     channel->file.rate;
}

std::int64_t FakeSoundLibrary::BASS_ChannelSeconds2Bytes(Handle handle, double seconds) {
    const Channel* const channel = find(handle);
    if (channel == nullptr) {
        return 0;
    }
    return seconds < 0 ? -1 : bytesOf(channel->file, seconds);
}

bool FakeSoundLibrary::BASS_ChannelGetAttributes(Handle handle, int& frequency, int& volume,
                                                 int& pan) {
    const Channel* const channel = find(handle);
    if (channel == nullptr) {
        return false;
    }
    frequency = channel->file.rate;
    volume = channel->volume;
    pan = channel->pan;
    return true;
}

bool FakeSoundLibrary::BASS_ChannelSetAttributes(Handle handle, int frequency, int volume,
                                                 int pan) {
    calls.push_back(call("BASS_ChannelSetAttributes", handle, frequency, volume, pan));
    Channel* const channel = find(handle);
    if (channel == nullptr) {
        return false;
    }
    channel->volume = volume == kKeep ? channel->volume : volume;
    channel->pan = pan;
    return true;
}

bool FakeSoundLibrary::BASS_ChannelSlideAttributes(Handle handle, int frequency, int volume,
                                                   int pan, std::uint32_t milliseconds) {
    calls.push_back(
        call("BASS_ChannelSlideAttributes", handle, frequency, volume, pan, milliseconds));
    return lives(handle);
}

bool FakeSoundLibrary::BASS_ChannelGetInfo(Handle handle, sound::BASS_CHANNELINFO& info) {
    const Channel* const channel = find(handle);
    if (channel == nullptr) {
        return false;
    }
    info.freq = static_cast<std::uint32_t>(channel->file.rate);
    info.chans = static_cast<std::uint32_t>(channel->file.channels);
    info.flags = channel->flags | channel->file.formatFlags;
    return true;
}

std::int32_t FakeSoundLibrary::BASS_ChannelGetLevel(Handle handle) {
    const Channel* const channel = find(handle);
    if (channel == nullptr || paused) {
        return -1;
    }
    return channel->activity == Activity::stopped ? 0 : channel->level;
}

std::int32_t FakeSoundLibrary::BASS_ChannelGetData(Handle handle, void* buffer,
                                                   std::uint32_t length) {
    Channel* const read = find(handle);
    if (read != nullptr && (read->flags & sound::BASS_STREAM_DECODE) != 0) {
        return readSamples(handle, *read, static_cast<std::byte*>(buffer), length);
    }
    const auto found = spectra.find(handle);
    if (length != sound::BASS_DATA_FFT512 || found == spectra.end()) {
        return -1;
    }
    ++spectraRead;
    std::ranges::copy(found->second, static_cast<float*>(buffer));
    return static_cast<std::int32_t>(sizeof(found->second));
}

std::int32_t FakeSoundLibrary::readSamples(Handle handle, Channel& channel, std::byte* into,
                                           std::uint32_t length) {
    const std::int64_t end = bytesOf(channel.file, channel.file.seconds);
    const std::int64_t count = std::min<std::int64_t>(length, end - channel.position);
    for (std::int64_t i = 0; i < count; ++i) {
        into[i] = discByte(channel.position + i);
    }
    channel.position += count;
    if (channel.position == end) {
        channel.activity = Activity::stopped;
    }
    feedEncoder(handle, static_cast<std::size_t>(count));
    return static_cast<std::int32_t>(count);
}

Activity FakeSoundLibrary::BASS_ChannelIsActive(Handle handle) {
    const Channel* const channel = find(handle);
    return channel == nullptr ? Activity::stopped : channel->activity;
}

void FakeSoundLibrary::crossfade(Handle in, Handle out, std::uint32_t milliseconds) {
    calls.push_back(call("crossfade", in, out, milliseconds));
}

bool FakeSoundLibrary::playBehind(Handle next, Handle before) {
    calls.push_back(call("playBehind", next, before));
    Channel* const channel = find(next);
    if (channel == nullptr || find(before) == nullptr) {
        return false;
    }
    followers_[before] = next;
    return true;
}

void FakeSoundLibrary::startFollower(Handle before) {
    const auto waiting = followers_.extract(before);
    if (Channel* const next = waiting ? find(waiting.mapped()) : nullptr; next != nullptr) {
        next->activity = next->file.stalls        ? Activity::stalled
                         : next->file.seconds > 0 ? Activity::playing
                                                  : Activity::stopped;
    }
}

bool FakeSoundLibrary::BASS_ChannelStop(Handle handle) {
    calls.push_back(call("BASS_ChannelStop", handle));
    Channel* const channel = find(handle);
    if (channel == nullptr) {
        return false;
    }
    channel->activity = Activity::stopped;
    channel->position = 0;
    return true;
}

Handle FakeSoundLibrary::BASS_ChannelSetSync(Handle handle, std::uint32_t type,
                                             std::int64_t parameter, sound::SyncRoutine /*routine*/,
                                             std::uintptr_t user) {
    calls.push_back(call("BASS_ChannelSetSync", handle, type, parameter, user));
    return lives(handle) ? ++lastHandle_ : sound::kNoHandle;
}

// Recording ---------------------------------------------------------------------------------------

bool FakeSoundLibrary::BASS_RecordInit(int device) {
    calls.push_back(call("BASS_RecordInit", device));
    return device == 0;
}

std::optional<std::string> FakeSoundLibrary::BASS_RecordGetInputName(int index) {
    calls.push_back(call("BASS_RecordGetInputName", index));
    const auto place = static_cast<std::size_t>(index);
    return place < inputs.size() ? std::optional(inputs[place]) : std::nullopt;
}

bool FakeSoundLibrary::BASS_RecordSetInput(std::uint32_t setting) {
    calls.push_back(call("BASS_RecordSetInput", setting));
    return true;
}

Handle FakeSoundLibrary::BASS_RecordStart(std::uint32_t freq, std::uint32_t channels,
                                          sound::RecordRoutine /*routine*/, std::uintptr_t user) {
    calls.push_back(call("BASS_RecordStart", freq, channels, user));
    return ++lastHandle_;
}

bool FakeSoundLibrary::BASS_RecordFree() {
    calls.push_back(call("BASS_RecordFree"));
    return true;
}

// Filters -----------------------------------------------------------------------------------------

std::vector<float> FakeSoundLibrary::gains(Handle channel) const {
    std::vector<float> found;
    for (const auto& [handle, effect] : effects) {
        if (effect.channel == channel) {
            found.push_back(effect.parameters.fGain);
        }
    }
    return found;
}

Handle FakeSoundLibrary::BASS_ChannelSetFX(Handle handle, std::uint32_t type) {
    constexpr std::size_t kMost = 10;
    effectCalls.push_back(call("BASS_ChannelSetFX", handle, type));
    const Channel* const channel = find(handle);
    if (channel == nullptr || type != sound::BASS_FX_PARAMEQ || gains(handle).size() >= kMost ||
        (channel->file.kind != FakeKind::music && (channel->flags & sound::BASS_SAMPLE_FX) == 0)) {
        return sound::kNoHandle;
    }
    effects[++lastEffect_] = {.channel = handle, .parameters = {}};
    return lastEffect_;
}

bool FakeSoundLibrary::BASS_FXGetParameters(Handle effect, sound::BASS_FXPARAMEQ& parameters) {
    const auto found = effects.find(effect);
    if (found == effects.end()) {
        return false;
    }
    parameters = found->second.parameters;
    return true;
}

bool FakeSoundLibrary::BASS_FXSetParameters(Handle effect,
                                            const sound::BASS_FXPARAMEQ& parameters) {
    effectCalls.push_back(call("BASS_FXSetParameters", effect, parameters.fCenter,
                               parameters.fBandwidth, parameters.fGain));
    const auto found = effects.find(effect);
    if (found == effects.end()) {
        return false;
    }
    found->second.parameters = parameters;
    return true;
}

} // namespace tovik::test
