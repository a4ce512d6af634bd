// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/FallbackOutput.h"

#include <utility>

namespace tovik::sound {

FallbackOutput::FallbackOutput(std::unique_ptr<OutputDevice> first, Maker second)
    : first_(std::move(first)), makeSecond_(std::move(second)), current_(first_.get()) {}

bool FallbackOutput::open(MixSource& source) {
    if (decided_) {
        return current_.load()->open(source);
    }
    current_ = first_.get();
    if (!first_->open(source)) {
        if (second_ == nullptr) {
            second_ = makeSecond_();
            if (second_ == nullptr) {
                return false;
            }
            second_->onLost(lost_);
            second_->onArrival(arrival_);
        }
        if (!second_->open(source)) {
            return false;
        }
        current_ = second_.get();
    }
    decided_ = true;
    return true;
}

void FallbackOutput::close() {
    current_.load()->close();
}

void FallbackOutput::setPaused(bool paused) {
    current_.load()->setPaused(paused);
}

int FallbackOutput::latencyFrames() const noexcept {
    return current_.load()->latencyFrames();
}

bool FallbackOutput::opensPaused() const noexcept {
    return current_.load()->opensPaused();
}

std::optional<std::int64_t> FallbackOutput::heardClock() const noexcept {
    return current_.load()->heardClock();
}

void FallbackOutput::wake() noexcept {
    current_.load()->wake();
}

void FallbackOutput::onLost(std::function<void()> routine) {
    lost_ = std::move(routine);
    first_->onLost(lost_);
}

void FallbackOutput::onArrival(std::function<void()> routine) {
    arrival_ = std::move(routine);
    first_->onArrival(arrival_);
}

} // namespace tovik::sound
