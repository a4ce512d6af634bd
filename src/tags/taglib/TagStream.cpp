// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/taglib/TagStream.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tovik::tags::taglib {

namespace {

std::string_view viewOf(const TagLib::ByteVector& data) {
    return {data.data(), data.size()};
}

} // namespace

TagStream::TagStream(TagBytes& bytes, std::string name, std::int64_t mostBytes, bool readOnly)
    : bytes_(bytes), name_(std::move(name)), left_(mostBytes), readOnly_(readOnly) {}

TagLib::ByteVector TagStream::readBlock(unsigned long length) {
    const auto there =
        static_cast<unsigned long>(std::max<std::int64_t>(bytes_.size() - position_, 0));
    length = std::min(length, there);
    if (length > static_cast<unsigned long>(left_)) {
        exhausted_ = true;
        length = static_cast<unsigned long>(left_);
    }
    const std::string bytes = bytes_.read(position_, length);
    position_ += static_cast<std::int64_t>(bytes.size());
    left_ -= static_cast<std::int64_t>(bytes.size());
    return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}

void TagStream::writeBlock(const TagLib::ByteVector& data) {
    insert(data, static_cast<unsigned long>(position_), data.size());
    position_ += data.size();
}

void TagStream::insert(const TagLib::ByteVector& data, unsigned long start, unsigned long replace) {
    if (!readOnly_) {
        bytes_.replace(static_cast<std::int64_t>(start), static_cast<std::int64_t>(replace),
                       viewOf(data));
    }
}

void TagStream::removeBlock(unsigned long start, unsigned long length) {
    insert({}, start, length);
}

void TagStream::seek(long offset, Position from) {
    const std::int64_t base = from == Beginning ? 0 : (from == Current ? position_ : bytes_.size());
    position_ = std::max<std::int64_t>(base + offset, 0);
}

void TagStream::truncate(long length) {
    if (length < bytes_.size()) {
        removeBlock(static_cast<unsigned long>(length),
                    static_cast<unsigned long>(bytes_.size() - length));
    }
}

} // namespace tovik::tags::taglib
