// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/EngineCore.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace tovik::sound {

namespace {

static_assert(MixSource::kAheadBlock == kAheadBlockFrames);

/// A device that has taken nothing for this long stands still, whatever it says.
constexpr std::chrono::milliseconds kStandstill(200);

ErrorCode reason(OpenStatus status) {
    return status == OpenStatus::noFile ? ErrorCode::cannotOpenFile : ErrorCode::unsupportedFormat;
}

} // namespace

EngineCore::EngineCore(std::unique_ptr<OutputDevice> device, const EngineOptions& options)
    : remix_(device->mixesAhead() ? Remix::possible : Remix::never),
      openPatience_(options.openPatience), openFile_(options.openFile), net_(options.net),
      drives_(options.drives), observer_(options.observer), feeder_(options.feeder,
                                                                    [this] {
                                                                        if (mixer_.hungry()) {
                                                                            keeper_.wakeDevice();
                                                                        }
                                                                    }),
      keeper_(std::move(device), *this, options.keeperTimes) {}

EngineCore::~EngineCore() {
    feeder_.stop(); // it may wake the device, which goes first
}

void EngineCore::deviceLost() {
    if (observer_ != nullptr) {
        observer_->deviceLost();
    }
}

void EngineCore::deviceBack() {
    if (observer_ != nullptr) {
        observer_->deviceBack();
    }
}

bool EngineCore::initialize() {
    if (!keeper_.openNow(*this)) {
        return false;
    }
    initialized_ = true;
    setPaused(false);
    return true;
}

void EngineCore::shutDown() {
    for (auto& channel : channels_.takeAll()) {
        bury(std::move(channel));
    }
    initialized_ = false;
    updateDemand();
}

void EngineCore::setPaused(bool paused) {
    paused_ = paused;
    if (paused) {
        post(command::PauseOutput{});
    } else {
        post(command::ResumeOutput{});
    }
    updateDemand();
}

void EngineCore::updateDemand() {
    const bool wanted = initialized_ && channels_.audibleCount() > 0;
    // A channel that was only opened wants no silence: a device that queues it ahead would have to
    // play some of that before the channel's first sample.
    const bool sounds = !paused_ && channels_.startedCount() > 0;
    const Demand demand = !wanted ? Demand::idle : sounds ? Demand::running : Demand::paused;
    keeper_.want(demand);
    feeder_.setRunning(demand == Demand::running);
}

bool EngineCore::full() const {
    return channels_.audibleCount() + dying_.size() >= Mixer::kMaxVoices;
}

bool EngineCore::makeRoom() {
    if (full()) {
        mixer_.drain();
        collect();
    }
    return !full() || fail(ErrorCode::noFreeChannel);
}

/// Has the source opened; false, with the reason noted, when that is known not to be possible.
bool EngineCore::begin(Channel& channel, Answer answer) {
    if (channel.rip != nullptr) {
        return true; // it has begun by itself
    }
    feeder_.add(channel.source());
    if (answer == Answer::later) {
        return true;
    }
    const auto status = channel.source()->waitForAnswer(openPatience_);
    return status == OpenStatus::opened || fail(reason(status.value_or(OpenStatus::noFile)));
}

Handle EngineCore::add(std::unique_ptr<Channel> channel, Answer answer) {
    Channel& added = *channel;
    const bool begun = begin(added, answer);
    collect();
    if (!begun || !(added.isDecoding() || makeRoom())) {
        feeder_.retire(added.giveAwaySource());
        return kNoHandle;
    }
    if (!added.isDecoding()) {
        post(command::AddVoice{added.voice()});
    }
    const Handle handle = channels_.add(std::move(channel));
    updateDemand();
    succeed();
    return handle;
}

void EngineCore::start(Channel& channel) {
    channel.started = true;
    channel.feedUsed = true;
    post(command::StartVoice{channel.voice()});
    updateDemand();
}

void EngineCore::startBehind(Channel& next, const Channel& before) {
    next.started = true;
    next.feedUsed = true;
    post(command::StartBehind{next.voice(), before.voice()});
    updateDemand();
}

void EngineCore::stop(Channel& channel) {
    channel.started = false;
    if (channel.rip != nullptr) {
        return;
    }
    if (channel.isDecoding()) {
        channel.source()->seek(0);
        return;
    }
    post(command::StopVoice{channel.voice()});
    seek(channel, 0);
    updateDemand();
}

void EngineCore::seek(Channel& channel, std::int64_t frame) {
    if (channel.isDecoding()) {
        channel.source()->seek(frame);
        return;
    }
    if (channel.isReadyAt(frame)) {
        return;
    }
    const bool offline = feeder_.mode() == FeederMode::inCaller;
    Feed& feed = offline ? channel.beginFeed(frame) : channel.askForFeed(frame);
    feeder_.wake(*channel.source());
    post(command::SwitchFeed{channel.voice(), &feed});
}

void EngineCore::kill(Handle handle) {
    if (auto channel = channels_.take(handle); channel != nullptr) {
        bury(std::move(channel));
        updateDemand();
    }
}

void EngineCore::bury(std::unique_ptr<Channel> channel) {
    if (channel->net != nullptr) {
        channel->net->close();
    }
    channel->rip.reset();
    feeder_.retire(channel->giveAwaySource());
    if (channel->isDecoding()) {
        return;
    }
    Voice* voice = channel->voice();
    dying_.push_back(std::move(channel));
    post(command::RemoveVoice{voice});
}

std::int64_t EngineCore::heardClock() const {
    if (const auto heard = keeper_.heardClock()) {
        return *heard;
    }
    return mixer_.clock() - (keeper_.callbackRunning() ? keeper_.latencyFrames() : 0);
}

std::int64_t EngineCore::heardFrame(const Channel& channel) const {
    return channel.heardFrame(heardClock());
}

template <typename Done>
void EngineCore::waitForMixer(Done done) {
    auto last = std::chrono::steady_clock::now();
    std::int64_t clock = mixer_.clock();
    while (!done()) {
        // The callback answers with its next block, unless it stands still; a device that mixes
        // ahead when it is woken.
        const auto now = std::chrono::steady_clock::now();
        const bool offline = feeder_.mode() == FeederMode::inCaller;
        const bool standsStill = now - last > kStandstill;
        if (mixer_.clock() != clock) {
            clock = mixer_.clock();
            last = now;
        } else if (offline || !keeper_.callbackRunning() || standsStill) {
            if (mixer_.drain(standsStill ? Mixer::Force::yes : Mixer::Force::no)) {
                collect();
                continue;
            }
        }
        keeper_.wakeDevice();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void EngineCore::post(const Command& command) {
    collect();
    waitForMixer([&] { return mixer_.post(command); });
    if (keeper_.callbackRunning() || !mixer_.drain()) {
        keeper_.wakeDevice();
    } else {
        collect();
    }
}

void EngineCore::setCapture(FrameRing* ring) {
    post(command::SetCapture{ring});
    waitForMixer([this] { return mixer_.allTaken(); });
}

void EngineCore::collect() {
    Returned returned;
    while (mixer_.takeReturned(returned)) {
        drop(returned);
    }
}

void EngineCore::drop(const Returned& returned) {
    if (returned.voice != nullptr) {
        std::erase_if(dying_,
                      [&](const auto& channel) { return channel->voice() == returned.voice; });
        return;
    }
    const auto drops = [&](const auto& channel) { return channel->dropFeed(returned.feed); };
    if (std::ranges::none_of(dying_, drops)) {
        channels_.dropFeed(returned.feed);
    }
}

} // namespace tovik::sound
