// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a file as TagLib wants to see them. One thread at a time.
#pragma once

#include "tags/TagBytes.h"

#include <taglib/tiostream.h>

#include <cstdint>
#include <string>

namespace tovik::tags::taglib {

/// Reads no more than a given number of bytes in all: what a damaged file says of its sizes costs
/// neither time nor memory without end.
class TagStream final : public TagLib::IOStream {
public:
    /// The bytes outlive it. `name` tells the format where they do not; empty: it does not.
    TagStream(TagBytes& bytes, std::string name, std::int64_t mostBytes, bool readOnly);

    /// More was asked for than it gives.
    [[nodiscard]] bool exhausted() const noexcept { return exhausted_; }

    [[nodiscard]] TagLib::FileName name() const override { return name_.c_str(); }

    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector& data) override;
    void insert(const TagLib::ByteVector& data, unsigned long start,
                unsigned long replace) override;
    void removeBlock(unsigned long start, unsigned long length) override;

    [[nodiscard]] bool readOnly() const override { return readOnly_; }

    [[nodiscard]] bool isOpen() const override { return true; }

    void seek(long offset, Position from) override;

    [[nodiscard]] long tell() const override { return position_; }

    long length() override { return bytes_.size(); }

    void truncate(long length) override;

private:
    TagBytes& bytes_;
    std::string name_;
    std::int64_t left_;
    std::int64_t position_ = 0;
    bool readOnly_;
    bool exhausted_ = false;
};

} // namespace tovik::tags::taglib
