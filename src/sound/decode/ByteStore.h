// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of one file, on disk or in memory. Reading names its place, so that a decoder and a
// length scan share one open file, each on its own thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tovik::sound {

class ByteStore {
public:
    virtual ~ByteStore() = default;

    /// Reads at `offset`: the bytes read, 0 at or beyond the end, -1 when reading failed.
    [[nodiscard]] virtual std::int64_t readAt(std::int64_t offset,
                                              std::span<std::byte> into) const noexcept = 0;

    /// Size now; a file on disk may shrink or grow. -1 when it cannot be told.
    [[nodiscard]] virtual std::int64_t size() const noexcept = 0;
};

/// Opens a plain file by the bytes of its name; null for folders, pipes, devices, the empty name
/// and whatever may not be read.
[[nodiscard]] std::shared_ptr<const ByteStore> openFile(const std::string& path);

/// Keeps a copy of `bytes`.
[[nodiscard]] std::shared_ptr<const ByteStore> keepBytes(std::span<const std::byte> bytes);

/// The `bytes` bytes of `store` from `offset` on, as far as it holds them.
[[nodiscard]] std::shared_ptr<const ByteStore> partOf(std::shared_ptr<const ByteStore> store,
                                                      std::int64_t offset, std::int64_t bytes);

/// The bytes at `offset`, `most` at most; fewer when the store ends or fails before.
[[nodiscard]] std::vector<std::byte> readBytes(const ByteStore& store, std::int64_t offset,
                                               std::size_t most);

} // namespace tovik::sound
