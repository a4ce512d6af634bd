// SPDX-License-Identifier: GPL-3.0-or-later
// One open stream of libFLAC, native or in Ogg, reading a ByteStore. One thread.
#pragma once

#include "sound/decode/StoreCursor.h"

#include <cstdint>
#include <FLAC/stream_decoder.h>
#include <memory>
#include <vector>

namespace tovik::sound::flac {

/// What the head of the stream says.
struct FlacInfo {
    int rate = 0;            ///< Hz
    int channels = 0;        ///< 1 to 8
    std::int64_t frames = 0; ///< 0: not told
};

/// Samples that follow each other, with all their channels.
struct FlacBlock {
    std::int64_t place = 0; ///< frame of the stream at which it begins
    std::size_t channels = 0;
    std::vector<float> samples; ///< interleaved

    [[nodiscard]] std::int64_t frames() const noexcept {
        return channels == 0 ? 0 : static_cast<std::int64_t>(samples.size() / channels);
    }

    [[nodiscard]] std::int64_t end() const noexcept { return place + frames(); }
};

class FlacStream {
public:
    /// Null when there is no stream with a sound head.
    [[nodiscard]] static std::unique_ptr<FlacStream> open(std::shared_ptr<const ByteStore> store,
                                                          bool inOgg);

    FlacStream(const FlacStream&) = delete;
    FlacStream& operator=(const FlacStream&) = delete;
    ~FlacStream();

    [[nodiscard]] const FlacInfo& info() const noexcept { return info_; }

    /// Decodes the next block; false at the end, again and again.
    [[nodiscard]] bool next();

    /// Goes to `frame`: `block` begins there. False when there is no such frame in the file; then
    /// only `rewind` leads on.
    [[nodiscard]] bool seek(std::int64_t frame);

    /// Goes back to the beginning, with no block yet.
    void rewind();

    /// What was decoded last.
    [[nodiscard]] const FlacBlock& block() const noexcept { return block_; }

private:
    struct Callbacks;

    explicit FlacStream(std::shared_ptr<const ByteStore> store) : cursor_(std::move(store)) {}

    [[nodiscard]] bool start(bool inOgg);
    void take(const FLAC__Frame& frame, const FLAC__int32* const* planes);

    StoreCursor cursor_;
    FLAC__StreamDecoder* decoder_ = nullptr;
    FlacInfo info_;
    FlacBlock block_;
    bool fresh_ = false; ///< a block came since this was last cleared
};

} // namespace tovik::sound::flac
