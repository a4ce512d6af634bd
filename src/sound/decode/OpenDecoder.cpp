// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Decoder.h"

#include "sound/decode/ByteStore.h"
#include "sound/decode/FallbackModule.h"
#include "sound/decode/flac/FlacDecoder.h"
#include "sound/decode/module/ModuleDecoder.h"
#include "sound/decode/mpeg/MpegDecoder.h"
#include "sound/decode/mpeg/MpegHeader.h"
#include "sound/decode/riff/AiffOpen.h"
#include "sound/decode/riff/RiffHead.h"
#include "sound/decode/riff/RiffOpen.h"
#include "sound/decode/vorbis/VorbisDecoder.h"

#include <array>

namespace tovik::sound {
namespace {

using Store = std::shared_ptr<const ByteStore>;

struct Opener {
    FormatFamily family;
    bool (*claims)(const ByteStore& store); ///< by its first bytes
    OpenResult (*open)(const Store& store, OpenOptions options);
};

template <OpenResult (*open)(const Store&)>
OpenResult plainly(const Store& store, OpenOptions /*options*/) {
    return open(store);
}

// The decoders that know one kind of file each, in the order in which they are asked.
constexpr std::array<Opener, 6> kOpeners = {{
    {FormatFamily::stream, &mpeg::looksLikeMpeg, &plainly<&mpeg::openMpeg>},
    {FormatFamily::stream, &vorbis::isVorbis, &plainly<&vorbis::openVorbis>},
    {FormatFamily::stream, &riff::isRiff, &plainly<&riff::openRiff>},
    {FormatFamily::stream, &riff::isAiff, &plainly<&riff::openAiff>},
    {FormatFamily::flac, &flac::isFlac, &plainly<&flac::openFlac>},
    {FormatFamily::music, &module::mayBeModule,
     [](const Store& store, OpenOptions options) { return module::openModule(*store, options); }},
}};

OpenResult openStore(FormatFamily family, const Store& store, OpenOptions options) {
    if (!store) {
        return {OpenStatus::noFile, nullptr};
    }
    bool broken = false;
    for (const Opener& opener : kOpeners) {
        if (!opener.claims(*store)) {
            continue;
        }
        if (opener.family != family) {
            return {OpenStatus::notMine, nullptr};
        }
        OpenResult result = opener.open(store, options);
        if (result.status == OpenStatus::opened) {
            return result;
        }
        broken = broken || result.status == OpenStatus::broken;
    }
    // Whatever they refuse may still be known to FFmpeg, modules apart.
    OpenResult result = family == FormatFamily::music ? OpenResult{OpenStatus::notMine, nullptr}
                                                      : openByFallback(family, store);
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
