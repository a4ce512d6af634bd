// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Mailbox.h"

#include <algorithm>
#include <utility>

namespace tovik::app {

namespace {

constexpr int kLookMs = 10;

} // namespace

Mailbox::Mailbox(const host::Host& host)
    : host_(host), look_(host.timers.makeTimer([this] { look(); })) {
    look_->setInterval(kLookMs);
}

void Mailbox::open() {
    host_.messages.receive(
        [this](host::InstanceMessage message) { return keep(std::move(message)); });
}

void Mailbox::begin(Ready ready, CarryOut carryOut) {
    ready_ = std::move(ready);
    carryOut_ = std::move(carryOut);
    look_->setEnabled(!messages_.empty());
}

bool Mailbox::keep(host::InstanceMessage message) {
    if (messages_.size() >= kMost || host_.closing.ending()) {
        return false;
    }
    messages_.push_back(std::move(message));
    look_->setEnabled(static_cast<bool>(carryOut_));
    return true;
}

void Mailbox::look() {
    showWindow();
    while (!messages_.empty()) {
        // Anew for each: what is carried out may end the program.
        if (host_.closing.ending() || host_.pump.stepping() || !ready_()) {
            return;
        }
        const host::InstanceMessage message = std::move(messages_.front());
        messages_.pop_front();
        carryOut_(message);
    }
    look_->setEnabled(false);
}

void Mailbox::showWindow() {
    const auto isWish = [](const host::InstanceMessage& message) {
        return message.kind == host::InstanceMessageKind::toTheFront;
    };
    const auto last = std::find_if(messages_.rbegin(), messages_.rend(), isWish);
    if (last == messages_.rend()) {
        return;
    }
    const host::InstanceMessage wish = *last;
    std::erase_if(messages_, isWish);
    carryOut_(wish);
}

} // namespace tovik::app
