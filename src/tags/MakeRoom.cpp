// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/MakeRoom.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace tovik::tags {

namespace {

using base::AtomicFile;
using base::RegularFile;

constexpr std::int64_t kPieceBytes = 262144;

/// Exactly these bytes; a file that became shorter is a failure.
std::error_code readPiece(const RegularFile& file, std::int64_t offset, std::int64_t count,
                          std::string& piece) {
    const std::error_code failure = file.readAt(offset, static_cast<std::size_t>(count), piece);
    if (failure || piece.size() == static_cast<std::size_t>(count)) {
        return failure;
    }
    return std::make_error_code(std::errc::io_error);
}

/// Whether a copy beside the file is out of the question there, and not only failed.
bool isForbidden(std::error_code failure) {
    constexpr std::array kForbidden{
        std::errc::permission_denied,
        std::errc::operation_not_permitted,
        std::errc::read_only_file_system,
    };
    return std::any_of(kForbidden.begin(), kForbidden.end(),
                       [failure](std::errc each) { return failure == each; });
}

std::error_code copyBeside(AtomicFile& copy, const RegularFile& file, std::int64_t count,
                           std::string_view front) {
    const auto length = static_cast<std::int64_t>(front.size());
    std::error_code failure = copy.write(front);
    if (!failure && length < count) {
        failure = copy.write(std::string(static_cast<std::size_t>(count - length), '\0'));
    }
    std::string piece;
    for (std::int64_t offset = std::max<std::int64_t>(length - count, 0);
         !failure && offset < file.size(); offset += kPieceBytes) {
        failure = readPiece(file, offset, std::min(kPieceBytes, file.size() - offset), piece);
        if (!failure) {
            failure = copy.write(piece);
        }
    }
    return failure ? failure : copy.commit(base::Flush::Yes);
}

/// A file of its own name in the folder for temporary files, removed with the object.
class TemporaryCopy {
public:
    TemporaryCopy() {
        std::error_code failure;
        path_ = (std::filesystem::temp_directory_path(failure) / "tovik-XXXXXX").native();
        const int descriptor = ::mkstemp(path_.data());
        made_ = descriptor >= 0;
        if (made_) {
            ::close(descriptor);
        }
    }

    ~TemporaryCopy() {
        if (made_) {
            ::unlink(path_.c_str());
        }
    }

    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
    bool made_ = false;
};

/// Copies `size` bytes from one file into another, `shift` bytes further on. From the end, so that
/// a full disk is met before anything is lost, and a file that was left half way still has all of
/// its bytes. `reached` is the offset in `from` down to which it came.
std::error_code copyBackwards(const RegularFile& from, RegularFile& into, std::int64_t size,
                              std::int64_t shift, std::int64_t& reached) {
    std::string piece;
    for (reached = size; reached > 0;) {
        const std::int64_t count = std::min(kPieceBytes, reached);
        std::error_code failure = readPiece(from, reached - count, count, piece);
        if (!failure) {
            failure = into.writeAt(reached - count + shift, piece);
        }
        if (failure) {
            return failure;
        }
        reached -= count;
    }
    return {};
}

/// For a file whose folder takes no new files: it keeps its place on the disk.
std::error_code moveWithin(RegularFile& file, std::int64_t count, std::string_view front) {
    const TemporaryCopy place;
    {
        AtomicFile writer(place.path());
        if (const std::error_code failure = copyBeside(writer, file, 0, {})) {
            return failure;
        }
    }
    const RegularFile copy(place.path(), RegularFile::Access::Read);
    if (copy.failure()) {
        return copy.failure();
    }
    std::int64_t reached = 0;
    std::error_code failure = copyBackwards(copy, file, file.size(), count, reached);
    if (!failure) {
        std::string start(front);
        start.resize(std::max(front.size(), static_cast<std::size_t>(count)), '\0');
        failure = file.writeAt(0, start);
    }
    if (failure) {
        // Back again; what fails here has no remedy, and the first failure is the one to tell.
        static_cast<void>(copyBackwards(copy, file, file.size(), 0, reached));
        static_cast<void>(file.resize(file.size()));
    }
    return failure;
}

} // namespace

std::error_code MakeRoom(const std::string& path, RegularFile& file, std::int64_t count,
                         std::string_view front) {
    std::error_code unknown; // then there is nothing to sweep
    base::sweepLeftovers(std::filesystem::canonical(path, unknown).parent_path().native());
    {
        AtomicFile copy(path);
        if (copy.keepsOwner()) {
            const std::error_code failure = copyBeside(copy, file, count, front);
            if (!isForbidden(failure)) {
                return failure;
            }
        }
    }
    return moveWithin(file, count, front);
}

} // namespace tovik::tags
