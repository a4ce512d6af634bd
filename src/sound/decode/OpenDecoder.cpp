// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Decoder.h"

#include "sound/decode/ByteStore.h"
#include "sound/decode/ffmpeg/FfmpegOpen.h"
#include "sound/decode/flac/FlacDecoder.h"
#include "sound/decode/module/ModuleDecoder.h"
#include "sound/decode/mpeg/MpegDecoder.h"
#include "sound/decode/riff/RiffOpen.h"
#include "sound/decode/vorbis/VorbisDecoder.h"

#include <array>

namespace tovik::sound {
namespace {

struct Opener {
    FormatFamily family;
    OpenResult (*open)(const std::shared_ptr<const ByteStore>& store);
};

// The decoders that know one kind of file each, in the order in which they are asked.
constexpr std::array<Opener, 4> kOpeners = {{
    {FormatFamily::stream, &mpeg::openMpeg},
    {FormatFamily::stream, &vorbis::openVorbis},
    {FormatFamily::stream, &riff::openRiff},
    {FormatFamily::flac, &flac::openFlac},
}};

OpenResult openStore(FormatFamily family, const std::shared_ptr<const ByteStore>& store,
                     OpenOptions options) {
    if (!store) {
        return {OpenStatus::noFile, nullptr};
    }
    if (family == FormatFamily::music) {
        return module::openModule(*store, options);
    }
    bool broken = false;
    for (const Opener& opener : kOpeners) {
        if (opener.family == family) {
            OpenResult result = opener.open(store);
            if (result.status == OpenStatus::opened) {
                return result;
            }
            broken = broken || result.status == OpenStatus::broken;
        }
    }
    // Whatever they refuse, FFmpeg may still know.
    OpenResult result = ffmpeg::openFfmpeg(family, store);
    if (broken && result.status == OpenStatus::notMine) {
        result.status = OpenStatus::broken;
    }
    return result;
}

} // namespace

OpenResult openDecoder(FormatFamily family, const std::string& path, OpenOptions options) {
    return openStore(family, openFile(path), options);
}

OpenResult openDecoder(FormatFamily family, std::span<const std::byte> bytes, OpenOptions options) {
    return openStore(family, keepBytes(bytes), options);
}

} // namespace tovik::sound
