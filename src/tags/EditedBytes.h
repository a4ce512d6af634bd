// SPDX-License-Identifier: GPL-3.0-or-later
// A file with changes that are not written yet: what was put in is kept, the rest stays on the
// disk. One thread at a time.
#pragma once

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "tags/TagBytes.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace tovik::tags {

class EditedBytes final : public TagBytes {
public:
    /// A file; one that is not there, or no file, is told by `failure`.
    EditedBytes(const std::string& path, base::RegularFile::Access access);

    /// Bytes in memory.
    explicit EditedBytes(std::string bytes);

    /// The first thing that went wrong in opening or reading.
    [[nodiscard]] std::error_code failure() const noexcept { return failure_; }

    /// Whether anything was replaced.
    [[nodiscard]] bool edited() const noexcept { return edited_; }

    [[nodiscard]] std::int64_t size() const override { return size_; }

    [[nodiscard]] std::string read(std::int64_t offset, std::size_t count) override;
    void replace(std::int64_t offset, std::int64_t count, std::string_view bytes) override;

    /// Appends all bytes as they are now, piece by piece.
    [[nodiscard]] std::error_code copyTo(base::AtomicFile& file);

private:
    /// A run of bytes: of the file, or of what was put in.
    struct Piece {
        bool added;
        std::int64_t offset;
        std::int64_t length;
    };

    /// By where they begin.
    using Pieces = std::map<std::int64_t, Piece>;

    [[nodiscard]] std::string readPiece(const Piece& piece, std::int64_t from, std::int64_t count);
    Pieces::iterator split(std::int64_t at);
    void shift(Pieces::iterator first, std::int64_t distance);

    std::unique_ptr<base::RegularFile> file_;
    std::string added_;
    Pieces pieces_;
    std::int64_t size_ = 0;
    bool edited_ = false;
    std::error_code failure_;
};

} // namespace tovik::tags
