// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Feeder.h"

#include <utility>

namespace tovik::sound {

Feeder::Feeder(FeederMode mode, std::function<void()> filled) : mode_(mode) {
    if (mode_ == FeederMode::ownThread) {
        readers_.emplace(std::move(filled));
    }
}

void Feeder::add(std::shared_ptr<Source> source) {
    if (readers_) {
        readers_->add(std::move(source));
        return;
    }
    source->begin();
    const base::MutexLock lock(mutex_);
    sources_.push_back(std::move(source));
}

void Feeder::retire(std::shared_ptr<Source> source) {
    if (readers_) {
        readers_->retire(*source);
        return;
    }
    source->prepareFade();
    const base::MutexLock lock(mutex_);
    std::erase(sources_, source);
}

void Feeder::stop() {
    if (readers_) {
        readers_->stop();
    }
}

void Feeder::wake(const Source& source) {
    if (readers_) {
        readers_->wake(source);
    }
}

void Feeder::setRunning(bool running) {
    if (readers_) {
        readers_->setRunning(running);
    }
}

void Feeder::fillTo(std::size_t frames) {
    std::vector<std::shared_ptr<Source>> sources;
    {
        const base::MutexLock lock(mutex_);
        sources = sources_;
    }
    for (const auto& source : sources) {
        source->fillTo(frames);
    }
}

} // namespace tovik::sound
