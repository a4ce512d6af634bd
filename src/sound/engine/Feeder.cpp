// SPDX-License-Identifier: GPL-3.0-or-later
// The feeder's thread decodes and scans files; it may block on a slow disk. It holds no lock of its
// own while it does so, and speaks to the mixer only through the feeds. It sleeps until the first
// feed has run down to its half, which it can compute, so it wakes about once a second while one
// track plays and not at all while nothing does.
#include "sound/engine/Feeder.h"

#include <pthread.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tovik::sound {

namespace {

constexpr std::chrono::milliseconds kScanSlice(20);

/// A feed that is short but has no room waits for the device.
constexpr std::chrono::milliseconds kShortestSleep(10);

} // namespace

Feeder::Feeder(FeederMode mode, std::function<void()> filled)
    : mode_(mode), filled_(std::move(filled)) {
    if (mode_ == FeederMode::ownThread) {
        thread_ = std::thread([this] { run(); });
    }
}

Feeder::~Feeder() {
    stop();
}

void Feeder::stop() {
    {
        const std::scoped_lock lock(mutex_);
        ending_ = true;
    }
    wakeUp_.notify_one();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void Feeder::add(std::shared_ptr<Source> source) {
    {
        const std::scoped_lock lock(mutex_);
        sources_.push_back(std::move(source));
        changed_ = true;
    }
    wakeUp_.notify_one();
}

void Feeder::retire(std::shared_ptr<Source> source) {
    if (mode_ == FeederMode::inCaller) {
        source->prepareFade();
        const std::scoped_lock lock(mutex_);
        std::erase(sources_, source);
        return;
    }
    {
        const std::scoped_lock lock(mutex_);
        std::erase(sources_, source);
        retired_.push_back(std::move(source));
        changed_ = true;
    }
    wakeUp_.notify_one();
}

void Feeder::wake() {
    {
        const std::scoped_lock lock(mutex_);
        changed_ = true;
    }
    wakeUp_.notify_one();
}

void Feeder::setRunning(bool running) {
    {
        const std::scoped_lock lock(mutex_);
        if (running_ == running) {
            return;
        }
        running_ = running;
        changed_ = true;
    }
    wakeUp_.notify_one();
}

void Feeder::fillTo(std::size_t frames) {
    Sources sources;
    {
        const std::scoped_lock lock(mutex_);
        sources = sources_;
    }
    for (const auto& source : sources) {
        source->fillTo(frames);
    }
}

bool Feeder::fillOnce(const Sources& sources) {
    bool more = false;
    for (const auto& source : sources) {
        more = source->fillSlice() || more;
    }
    return more;
}

bool Feeder::scanOnce(const Sources& sources) {
    const auto waiting = std::ranges::find_if(
        sources, [](const auto& source) { return source->lengthIsEstimate(); });
    if (waiting == sources.end()) {
        return false;
    }
    (*waiting)->scan(kScanSlice);
    return true;
}

void Feeder::sleep(std::unique_lock<std::mutex>& lock, const Sources& sources) {
    const auto stirred = [this] { return changed_ || ending_; };
    std::optional<std::chrono::milliseconds> soonest;
    for (const auto& source : sources) {
        if (const auto time = source->timeToRefill(); running_ && time) {
            soonest = std::min(soonest.value_or(*time), *time);
        }
    }
    if (soonest) {
        wakeUp_.wait_for(lock, std::max(*soonest, kShortestSleep), stirred);
    } else {
        wakeUp_.wait(lock, stirred);
    }
}

void Feeder::run() {
    ::pthread_setname_np(::pthread_self(), "feeder");
    std::unique_lock lock(mutex_);
    while (!ending_) {
        changed_ = false;
        Sources sources = sources_;
        Sources retired = std::exchange(retired_, {});
        lock.unlock();
        std::ranges::for_each(retired, [](const auto& source) { source->prepareFade(); });
        retired.clear();
        const bool filled = fillOnce(sources);
        if (filled && filled_) {
            filled_();
        }
        const bool busy = filled || scanOnce(sources);
        lock.lock();
        if (!busy && !changed_ && !ending_) {
            sleep(lock, sources);
        }
        // A source whose channel was freed meanwhile dies here, without a lock.
        lock.unlock();
        sources.clear();
        lock.lock();
    }
}

} // namespace tovik::sound
