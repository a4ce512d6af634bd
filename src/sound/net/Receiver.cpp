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

/// Types that say something of the sound.
bool isSoundType(std::string_view type) {
    return type.starts_with("audio/") || type.starts_with("video/") || type == "application/ogg";
}

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
    if (piece_) {
        return pieceHeadEnds();
    }
    filter_ = IcyFilter(head.metaInterval);
    if (kindOfAnswer(head.contentType, {}, false) != AnswerKind::list) {
        state_.begin(head);
    }
    return true;
}

/// The stream has no more of a head than that.
bool Receiver::pieceHeadEnds() {
    headers_.metaInterval = 0;
    headers_.kbps = 0;
    headers_.icy = false;
    if (!isSoundType(headers_.contentType)) {
        headers_.contentType = piece_->type;
    }
    return isPlaced() || refuse(StreamTrouble::broken);
}

bool Receiver::resumedHeadEnds() {
    const bool same = isPlaced() && (skip_ == 0 || reader_.headers().length == headers_.length);
    return same || refuse(StreamTrouble::broken);
}

/// Whether the body has the bytes that are wanted. A server that knows no ranges sends all.
bool Receiver::isPlaced() {
    const StationHeaders& head = reader_.headers();
    if (head.status == kPart && head.firstByte == next()) {
        skip_ = 0;
        return true;
    }
    skip_ = next();
    return head.status == kOk;
}

bool Receiver::body(std::span<const std::byte> bytes) {
    if (!isGood(reader_.headers().status)) {
        return refuse(StreamTrouble::httpError);
    }
    const auto skipped = static_cast<std::size_t>(std::min<std::uint64_t>(skip_, bytes.size()));
    skip_ -= skipped;
    bytes = bytes.subspan(skipped);
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
    // Blanks may stand before what tells it, but not without end.
    return decide(head_.size() >= kMostListBytes);
}

bool Receiver::decide(bool all) {
    // Of pieces the first bytes alone tell: some servers take ".ts" for texts.
    const std::string_view type = piece_ ? std::string_view() : headers_.contentType;
    const AnswerKind kind = kindOfAnswer(type, head_, all);
    if (kind == AnswerKind::unsure) {
        return true;
    }
    kind_ = kind;
    if (kind == AnswerKind::page || (piece_ && kind == AnswerKind::list)) {
        return refuse(StreamTrouble::notAudio);
    }
    if (kind == AnswerKind::list) {
        head_.resize(std::min(head_.size(), kMostListBytes));
        return head_.size() < kMostListBytes;
    }
    beginSound();
    const bool wanted = pass(std::as_bytes(std::span(head_)));
    head_ = {};
    return wanted;
}

void Receiver::beginSound() {
    if (!piece_) {
        state_.comesFrom(url_);
    } else if (piece_->begins) {
        StationHeaders head = headers_;
        head.length = piece_->live ? std::nullopt : std::optional<std::uint64_t>(0);
        state_.begin(head);
    }
}

void Receiver::finish() {
    if (!kind_ && !head_.empty()) {
        static_cast<void>(decide(true));
    }
}

bool Receiver::pass(std::span<const std::byte> bytes) {
    const bool limited = piece_ && piece_->bytes;
    if (limited) {
        const std::uint64_t left = *piece_->bytes - received_;
        bytes = bytes.first(static_cast<std::size_t>(std::min<std::uint64_t>(left, bytes.size())));
    }
    received_ += bytes.size();
    filter_.feed(bytes, *this);
    if (wanted_) {
        state_.rest();
    }
    return wanted_ && !(limited && received_ == *piece_->bytes);
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
    return kind_ == AnswerKind::sound && !headers_.live() && received_ < expected();
}

/// How long a file or a piece is, of those of which that is told.
std::uint64_t Receiver::expected() const noexcept {
    const std::uint64_t length = *headers_.length;
    if (!piece_) {
        return length;
    }
    const std::uint64_t before = headers_.status == kPart ? 0 : piece_->first;
    return std::min(length - std::min(length, before), piece_->bytes.value_or(length));
}

void Receiver::resume() {
    reader_ = {};
    trouble_ = StreamTrouble::none;
    resumed_ = true;
    wanted_ = true;
}

} // namespace tovik::sound
