// SPDX-License-Identifier: GPL-3.0-or-later
// Owners for the objects of the FFmpeg libraries, so that nobody else frees them by hand. One
// thread at a time.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <memory>

namespace tovik::sound::ffmpeg {

/// Turns one of the libraries' functions that free through a pointer to the pointer into a deleter.
template <auto release>
struct FreeBy {
    template <typename T>
    void operator()(T* object) const noexcept {
        release(&object);
    }
};

using FramePtr = std::unique_ptr<AVFrame, FreeBy<av_frame_free>>;
using PacketPtr = std::unique_ptr<AVPacket, FreeBy<av_packet_free>>;
using CodecPtr = std::unique_ptr<AVCodecContext, FreeBy<avcodec_free_context>>;
using FormatPtr = std::unique_ptr<AVFormatContext, FreeBy<avformat_close_input>>;

/// Ends all printing of the FFmpeg libraries; every opener calls it first. Any thread.
void silenceLog() noexcept;

} // namespace tovik::sound::ffmpeg
