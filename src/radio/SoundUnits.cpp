// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/SoundUnits.h"

#include "radio/FlacUnits.h"
#include "radio/FrameUnits.h"
#include "radio/OggUnits.h"

#include <algorithm>

namespace tovik::radio {

namespace {

/// No unit is that long: what waits so long belongs to nothing.
constexpr std::size_t kMostWaiting = std::size_t{2} << 20;

} // namespace

std::string UnitRule::headOf(std::string head, const std::string& /*artist*/,
                             const std::string& /*title*/) const {
    return head;
}

std::string UnitRule::titleOf(std::string_view /*head*/) const {
    return {};
}

std::unique_ptr<UnitRule> unitRuleOf(Bytes bytes) {
    if (OggUnits::begins(bytes)) {
        return std::make_unique<OggUnits>();
    }
    if (FlacUnits::begins(bytes)) {
        return std::make_unique<FlacUnits>();
    }
    auto frames = std::make_unique<FrameUnits>();
    if (frames->next(bytes, false).length > 0) {
        return frames;
    }
    return nullptr;
}

void SoundUnits::feed(Bytes bytes, const Take& take) {
    waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    if (rule_ == nullptr) {
        rule_ = unitRuleOf(waiting_);
    }
    if (rule_ == nullptr) {
        unknown_ = std::min(unknown_ + bytes.size(), kMostUnknown);
        if (isUnknown()) {
            begin_ += waiting_.size();
            waiting_.clear();
        }
        return;
    }
    const bool last = bytes.empty();
    Bytes rest = waiting_;
    while (!rest.empty()) {
        const UnitStep step = rule_->next(rest, last);
        rest = rest.subspan(step.skip);
        if (step.length == 0) {
            break;
        }
        take({.bytes = rest.first(step.length),
              .begin = begin_ + (waiting_.size() - rest.size()),
              .head = step.head,
              .fresh = step.fresh});
        rest = rest.subspan(step.length);
    }
    if (rest.size() > kMostWaiting) {
        rest = {};
    }
    const std::size_t done = waiting_.size() - rest.size();
    begin_ += done;
    waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(done));
}

} // namespace tovik::radio
