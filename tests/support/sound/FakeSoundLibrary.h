// SPDX-License-Identifier: GPL-3.0-or-later
// A sound library without sound: it knows the files that a test tells it of, keeps handles and
// positions as the real one does, and writes down what it was told to do. One thread.
#pragma once

#include "sound/SoundLibrary.h"
#include "support/sound/FakeDiscs.h"
#include "support/sound/FakeEncoders.h"
#include "support/sound/FakeStations.h"
#include "support/sound/FakeVisuals.h"

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tovik::test {

enum class FakeKind { stream, music, wma, flac, disc, station };

/// What a decoder finds in a file.
struct FakeFile {
    FakeKind kind = FakeKind::stream;
    double seconds = 0;
    int rate = 44100;
    int channels = 2;
    std::uint32_t formatFlags = 0;
    bool stalls = false; ///< its disk does not answer who opens it ahead
};

class FakeSoundLibrary final : public sound::SoundLibrary,
                               public FakeDiscs,
                               public FakeStations,
                               public FakeEncoders,
                               public FakeVisuals {
public:
    struct Channel {
        FakeFile file;
        std::uint32_t flags = 0;
        std::int64_t position = 0;
        sound::Activity activity = sound::Activity::stopped;
        int volume = 100;
        int pan = 0;
        std::int32_t level = 1; ///< left in the low word, right in the high one
    };

    struct Effect {
        sound::Handle channel = sound::kNoHandle;
        sound::BASS_FXPARAMEQ parameters;
    };

    // The world ----------------------------------------------------------------------------------

    std::map<std::string, FakeFile, std::less<>> files;
    std::map<std::uint32_t, FakeFile> discTracks;            ///< of drive 0, counted from 0
    std::map<sound::Handle, std::array<float, 256>> spectra; ///< what is heard of a channel
    std::uint32_t version = 2;
    sound::ErrorCode error = sound::ErrorCode::ok; ///< what is told of any operation
    bool hasDevice = true;
    std::vector<std::string> inputs = {"Stereo Out"};

    /// What is read of a channel that its caller reads, at a place of it.
    [[nodiscard]] static std::byte discByte(std::int64_t place) {
        return static_cast<std::byte>(place * 7 >> 3);
    }

    // What was done ------------------------------------------------------------------------------

    /// The operations that act, in order, such as "BASS_StreamPlay(1, 0, 0)"; those that only tell
    /// something are not among them, except for the version and the question for a WMA reader.
    std::vector<std::string> calls;

    /// A live channel, or a failure of the test.
    [[nodiscard]] Channel& channel(sound::Handle handle) { return channels_.at(handle); }

    [[nodiscard]] bool lives(sound::Handle handle) const { return channels_.contains(handle); }

    /// What was done with filters, in order, such as "BASS_FXSetParameters(1001, 60, 15, 0)".
    std::vector<std::string> effectCalls;

    /// The live filters. Their handles begin at 1001.
    std::map<sound::Handle, Effect> effects;

    /// The gains of a channel's filters in the order in which they were made.
    [[nodiscard]] std::vector<float> gains(sound::Handle channel) const;

    void setSeconds(sound::Handle handle, double seconds);

    /// Lets time pass for what plays. A stream ends at its length, a module begins anew.
    void elapse(std::int64_t milliseconds);

    int spectraRead = 0;
    bool initialized = false;
    bool paused = false;
    int masterVolume = 100;

    // The library --------------------------------------------------------------------------------

    std::uint32_t BASS_GetVersion() override {
        calls.emplace_back("BASS_GetVersion()");
        return version;
    }

    bool BASS_Init(int device, std::uint32_t freq, std::uint32_t flags, std::uintptr_t window,
                   std::uintptr_t clsid) override;
    bool BASS_Free() override;

    bool BASS_Start() override {
        calls.emplace_back("BASS_Start()");
        paused = false;
        return initialized;
    }

    bool BASS_Pause() override;
    bool BASS_Stop() override;
    bool BASS_SetVolume(int percent) override;
    bool BASS_GetInfo(sound::BASS_INFO& info) override;
    std::uint32_t BASS_SetConfig(std::uint32_t option, std::uint32_t value) override;

    sound::ErrorCode BASS_ErrorGetCode() override { return error; }

    sound::Handle BASS_StreamCreateFile(bool memory, std::string_view path, std::uint32_t offset,
                                        std::uint32_t length, std::uint32_t flags) override;
    sound::Handle BASS_MusicLoad(bool memory, std::string_view path, std::uint32_t offset,
                                 std::uint32_t length, std::uint32_t flags,
                                 std::uint32_t freq) override;
    sound::Handle BASS_WMA_StreamCreateFile(bool memory, std::string_view path,
                                            std::uint32_t offset, std::uint32_t length,
                                            std::uint32_t flags) override;
    sound::Handle BASS_FLAC_StreamCreateFile(bool memory, std::string_view path,
                                             std::uint32_t offset, std::uint32_t length,
                                             std::uint32_t flags) override;
    sound::Handle BASS_CD_StreamCreate(std::uint32_t drive, std::uint32_t track,
                                       std::uint32_t flags) override;
    sound::Handle openAhead(std::string_view path, bool repeats) override;
    std::uint32_t BASS_WMA_GetIWMReader(sound::Handle stream) override;
    bool BASS_StreamPlay(sound::Handle stream, bool flush, std::uint32_t flags) override;
    bool BASS_MusicPlay(sound::Handle music) override;
    bool BASS_StreamFree(sound::Handle stream) override;
    bool BASS_MusicFree(sound::Handle music) override;
    std::int64_t BASS_StreamGetLength(sound::Handle stream) override;
    std::int64_t BASS_MusicGetLength(sound::Handle music, bool playLength) override;

    std::int64_t BASS_ChannelGetPosition(sound::Handle handle) override;
    bool BASS_ChannelSetPosition(sound::Handle handle, std::int64_t bytes) override;
    double BASS_ChannelBytes2Seconds(sound::Handle handle, std::int64_t bytes) override;
    std::int64_t BASS_ChannelSeconds2Bytes(sound::Handle handle, double seconds) override;
    bool BASS_ChannelGetAttributes(sound::Handle handle, int& frequency, int& volume,
                                   int& pan) override;
    bool BASS_ChannelSetAttributes(sound::Handle handle, int frequency, int volume,
                                   int pan) override;
    bool BASS_ChannelSlideAttributes(sound::Handle handle, int frequency, int volume, int pan,
                                     std::uint32_t milliseconds) override;
    bool BASS_ChannelGetInfo(sound::Handle handle, sound::BASS_CHANNELINFO& info) override;
    std::int32_t BASS_ChannelGetLevel(sound::Handle handle) override;
    std::int32_t BASS_ChannelGetData(sound::Handle handle, void* buffer,
                                     std::uint32_t length) override;
    sound::Activity BASS_ChannelIsActive(sound::Handle handle) override;
    bool BASS_ChannelStop(sound::Handle handle) override;
    void crossfade(sound::Handle in, sound::Handle out, std::uint32_t milliseconds) override;
    bool playBehind(sound::Handle next, sound::Handle before) override;
    sound::Handle BASS_ChannelSetSync(sound::Handle handle, std::uint32_t type,
                                      std::int64_t parameter, sound::SyncRoutine routine,
                                      std::uintptr_t user) override;

    sound::Handle BASS_ChannelSetFX(sound::Handle handle, std::uint32_t type) override;
    bool BASS_FXGetParameters(sound::Handle effect, sound::BASS_FXPARAMEQ& parameters) override;
    bool BASS_FXSetParameters(sound::Handle effect,
                              const sound::BASS_FXPARAMEQ& parameters) override;

    bool BASS_RecordInit(int device) override;
    std::optional<std::string> BASS_RecordGetInputName(int index) override;
    bool BASS_RecordSetInput(std::uint32_t setting) override;
    sound::Handle BASS_RecordStart(std::uint32_t freq, std::uint32_t channels,
                                   sound::RecordRoutine routine, std::uintptr_t user) override;
    bool BASS_RecordFree() override;

protected:
    void noteCall(std::string call) override { calls.push_back(std::move(call)); }

    sound::Handle newHandle() override { return ++lastHandle_; }

    sound::Handle addStation(std::string_view url, std::uint32_t offset,
                             std::uint32_t flags) override;

private:
    [[nodiscard]] Channel* find(sound::Handle handle);
    [[nodiscard]] std::int32_t readSamples(sound::Handle handle, Channel& channel, std::byte* into,
                                           std::uint32_t length);
    [[nodiscard]] sound::Handle create(std::string_view path, FakeKind kind, std::uint32_t flags);
    [[nodiscard]] sound::Handle add(const FakeFile& file, std::uint32_t flags);
    bool play(sound::Handle handle, bool music);
    bool free(sound::Handle handle, bool music);

    void startFollower(sound::Handle before);

    std::map<sound::Handle, Channel> channels_;
    std::map<sound::Handle, sound::Handle> followers_; ///< by the channel that they wait for
    sound::Handle lastHandle_ = sound::kNoHandle;
    sound::Handle lastEffect_ = 1000;
};

} // namespace tovik::test
