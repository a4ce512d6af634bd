// SPDX-License-Identifier: GPL-3.0-or-later
// libpulse never blocks when it is used by one thread that owns its main loop, whatever the server
// does: so that thread serves the connection alone, and the owner of the device waits for it only
// as long as it likes.
#include "sound/output/PulseOutput.h"

#include <pthread.h>

#include <csignal>
#include <pulse/pulseaudio.h>
#include <utility>

namespace tovik::sound {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kOpenPatience(2000);
constexpr milliseconds kPausePatience(1000);

/// The sink's share of the queue, a safety margin, a block and the time between two changes.
constexpr int kReactionFrames = kMixRate * (100 + 10 + 12 + 20) / 1000;

/// Signals are for the thread that expects them.
void blockSignals() {
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

PulseOutput::PulseOutput(std::string deviceName) : deviceName_(std::move(deviceName)) {}

PulseOutput::~PulseOutput() {
    close();
}

bool PulseOutput::open(MixSource& source) {
    close();
    {
        const base::MutexLock lock(mutex_);
        request_ = Request::none;
        answer_ = Answer::none;
        opened_ = false;
    }
    serverFound_ = false;
    thread_ = std::thread([this, &source] { run(source); });
    if (ask(Request::none, kOpenPatience) != Answer::done) {
        close();
        return false;
    }
    return true;
}

void PulseOutput::close() {
    if (!thread_.joinable()) {
        return;
    }
    {
        const base::MutexLock lock(mutex_);
        opened_ = false;
    }
    static_cast<void>(ask(Request::end, milliseconds(0)));
    thread_.join();
}

void PulseOutput::setPaused(bool paused) {
    const auto done = ask(paused ? Request::pause : Request::resume, kPausePatience);
    if (done == Answer::none) {
        streamFailed();
    }
}

int PulseOutput::latencyFrames() const noexcept {
    return kReactionFrames;
}

std::optional<std::int64_t> PulseOutput::heardClock() const noexcept {
    return heard_.at(std::chrono::steady_clock::now());
}

PulseOutput::Answer PulseOutput::ask(Request request, milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    const base::MutexLock lock(mutex_);
    if (request != Request::none) {
        if (!opened_ && request != Request::end) {
            return Answer::failed; // lost, which was told
        }
        request_ = request;
        answer_ = Answer::none;
        wake_.raise();
    }
    while (answer_ == Answer::none && answered_.waitUntil(mutex_, deadline)) {
    }
    opened_ = opened_ || (request == Request::none && answer_ == Answer::done);
    return answer_;
}

void PulseOutput::answer(Answer answer) {
    const base::MutexLock lock(mutex_);
    answer_ = answer;
    answered_.notifyAll();
}

void PulseOutput::streamFailed() {
    bool lost = false;
    {
        const base::MutexLock lock(mutex_);
        lost = std::exchange(opened_, false);
        answer_ = Answer::failed;
        answered_.notifyAll();
    }
    if (lost && lost_) {
        lost_();
    }
}

void PulseOutput::woken() {
    wake_.take();
    Request request = Request::none;
    {
        const base::MutexLock lock(mutex_);
        request = std::exchange(request_, Request::none);
    }
    switch (request) {
    case Request::pause:
        stream_->pause();
        return;
    case Request::resume:
        stream_->resume();
        answer(Answer::done);
        return;
    case Request::end:
        pa_mainloop_quit(loop_, 0);
        return;
    case Request::none:
        stream_->changed();
        return;
    }
}

void PulseOutput::run(MixSource& source) {
    ::pthread_setname_np(::pthread_self(), "sound output");
    blockSignals();
    pa_mainloop* const loop = pa_mainloop_new();
    if (loop == nullptr) {
        streamFailed();
        return;
    }
    loop_ = loop;
    pa_mainloop_api* const api = pa_mainloop_get_api(loop);
    pa_io_event* const event = api->io_new(
        api, wake_.descriptor(), PA_IO_EVENT_INPUT,
        [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* user) {
            static_cast<PulseOutput*>(user)->woken();
        },
        this);
    {
        PulseStream stream(*api, deviceName_, source, heard_, *this);
        stream_ = &stream;
        stream.connect();
        pa_mainloop_run(loop, nullptr);
        stream_ = nullptr;
    }
    api->io_free(event);
    pa_mainloop_free(loop);
}

} // namespace tovik::sound
