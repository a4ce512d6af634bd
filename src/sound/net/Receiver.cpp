// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/Receiver.h"

#include <algorithm>
#include <string_view>

namespace tovik::sound {
namespace {

constexpr int kOk = 200;
constexpr int kPart = 206;
constexpr int kFirstRedirect = 300;
constexpr int kFirstError = 400;

bool isGood(int status) {
    return status >= kOk && status < kFirstRedirect;
}

std::string_view asText(std::span<const std::byte> bytes) {
    return {static_cast<const char*>(static_cast<const void*>(bytes.data())), bytes.size()};
}

} // namespace

bool Receiver::refuse(StreamTrouble trouble) {
    trouble_ = trouble;
    return false;
}

bool Receiver::header(std::string_view line) {
    if (!reader_.add(line)) {
        return refuse(StreamTrouble::badAnswer);
    }
    return !line.empty() || headEnds();
}

bool Receiver::headEnds() {
    const StationHeaders& head = reader_.headers();
    state_.answered(head.status);
    if (head.status >= kFirstError) {
        return refuse(StreamTrouble::httpError);
    }
    if (!isGood(head.status)) {
        return true; // a redirect, or an interim answer
    }
    if (resumed_) {
        return resumedHeadEnds();
    }
    headers_ = head;
    filter_ = IcyFilter(head.metaInterval);
    if (kindOfAnswer(head.contentType, {}, false) != AnswerKind::list) {
        state_.begin(head);
    }
    return true;
}

bool Receiver::resumedHeadEnds() {
    const StationHeaders& head = reader_.headers();
    if (head.status == kPart && head.firstByte == received_) {
        skip_ = 0;
        return true;
    }
    // A server that knows no ranges sends all of it once more.
    skip_ = received_;
    const bool same = head.status == kOk && head.length == headers_.length;
    return same || refuse(StreamTrouble::broken);
}

bool Receiver::body(std::span<const std::byte> bytes) {
    if (!isGood(reader_.headers().status)) {
        return refuse(StreamTrouble::httpError);
    }
    if (resumed_) {
        const auto skipped = static_cast<std::size_t>(std::min<std::uint64_t>(skip_, bytes.size()));
        skip_ -= skipped;
        return pass(bytes.subspan(skipped));
    }
    if (kind_ == AnswerKind::sound) {
        return pass(bytes);
    }
    const std::size_t room = kMostListBytes - std::min(head_.size(), kMostListBytes);
    if (kind_ == AnswerKind::list) {
        head_.append(asText(bytes).substr(0, room));
        return head_.size() < kMostListBytes;
    }
    if (headers_.metaInterval > 0) {
        kind_ = AnswerKind::sound; // only a station has that, and its blocks stand in the way
        state_.comesFrom(url_);
        return pass(bytes);
    }
    head_.append(asText(bytes));
    return decide(false);
}

bool Receiver::decide(bool all) {
    const AnswerKind kind = kindOfAnswer(headers_.contentType, head_, all);
    if (kind == AnswerKind::unsure) {
        return true;
    }
    kind_ = kind;
    if (kind == AnswerKind::page) {
        return refuse(StreamTrouble::notAudio);
    }
    if (kind == AnswerKind::list) {
        head_.resize(std::min(head_.size(), kMostListBytes));
        return head_.size() < kMostListBytes;
    }
    state_.comesFrom(url_);
    const bool wanted = pass(std::as_bytes(std::span(head_)));
    head_ = {};
    return wanted;
}

void Receiver::finish() {
    if (!kind_ && !head_.empty()) {
        static_cast<void>(decide(true));
    }
}

bool Receiver::pass(std::span<const std::byte> bytes) {
    received_ += bytes.size();
    filter_.feed(bytes, *this);
    if (wanted_) {
        state_.rest();
    }
    return wanted_;
}

void Receiver::sound(std::span<const std::byte> bytes) {
    if (!wanted_) {
        return;
    }
    if (const auto found = state_.takeFoundMetadata()) {
        routines_.metadata(*found);
    }
    routines_.bytes(bytes);
    wanted_ = state_.put(bytes);
}

void Receiver::metadata(std::string_view text) {
    if (wanted_ && state_.metadataCame(text)) {
        routines_.metadata(text);
    }
}

bool Receiver::incomplete() const noexcept {
    return kind_ == AnswerKind::sound && !headers_.live() && received_ < *headers_.length;
}

void Receiver::resume() {
    reader_ = {};
    trouble_ = StreamTrouble::none;
    resumed_ = true;
    wanted_ = true;
}

} // namespace tovik::sound
