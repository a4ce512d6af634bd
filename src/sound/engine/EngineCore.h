// SPDX-License-Identifier: GPL-3.0-or-later
// What the families of operations share: the mixer and the machinery around it, the living
// channels, and the rules by which commands reach the mixer and freed things come back.
// Interface thread only, except what the device calls as its MixSource.
#pragma once

#include "sound/cd/Drives.h"
#include "sound/engine/Channel.h"
#include "sound/engine/ChannelTable.h"
#include "sound/engine/EngineOptions.h"
#include "sound/engine/Feeder.h"
#include "sound/mix/Mixer.h"
#include "sound/output/DeviceKeeper.h"
#include "sound/output/OutputDevice.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tovik::sound {

/// Does a new channel have to be open?
enum class Answer {
    awaited, ///< yes, within the patience of the options: what takes longer counts as no file
    later,   ///< no
};

class EngineCore final : public MixSource, private DeviceObserver {
public:
    EngineCore(std::unique_ptr<OutputDevice> device, const EngineOptions& options);
    ~EngineCore() override;
    EngineCore(const EngineCore&) = delete;
    EngineCore& operator=(const EngineCore&) = delete;

    // Errors ----------------------------------------------------------------------------------

    /// Notes why the running operation fails; always false, so that it can be returned.
    bool fail(ErrorCode code) noexcept {
        error_ = code;
        return false;
    }

    /// Notes success; always true.
    bool succeed() noexcept {
        error_ = ErrorCode::ok;
        return true;
    }

    [[nodiscard]] ErrorCode error() const noexcept { return error_; }

    // State -----------------------------------------------------------------------------------

    /// Opens the device (see DeviceKeeper::openNow).
    [[nodiscard]] bool initialize();

    /// Kills every channel; the device is left to its keeper.
    void shutDown();

    [[nodiscard]] bool initialized() const noexcept { return initialized_; }

    void setPaused(bool paused);

    [[nodiscard]] bool paused() const noexcept { return paused_; }

    [[nodiscard]] const DeviceKeeper& device() const noexcept { return keeper_; }

    [[nodiscard]] FeederMode feederMode() const noexcept { return feeder_.mode(); }

    /// Begins to open the device in the background.
    void warmUp() { keeper_.warmUp(*this); }

    /// How files are opened.
    [[nodiscard]] const auto& openFile() const noexcept { return openFile_; }

    /// How streams from the Internet are had.
    [[nodiscard]] const NetOptions& net() const noexcept { return net_; }

    /// The drives of audio CDs.
    [[nodiscard]] Drives& drives() noexcept { return drives_; }

    /// How long a create operation waits.
    [[nodiscard]] std::chrono::milliseconds openPatience() const noexcept { return openPatience_; }

    // Channels --------------------------------------------------------------------------------

    [[nodiscard]] ChannelTable& channels() noexcept { return channels_; }

    /// Has the channel opened and takes it into the mixer. Its handle, or 0 when it does not open
    /// (cannotOpenFile, unsupportedFormat) or there is no room (noFreeChannel). Who does not wait
    /// for the answer gets a handle at once: it is stalled until there are samples, and has ended
    /// when it does not open.
    [[nodiscard]] Handle add(std::unique_ptr<Channel> channel, Answer answer = Answer::awaited);

    void start(Channel& channel);

    /// Starts `next` with the frame behind the last one of `before`.
    void startBehind(Channel& next, const Channel& before);
    void stop(Channel& channel);
    void seek(Channel& channel, std::int64_t frame);
    void kill(Handle handle);

    /// What is heard of a channel, in its frames.
    [[nodiscard]] std::int64_t heardFrame(const Channel& channel) const;

    /// How far the mix is heard, by the mixer's clock.
    [[nodiscard]] std::int64_t heardClock() const;

    /// What channels have to be made for.
    [[nodiscard]] Remix remix() const noexcept { return remix_; }

    /// Hands a command to the mixer; carries it out at once when no callback runs.
    void post(const Command& command);

    /// The mix is also written to `ring` until told null; when it returns, the mixer has left the
    /// ring before alone for good.
    void setCapture(FrameRing* ring);

    // The device --------------------------------------------------------------------------------

    void mix(std::span<float> interleaved) noexcept override { mixer_.mix(interleaved); }

    void decodeAhead(std::size_t frames) override { feeder_.fillTo(frames); }

    std::int64_t beginAhead() noexcept override {
        mixer_.beginAhead();
        return mixer_.clock();
    }

    void mixAhead(std::span<float> interleaved) noexcept override { mixer_.mixAhead(interleaved); }

    void settle(std::int64_t heard) noexcept override { mixer_.settle(heard); }

    std::optional<std::int64_t> takeBack(std::int64_t earliest) noexcept override {
        return mixer_.takeBack(earliest);
    }

    void endAhead(std::int64_t heard) noexcept override { mixer_.endAhead(heard); }

private:
    [[nodiscard]] bool begin(Channel& channel, Answer answer);
    [[nodiscard]] bool makeRoom();
    [[nodiscard]] bool full() const;
    void deviceLost() override;
    void deviceBack() override;

    void callbackStopped() override { mixer_.fallSilent(); }

    template <typename Done>
    void waitForMixer(Done done);
    void bury(std::unique_ptr<Channel> channel);
    void collect();
    void drop(const Returned& returned);
    void updateDemand();

    ErrorCode error_ = ErrorCode::ok;
    bool initialized_ = false;
    bool paused_ = false;
    ChannelTable channels_;
    std::vector<std::unique_ptr<Channel>> dying_; ///< freed, but still fading out in the mixer
    const Remix remix_;
    const std::chrono::milliseconds openPatience_;
    const decltype(EngineOptions::openFile) openFile_;
    const NetOptions net_;
    Drives drives_;
    Mixer mixer_;
    DeviceObserver* observer_;
    Feeder feeder_;
    DeviceKeeper keeper_; ///< last: the device stops calling before anything else goes
};

} // namespace tovik::sound
