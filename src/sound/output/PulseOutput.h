// SPDX-License-Identifier: GPL-3.0-or-later
// The real device: PulseAudio or PipeWire through libpulse. Opened, paused and closed by one
// thread; the mix is taken on a thread of its own, which lives while the device is open.
#pragma once

#include "base/Mutex.h"
#include "sound/output/HeardClock.h"
#include "sound/output/OutputDevice.h"
#include "sound/output/PulseStream.h"
#include "sound/output/WakeEvent.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

struct pa_mainloop;

namespace tovik::sound {

class PulseOutput final : public OutputDevice, private PulseListener {
public:
    /// The sink with this name or description, one of `listDevices`; the server's default if it is
    /// empty. Nothing is asked of the server before `open`.
    explicit PulseOutput(std::string deviceName = {});
    ~PulseOutput() override;

    PulseOutput(const PulseOutput&) = delete;
    PulseOutput& operator=(const PulseOutput&) = delete;

    /// The descriptions of the server's sinks; empty when there is no server, or none that answers
    /// within two seconds.
    [[nodiscard]] static std::vector<std::string> listDevices();

    /// True when the last `open` found a server, whether or not it could be used. On the thread
    /// that opens.
    [[nodiscard]] bool serverFound() const noexcept { return serverFound_; }

    /// Takes some milliseconds; two seconds with a server that does not answer.
    bool open(MixSource& source) override;
    void close() override;

    /// Pausing waits for the server, a second at most; one that does not answer is lost.
    void setPaused(bool paused) override;

    /// From a change to its sounding at the latest.
    [[nodiscard]] int latencyFrames() const noexcept override;

    [[nodiscard]] bool mixesAhead() const noexcept override { return true; }

    [[nodiscard]] bool opensPaused() const noexcept override { return true; }

    [[nodiscard]] std::optional<std::int64_t> heardClock() const noexcept override;

    void wake() noexcept override { wake_.raise(); }

    void onLost(std::function<void()> routine) override { lost_ = std::move(routine); }

    /// A server that comes back is not noticed: the routine is not called.
    void onArrival(std::function<void()> /*routine*/) override {}

private:
    enum class Request { none, pause, resume, end };
    enum class Answer { none, done, failed };

    void run(MixSource& source);
    void woken();
    [[nodiscard]] Answer ask(Request request, std::chrono::milliseconds patience);
    void answer(Answer answer);

    void serverAccepted() override { serverFound_ = true; }

    void streamReady() override { answer(Answer::done); }

    void streamPaused() override { answer(Answer::done); }

    void streamFailed() override;

    const std::string deviceName_;
    std::function<void()> lost_;
    HeardClock heard_;
    WakeEvent wake_;
    std::atomic<bool> serverFound_ = false;

    base::Mutex mutex_;
    Request request_ TOVIK_GUARDED_BY(mutex_) = Request::none;
    Answer answer_ TOVIK_GUARDED_BY(mutex_) = Answer::none;
    bool opened_ TOVIK_GUARDED_BY(mutex_) = false; // a loss is to be reported
    base::Condition answered_;

    pa_mainloop* loop_ = nullptr;   // of the thread, like the next one
    PulseStream* stream_ = nullptr; // while the loop runs
    std::thread thread_;
};

} // namespace tovik::sound
