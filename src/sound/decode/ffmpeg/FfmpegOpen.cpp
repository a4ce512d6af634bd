// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/FfmpegOpen.h"

#include "sound/decode/ffmpeg/FfmpegDecoder.h"

namespace tovik::sound::ffmpeg {

OpenResult openFfmpeg(FormatFamily family, std::shared_ptr<const ByteStore> store) {
    silenceLog();
    const ProbeResult winner = probe(*store);
    if (winner.demuxer == nullptr || !isListed(family, winner.demuxer->name)) {
        return {OpenStatus::notMine, nullptr};
    }
    auto demuxer = Demuxer::open(store, *winner.demuxer);
    if (!demuxer) {
        return {OpenStatus::broken, nullptr};
    }
    const AVCodecID codec = demuxer->stream().codecpar->codec_id;
    const Format* format = findFormat(family, winner.demuxer->name, codec);
    if (format == nullptr) {
        return {OpenStatus::notMine, nullptr};
    }
    auto frames = FrameSource::open(std::move(demuxer));
    if (!frames) {
        return {OpenStatus::broken, nullptr};
    }
    auto decoder = std::make_unique<FfmpegDecoder>(
        OpenedSource{std::move(store), winner.demuxer, format, std::move(frames)});
    if (!decoder->start()) {
        return {OpenStatus::broken, nullptr};
    }
    return {OpenStatus::opened, std::move(decoder)};
}

} // namespace tovik::sound::ffmpeg
