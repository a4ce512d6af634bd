// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/EditedBytes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tovik::tags {

EditedBytes::EditedBytes(const std::string& path, base::RegularFile::Access access)
    : file_(std::make_unique<base::RegularFile>(path, access)), failure_(file_->failure()) {
    if (!failure_ && file_->size() > 0) {
        size_ = file_->size();
        pieces_.push_back({.added = false, .offset = 0, .length = size_});
    }
}

EditedBytes::EditedBytes(std::string bytes)
    : added_(std::move(bytes)), size_(static_cast<std::int64_t>(added_.size())) {
    if (size_ > 0) {
        pieces_.push_back({.added = true, .offset = 0, .length = size_});
    }
}

std::string EditedBytes::readPiece(const Piece& piece, std::int64_t from, std::int64_t count) {
    const std::int64_t offset = piece.offset + from;
    if (piece.added) {
        return added_.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(count));
    }
    std::string bytes;
    std::error_code failure = file_->readAt(offset, static_cast<std::size_t>(count), bytes);
    if (!failure && bytes.size() != static_cast<std::size_t>(count)) {
        failure = std::make_error_code(std::errc::io_error); // the file became shorter
    }
    if (failure && !failure_) {
        failure_ = failure;
    }
    return bytes;
}

std::string EditedBytes::read(std::int64_t offset, std::size_t count) {
    std::string bytes;
    if (offset < 0 || offset >= size_) {
        return bytes;
    }
    std::int64_t left = std::min(static_cast<std::int64_t>(std::min(count, std::size_t{INT32_MAX})),
                                 size_ - offset);
    std::int64_t begin = 0;
    for (const Piece& piece : pieces_) {
        const std::int64_t from = std::max(offset - begin, std::int64_t{0});
        begin += piece.length;
        if (left <= 0 || failure_) {
            break;
        }
        if (from < piece.length) {
            const std::int64_t length = std::min(left, piece.length - from);
            bytes += readPiece(piece, from, length);
            left -= length;
        }
    }
    return bytes;
}

/// The pieces of a range.
std::vector<EditedBytes::Piece> EditedBytes::cut(std::int64_t begin, std::int64_t end) const {
    std::vector<Piece> part;
    std::int64_t at = 0;
    for (const Piece& piece : pieces_) {
        const std::int64_t from = std::max(begin, at);
        const std::int64_t to = std::min(end, at + piece.length);
        if (from < to) {
            part.push_back(
                {.added = piece.added, .offset = piece.offset + from - at, .length = to - from});
        }
        at += piece.length;
    }
    return part;
}

void EditedBytes::replace(std::int64_t offset, std::int64_t count, std::string_view bytes) {
    if (offset < 0) {
        return;
    }
    std::string fresh(static_cast<std::size_t>(std::max(offset - size_, std::int64_t{0})), '\0');
    fresh += bytes;
    const std::int64_t begin = std::min(offset, size_);
    const std::int64_t end = begin + std::clamp(count, std::int64_t{0}, size_ - begin);
    edited_ = edited_ || !fresh.empty() || end > begin;
    std::vector<Piece> pieces = cut(0, begin);
    if (!fresh.empty()) {
        pieces.push_back({.added = true,
                          .offset = static_cast<std::int64_t>(added_.size()),
                          .length = static_cast<std::int64_t>(fresh.size())});
        added_ += fresh;
    }
    std::ranges::copy(cut(end, size_), std::back_inserter(pieces));
    pieces_ = std::move(pieces);
    size_ += static_cast<std::int64_t>(fresh.size()) - (end - begin);
}

std::error_code EditedBytes::copyTo(base::AtomicFile& file) {
    constexpr std::size_t kBlock = 262144;
    for (std::int64_t offset = 0; offset < size_; offset += static_cast<std::int64_t>(kBlock)) {
        const std::string block = read(offset, kBlock);
        if (failure_) {
            return failure_;
        }
        if (const std::error_code failure = file.write(block)) {
            return failure;
        }
    }
    return {};
}

} // namespace tovik::tags
