// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/SavedSong.h"

#include "base/FileErrors.h"
#include "base/FileName.h"
#include "base/PathText.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::radio {

namespace {

constexpr mode_t kMode = 0666;
constexpr int kMostNumbers = 10'000;

// Whatever stands there: nothing outside is reached by a link, and no pipe is waited for.
constexpr int kFlags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

std::error_code refusalOf(int descriptor) {
    struct stat status {};

    if (::fstat(descriptor, &status) != 0) {
        return base::lastSystemError();
    }
    return S_ISREG(status.st_mode) ? std::error_code()
                                   : std::make_error_code(std::errc::permission_denied);
}

} // namespace

std::error_code SavedSong::begin(const std::string& folder, std::string_view name,
                                 std::string_view ending, Names names, std::string_view head) {
    close();
    end_ = 0;
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    if (failure) {
        path_ = folder;
        return failure;
    }
    const bool numbered = names == Names::numbered;
    for (int number = 1; number <= kMostNumbers && !isOpen(); ++number) {
        path_ = base::joinPath(folder, base::numberedFileName(name, number, ending));
        file_ = base::Descriptor(
            ::open(path_.c_str(), kFlags | O_CREAT | (numbered ? O_EXCL : 0), kMode));
        failure = isOpen() ? refusalOf(file_.get()) : base::lastSystemError();
        if (failure && !(numbered && failure == std::errc::file_exists)) {
            break;
        }
    }
    if (!failure && ::ftruncate(file_.get(), 0) != 0) {
        failure = base::lastSystemError();
    }
    failure = failure ? failure : put(head, 0);
    end_ = static_cast<std::int64_t>(head.size());
    if (failure) {
        close();
    }
    return failure;
}

std::error_code SavedSong::goOn(const std::string& path, std::string_view tail) {
    path_ = path;
    file_ = base::Descriptor(::open(path.c_str(), kFlags));
    if (!isOpen()) {
        return base::lastSystemError();
    }
    if (const std::error_code refusal = refusalOf(file_.get())) {
        close();
        return refusal;
    }
    end_ = ::lseek(file_.get(), 0, SEEK_END);
    const std::int64_t place = end_ - static_cast<std::int64_t>(tail.size());
    std::string found(tail.size(), '\0');
    if (place > 0 &&
        ::pread(file_.get(), found.data(), found.size(), place) ==
            static_cast<ssize_t>(found.size()) &&
        found == tail) {
        end_ = place;
    }
    return {};
}

std::error_code SavedSong::write(std::span<const std::byte> sound, std::string_view tail) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    const std::string_view bytes(reinterpret_cast<const char*>(sound.data()), sound.size());
    std::error_code failure = put(bytes, end_);
    if (!failure) {
        end_ += static_cast<std::int64_t>(bytes.size());
        failure = put(tail, end_);
    }
    if (failure) {
        // Half a frame, or half a tail: the file ends with what was whole.
        static_cast<void>(::ftruncate(file_.get(), end_));
    }
    return failure;
}

std::error_code SavedSong::put(std::string_view bytes, std::int64_t at) const {
    while (!bytes.empty()) {
        const ssize_t count = ::pwrite(file_.get(), bytes.data(), bytes.size(), at);
        if (count < 0 && errno != EINTR) {
            return base::lastSystemError();
        }
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
            at += count;
        }
    }
    return {};
}

} // namespace tovik::radio
