// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipFile.h"

#include "base/Descriptor.h"
#include "base/FileErrors.h"
#include "base/LittleEndian.h"
#include "base/Mutex.h"
#include "sound/api/PcmHeader.h"

#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace tovik::cd {

namespace {

/// Six seconds of a disc.
constexpr std::size_t kMostBytes = std::size_t{1} << 20;

constexpr mode_t kMode = 0666;

/// What stands in the first 8 bytes of a WAV file is not counted in it.
constexpr std::int64_t kUncounted = 8;

std::error_code writeAt(int file, std::string_view bytes, std::size_t at) {
    while (!bytes.empty()) {
        const ssize_t count = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(at));
        if (count < 0 && errno != EINTR) {
            return base::lastSystemError();
        }
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
            at += static_cast<std::size_t>(count);
        }
    }
    return {};
}

std::error_code writeNumber(int file, std::int64_t number, std::size_t at) {
    std::string bytes;
    base::appendLittleEndian(bytes, static_cast<std::uint32_t>(number));
    return writeAt(file, bytes, at);
}

std::string_view textOf(std::span<const std::byte> bytes) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

struct RipFile::Shared {
    base::BlockQueue queue{kMostBytes};

    void run(const std::string& path, const std::string& head) {
        base::Descriptor file(
            ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode));
        std::error_code failure =
            file.open() ? writeAt(file.get(), head, 0) : base::lastSystemError();
        std::size_t place = head.size();
        while (!failure) {
            const std::optional<base::Block> block = queue.take();
            if (!block) {
                failure = finish(file.get());
                break;
            }
            failure = writeAt(file.get(), textOf(*block), place);
            place += block->size();
        }
        const std::error_code lost = file.close();
        failure = failure ? failure : lost;
        end(failure ? failure.message() : std::string());
    }

    void setSize(std::int64_t dataBytes) {
        const base::MutexLock lock(mutex_);
        size_ = dataBytes;
    }

    [[nodiscard]] std::optional<std::string> ended() const {
        const base::MutexLock lock(mutex_);
        return ended_;
    }

private:
    [[nodiscard]] std::error_code finish(int file) {
        std::optional<std::int64_t> size;
        {
            const base::MutexLock lock(mutex_);
            size = size_;
        }
        if (!size) {
            return {};
        }
        // Sizes that cannot be put right spoil no sample, so nothing is said of them.
        static_cast<void>(writeNumber(
            file, *size + static_cast<std::int64_t>(sound::kPcmHeaderBytes) - kUncounted,
            sound::kPcmFileSizeAt));
        static_cast<void>(writeNumber(file, *size, sound::kPcmDataSizeAt));
        return {};
    }

    void end(std::string failure) {
        queue.abandon();
        const base::MutexLock lock(mutex_);
        ended_ = std::move(failure);
    }

    mutable base::Mutex mutex_;
    std::optional<std::int64_t> size_ TOVIK_GUARDED_BY(mutex_);
    std::optional<std::string> ended_ TOVIK_GUARDED_BY(mutex_); ///< what failed; empty: nothing
};

RipFile::RipFile(const std::string& path, const std::string& head)
    : shared_(std::make_shared<Shared>()) {
    std::thread([shared = shared_, path, head] { shared->run(path, head); }).detach();
}

RipFile::~RipFile() {
    shared_->queue.close();
}

bool RipFile::takesMore() const {
    return shared_->queue.hasRoom();
}

void RipFile::write(std::span<const std::byte> samples) {
    shared_->queue.put(base::Block(samples.begin(), samples.end()));
}

void RipFile::close(std::int64_t dataBytes) {
    shared_->setSize(dataBytes);
    shared_->queue.close();
}

bool RipFile::ended() const {
    return shared_->ended().has_value();
}

std::string RipFile::failure() const {
    return shared_->ended().value_or(std::string());
}

} // namespace tovik::cd
