// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of every format that FFmpeg reads for us. It lays the decoded frames on a time line
// by their time stamps: holes become silence, and a seek stands at the exact frame. One thread at a
// time.
#pragma once

#include "sound/decode/ffmpeg/Formats.h"
#include "sound/decode/ffmpeg/FrameSource.h"
#include "sound/decode/ffmpeg/SampleConverter.h"
#include "sound/decode/ffmpeg/TimeLine.h"

namespace tovik::sound::ffmpeg {

/// What a decoder is made of, as `openFfmpeg` found it.
struct OpenedSource {
    std::shared_ptr<const ByteStore> store;
    const AVInputFormat* demuxer;
    const Format* format;
    std::unique_ptr<FrameSource> frames;
};

class FfmpegDecoder : public Decoder {
public:
    explicit FfmpegDecoder(OpenedSource source) noexcept;

    /// Decodes the first frame, which the first `read` then gives; false if nothing decodes.
    [[nodiscard]] bool start();

    [[nodiscard]] int sampleRate() const noexcept override { return line_.rate(); }

    [[nodiscard]] int channels() const noexcept override { return channels_; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override;
    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    [[nodiscard]] std::int64_t measureLength() const noexcept;
    [[nodiscard]] std::int64_t stampOf(const AVFrame& frame, std::int64_t otherwise) noexcept;
    [[nodiscard]] bool advance();
    [[nodiscard]] bool place(const AVFrame& frame, std::int64_t at, std::int64_t slack);
    [[nodiscard]] std::int64_t slack() const noexcept;
    void silenceTail();
    [[nodiscard]] bool land(std::int64_t frame, std::int64_t readFrom, std::int64_t decodeFrom);
    void clear() noexcept;

    OpenedSource source_;
    TimeLine line_;
    SampleConverter converter_;
    int channels_ = 2;
    std::int64_t length_ = 0;
    std::int64_t block_ = 0;           // frames in a block, as far as seen; for inexact stamps
    std::int64_t position_ = 0;        // next frame that read() gives
    std::int64_t silence_ = 0;         // frames of silence before the rest of the current frame
    const AVFrame* current_ = nullptr; // owned by the frame source
    std::size_t taken_ = 0;            // frames of the current frame already given
};

} // namespace tovik::sound::ffmpeg
