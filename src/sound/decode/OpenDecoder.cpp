// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Decoder.h"

#include "sound/decode/ByteStore.h"
#include "sound/decode/ffmpeg/FfmpegOpen.h"
#include "sound/decode/module/ModuleDecoder.h"

namespace tovik::sound {
namespace {

OpenResult openStore(FormatFamily family, std::shared_ptr<const ByteStore> store,
                     OpenOptions options) {
    if (!store) {
        return {OpenStatus::noFile, nullptr};
    }
    return family == FormatFamily::music ? module::openModule(*store, options)
                                         : ffmpeg::openFfmpeg(family, std::move(store));
}

} // namespace

OpenResult openDecoder(FormatFamily family, const std::string& path, OpenOptions options) {
    return openStore(family, openFile(path), options);
}

OpenResult openDecoder(FormatFamily family, std::span<const std::byte> bytes, OpenOptions options) {
    return openStore(family, keepBytes(bytes), options);
}

} // namespace tovik::sound
