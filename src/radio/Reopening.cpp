// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/Reopening.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tovik::radio {

namespace {

constexpr std::array kDelaysMs = {1000, 2000, 4000, 8000, 16000, 30000};

} // namespace

Reopening::Reopening(host::TimerFactory& timers, std::function<void()> open)
    : open_(std::move(open)), timer_(timers.makeTimer([this] {
          timer_->setEnabled(false);
          open_();
      })) {}

void Reopening::lost() {
    if (due()) {
        return;
    }
    timer_->setInterval(kDelaysMs.at(std::min(attempts_, kDelaysMs.size() - 1)));
    timer_->setEnabled(true);
    ++attempts_;
}

void Reopening::callOff() {
    timer_->setEnabled(false);
    attempts_ = 0;
}

} // namespace tovik::radio
