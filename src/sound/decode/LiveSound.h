// SPDX-License-Identifier: GPL-3.0-or-later
// Sound that comes in and cannot be sought in, as from a station: bytes are pulled on one side,
// blocks of samples come out on the other. One thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tovik::sound {

/// Where the bytes come from.
class LiveBytes {
public:
    virtual ~LiveBytes() = default;

    /// The next bytes, at least one; waits for them. 0 at the end, again and again.
    [[nodiscard]] virtual std::size_t read(std::span<std::byte> into) = 0;
};

/// Samples in the form of the moment: a station may change rate and channels at any time.
struct LiveBlock {
    std::span<const float> samples; ///< interleaved, until the next call; none at the end
    int rate = 0;                   ///< Hz
    int channels = 0;               ///< 1 or 2
    std::int64_t byte = 0;          ///< where its packet began, counted from the first byte pulled
};

class LiveSound {
public:
    virtual ~LiveSound() = default;

    /// The next block; waits for its bytes. Damaged parts are left out.
    [[nodiscard]] virtual LiveBlock next() = 0;

    /// Bits a second as the stream says; 0: it does not.
    [[nodiscard]] virtual std::int64_t bitRate() const noexcept = 0;

    /// "artist - title" as the stream itself tells when a new one began with the last block (Ogg);
    /// empty: none did.
    [[nodiscard]] virtual std::string takeTitle() = 0;
};

/// Opens a stream by its type (in lower case, without parameters) and first bytes; null when
/// nothing in it decodes. Waits for its bytes.
[[nodiscard]] std::unique_ptr<LiveSound> openLiveSound(std::shared_ptr<LiveBytes> bytes,
                                                       std::string_view contentType);

/// Loads what `openLiveSound` needs, so that this is done while a connection is made.
void prepareLiveSound();

} // namespace tovik::sound
