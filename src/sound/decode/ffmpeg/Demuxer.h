// SPDX-License-Identifier: GPL-3.0-or-later
// One open file of a known container: the packets of its first audio stream. One thread at a time.
#pragma once

#include "sound/decode/ffmpeg/ByteReader.h"

#include <string>

namespace tovik::sound::ffmpeg {

/// What is read.
enum class Reach {
    whole, ///< a file, whose head may be long
    live,  ///< a stream: what comes later is waited for
};

class Demuxer {
public:
    /// Reads the head of `store` as `format`; null if that fails or there is no audio in it.
    [[nodiscard]] static std::unique_ptr<Demuxer> open(std::shared_ptr<const ByteStore> store,
                                                       const AVInputFormat& format,
                                                       Reach reach = Reach::whole);

    /// The audio stream: parameters, time base, start time, duration.
    [[nodiscard]] const AVStream& stream() const noexcept { return *stream_; }

    /// The next packet of the audio stream; false at the end or where the file cannot be read.
    [[nodiscard]] bool read(AVPacket& packet) noexcept;

    /// Goes to the last place at or before `pts` (in units of the stream) that it can find.
    [[nodiscard]] bool seek(std::int64_t pts) noexcept;

    /// "artist - title" when the stream told a new one since the last call; else empty.
    [[nodiscard]] std::string takeTitle();

private:
    explicit Demuxer(std::shared_ptr<const ByteStore> store) : reader_(std::move(store)) {}

    [[nodiscard]] bool start(const AVInputFormat& format, Reach reach);

    ByteReader reader_; // outlives the context that reads through it
    FormatPtr context_;
    AVStream* stream_ = nullptr; ///< of the context
};

} // namespace tovik::sound::ffmpeg
