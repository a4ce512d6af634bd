// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/EditedBytes.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace tovik::tags {

EditedBytes::EditedBytes(const std::string& path, base::RegularFile::Access access)
    : file_(std::make_unique<base::RegularFile>(path, access)), failure_(file_->failure()) {
    if (!failure_ && file_->size() > 0) {
        size_ = file_->size();
        pieces_[0] = {.added = false, .offset = 0, .length = size_};
    }
}

EditedBytes::EditedBytes(std::string bytes)
    : added_(std::move(bytes)), size_(static_cast<std::int64_t>(added_.size())) {
    if (size_ > 0) {
        pieces_[0] = {.added = true, .offset = 0, .length = size_};
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
    for (auto at = std::prev(pieces_.upper_bound(offset)); left > 0 && !failure_; ++at) {
        const auto& [begin, piece] = *at;
        const std::int64_t from = std::max(offset - begin, std::int64_t{0});
        const std::int64_t length = std::min(left, piece.length - from);
        bytes += readPiece(piece, from, length);
        left -= length;
    }
    return bytes;
}

/// Sees to it that a piece begins there, and finds it.
EditedBytes::Pieces::iterator EditedBytes::split(std::int64_t at) {
    const auto next = pieces_.lower_bound(at);
    if (next == pieces_.begin() || (next != pieces_.end() && next->first == at)) {
        return next;
    }
    auto& [begin, piece] = *std::prev(next);
    const std::int64_t left = at - begin;
    if (left >= piece.length) {
        return next; // the end
    }
    const Piece rest{
        .added = piece.added, .offset = piece.offset + left, .length = piece.length - left};
    piece.length = left;
    return pieces_.emplace_hint(next, at, rest);
}

void EditedBytes::shift(Pieces::iterator first, std::int64_t distance) {
    if (distance == 0) {
        return;
    }
    std::vector<std::pair<std::int64_t, Piece>> rest(first, pieces_.end());
    pieces_.erase(first, pieces_.end());
    for (const auto& [begin, piece] : rest) {
        pieces_.emplace_hint(pieces_.end(), begin + distance, piece);
    }
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
    split(begin);
    const auto behind = split(end);
    const auto behindOld = pieces_.erase(pieces_.lower_bound(begin), behind);
    const auto length = static_cast<std::int64_t>(fresh.size());
    shift(behindOld, length - (end - begin));
    if (length > 0) {
        pieces_[begin] = {
            .added = true, .offset = static_cast<std::int64_t>(added_.size()), .length = length};
        added_ += fresh;
    }
    size_ += length - (end - begin);
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
