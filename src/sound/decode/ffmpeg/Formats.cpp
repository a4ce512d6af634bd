// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/Formats.h"

#include "sound/decode/LeadingTags.h"

#include <algorithm>
#include <array>

namespace tovik::sound::ffmpeg {
namespace {

constexpr std::array kMpegAudio = {AV_CODEC_ID_MP3, AV_CODEC_ID_MP2, AV_CODEC_ID_MP1};
constexpr std::array kVorbis = {AV_CODEC_ID_VORBIS};
constexpr std::array kFlac = {AV_CODEC_ID_FLAC};
constexpr std::array kWindowsMedia = {AV_CODEC_ID_WMAV1, AV_CODEC_ID_WMAV2, AV_CODEC_ID_WMAPRO,
                                      AV_CODEC_ID_WMAVOICE, AV_CODEC_ID_WMALOSSLESS};
constexpr std::array kPcm = {AV_CODEC_ID_PCM_U8,    AV_CODEC_ID_PCM_S8,    AV_CODEC_ID_PCM_S16LE,
                             AV_CODEC_ID_PCM_S16BE, AV_CODEC_ID_PCM_S24LE, AV_CODEC_ID_PCM_S24BE,
                             AV_CODEC_ID_PCM_S32LE, AV_CODEC_ID_PCM_S32BE, AV_CODEC_ID_PCM_F32LE,
                             AV_CODEC_ID_PCM_F32BE, AV_CODEC_ID_PCM_F64LE, AV_CODEC_ID_PCM_F64BE,
                             AV_CODEC_ID_PCM_ALAW,  AV_CODEC_ID_PCM_MULAW};

// The padding behind the sound is told by the time stamp of the last Ogg page together with that of
// the page before it. A page has 255 packets at most, of 4096 frames at most.
constexpr std::int64_t kLongestPageSeconds = 24;

constexpr std::array kFormats = {
    Format{FormatFamily::stream, "mp3", kMpegAudio, LengthSource::packets, true, 0},
    Format{FormatFamily::stream, "ogg", kVorbis, LengthSource::header, true, kLongestPageSeconds},
    Format{FormatFamily::stream, "wav", kPcm, LengthSource::bytes, true, 0},
    Format{FormatFamily::stream, "aiff", kPcm, LengthSource::bytes, true, 0},
    Format{FormatFamily::wma, "asf", kWindowsMedia, LengthSource::header, false, 0},
    Format{FormatFamily::flac, "flac", kFlac, LengthSource::tail, true, 0},
};

constexpr std::size_t kFirstProbeBytes = 4096;
constexpr std::size_t kMostProbeBytes = 1 << 20;

} // namespace

bool isListed(FormatFamily family, std::string_view demuxer) noexcept {
    return std::ranges::any_of(kFormats, [&](const Format& format) {
        return format.family == family && format.demuxer == demuxer;
    });
}

const Format* findFormat(FormatFamily family, std::string_view demuxer, AVCodecID codec) noexcept {
    const auto* const row = std::ranges::find_if(kFormats, [&](const Format& format) {
        return format.family == family && format.demuxer == demuxer &&
               std::ranges::count(format.codecs, codec) > 0;
    });
    return row == kFormats.end() ? nullptr : row;
}

ProbeResult probe(const ByteStore& store) {
    const std::int64_t start = leadingTagBytes(store); // pictures in them hide the sound
    for (std::size_t size = kFirstProbeBytes;; size *= 4) {
        std::vector<std::byte> bytes = readBytes(store, start, size);
        const bool last = bytes.size() < size || size >= kMostProbeBytes;
        const auto count = static_cast<int>(bytes.size());
        bytes.resize(bytes.size() + AVPROBE_PADDING_SIZE);
        AVProbeData data = {"", static_cast<unsigned char*>(static_cast<void*>(bytes.data())),
                            count, nullptr};
        ProbeResult result;
        result.demuxer = av_probe_input_format3(&data, 1, &result.score);
        if (last || result.score > AVPROBE_SCORE_RETRY) {
            return result;
        }
    }
}

} // namespace tovik::sound::ffmpeg
