// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/InstanceMessage.h"

#include "base/LittleEndian.h"

#include <algorithm>

namespace tovik::host {

using Kind = InstanceMessageKind;

namespace {

Kind kindOf(std::string_view record) {
    return Kind{base::littleEndian<std::uint32_t>(base::bytesOf(record), 0)};
}

std::uint32_t lengthOf(std::string_view record) {
    return base::littleEndian<std::uint32_t>(base::bytesOf(record), sizeof(std::uint32_t));
}

std::size_t longestOf(Kind kind) {
    switch (kind) {
    case Kind::file:
        return kPathBuffer - 1;
    case Kind::commandLine:
        return kLongestLine;
    case Kind::longFile:
    case Kind::toTheFront:
        break;
    }
    return kLongestText;
}

} // namespace

InstanceMessage handOver(std::string_view path) {
    return {path.size() < kPathBuffer ? Kind::file : Kind::longFile, std::string(path)};
}

std::string recordOf(const InstanceMessage& message) {
    const bool buffered = message.kind == Kind::file;
    std::string text = message.text.substr(0, longestOf(message.kind));
    std::string record;
    base::appendLittleEndian(record, static_cast<std::uint32_t>(message.kind));
    base::appendLittleEndian(record, static_cast<std::uint32_t>(text.size() + (buffered ? 1 : 0)));
    if (buffered) {
        text.resize(kPathBuffer, '\0');
    }
    return record + text;
}

InstanceRecord::State InstanceRecord::judgeHead() {
    const std::size_t length = lengthOf(bytes_);
    switch (kindOf(bytes_)) {
    case Kind::file:
        size_ = kHead + kPathBuffer;
        return length <= kPathBuffer ? State::unfinished : State::broken;
    case Kind::longFile:
    case Kind::commandLine:
    case Kind::toTheFront:
        size_ = kHead + length;
        return length <= longestOf(kindOf(bytes_)) ? State::unfinished : State::broken;
    }
    return State::broken;
}

InstanceRecord::State InstanceRecord::take(std::string_view bytes) {
    while (state_ == State::unfinished) {
        const std::size_t part = std::min(bytes.size(), size_ - bytes_.size());
        bytes_ += bytes.substr(0, part);
        bytes.remove_prefix(part);
        if (bytes_.size() < size_) {
            break;
        }
        const bool headOnly = size_ == kHead;
        state_ = headOnly ? judgeHead() : State::whole;
        if (headOnly && state_ == State::unfinished && size_ == kHead) {
            state_ = State::whole; // it has no text
        }
    }
    return state_;
}

InstanceMessage InstanceRecord::message() const {
    const std::string_view text = std::string_view(bytes_).substr(kHead, lengthOf(bytes_));
    return {kindOf(bytes_), std::string(text.substr(0, text.find('\0')))};
}

} // namespace tovik::host
