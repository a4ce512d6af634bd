// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ByteStore.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::sound {
namespace {

class FileStore : public ByteStore {
public:
    explicit FileStore(int descriptor) noexcept : descriptor_(descriptor) {}

    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;

    ~FileStore() override { ::close(descriptor_); }

    [[nodiscard]] std::int64_t readAt(std::int64_t offset,
                                      std::span<std::byte> into) const noexcept override {
        ssize_t got = -1;
        do {
            got = ::pread(descriptor_, into.data(), into.size(), offset);
        } while (got < 0 && errno == EINTR);
        return got;
    }

    [[nodiscard]] std::int64_t size() const noexcept override {
        struct stat facts = {};
        return ::fstat(descriptor_, &facts) == 0 ? facts.st_size : -1;
    }

    [[nodiscard]] bool isPlainFile() const noexcept {
        struct stat facts = {};
        return ::fstat(descriptor_, &facts) == 0 && S_ISREG(facts.st_mode);
    }

private:
    int descriptor_;
};

class MemoryStore : public ByteStore {
public:
    explicit MemoryStore(std::span<const std::byte> bytes) : bytes_(bytes.begin(), bytes.end()) {}

    [[nodiscard]] std::int64_t readAt(std::int64_t offset,
                                      std::span<std::byte> into) const noexcept override {
        if (offset < 0 || offset >= size()) {
            return 0;
        }
        const std::size_t count =
            std::min(into.size(), bytes_.size() - static_cast<std::size_t>(offset));
        std::copy_n(bytes_.begin() + offset, count, into.begin());
        return static_cast<std::int64_t>(count);
    }

    [[nodiscard]] std::int64_t size() const noexcept override {
        return static_cast<std::int64_t>(bytes_.size());
    }

private:
    std::vector<std::byte> bytes_;
};

class PartStore : public ByteStore {
public:
    PartStore(std::shared_ptr<const ByteStore> whole, std::int64_t offset,
              std::int64_t bytes) noexcept
        : whole_(std::move(whole)), offset_(offset), bytes_(bytes) {}

    [[nodiscard]] std::int64_t readAt(std::int64_t offset,
                                      std::span<std::byte> into) const noexcept override {
        if (offset < 0 || offset >= bytes_) {
            return 0;
        }
        const auto left = static_cast<std::size_t>(bytes_ - offset);
        return whole_->readAt(offset_ + offset, into.first(std::min(into.size(), left)));
    }

    [[nodiscard]] std::int64_t size() const noexcept override {
        const std::int64_t whole = whole_->size();
        return whole < 0 ? whole : std::clamp<std::int64_t>(whole - offset_, 0, bytes_);
    }

private:
    std::shared_ptr<const ByteStore> whole_;
    std::int64_t offset_;
    std::int64_t bytes_;
};

} // namespace

std::shared_ptr<const ByteStore> openFile(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) {
        return nullptr;
    }
    // Without O_NONBLOCK the opening of a pipe would wait for a writer; plain files ignore it.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) {
        return nullptr;
    }
    auto store = std::make_shared<const FileStore>(descriptor);
    return store->isPlainFile() ? store : nullptr;
}

std::shared_ptr<const ByteStore> keepBytes(std::span<const std::byte> bytes) {
    return std::make_shared<const MemoryStore>(bytes);
}

std::shared_ptr<const ByteStore> partOf(std::shared_ptr<const ByteStore> store, std::int64_t offset,
                                        std::int64_t bytes) {
    return std::make_shared<const PartStore>(std::move(store), offset, bytes);
}

std::vector<std::byte> readBytes(const ByteStore& store, std::int64_t offset, std::size_t most) {
    std::vector<std::byte> bytes(most);
    std::size_t filled = 0;
    while (filled < most) {
        const std::int64_t got = store.readAt(offset + static_cast<std::int64_t>(filled),
                                              std::span(bytes).subspan(filled));
        if (got <= 0) {
            break;
        }
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

} // namespace tovik::sound
