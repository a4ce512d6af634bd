// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ImgScroller.h"

#include "ui/BaseLetters.h"

#include <utility>

namespace tovik::ui {

ImgScroller::ImgScroller(host::TimerFactory& timers, Draw draw)
    : draw_(std::move(draw)), timer_(timers.makeTimer([this] { tick(); })) {
    timer_->setInterval(kIntervalMs);
}

void ImgScroller::setText(std::string_view text) {
    text_ = drawableCharacters(text);
    text_ += kSeparator;
    start_ = 0;
    timer_->setEnabled(false);
    timer_->setEnabled(true);
    draw_(shown());
}

std::u32string ImgScroller::shown() const {
    return text_.substr(start_) + text_.substr(0, start_);
}

void ImgScroller::tick() {
    start_ = (start_ + 1) % text_.size();
    draw_(shown());
}

} // namespace tovik::ui
