// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a sound file: it is opened in every family, and by FFmpeg even where another
// decoder would take it, decoded for a while, sought in and scanned. What a decoder says of itself
// must hold whatever the bytes are.
#include "sound/decode/Decoder.h"
#include "sound/decode/FallbackModule.h"

#include <array>
#include <cstdlib>

namespace {

using namespace tovik::sound;

constexpr std::array kFamilies = {FormatFamily::stream, FormatFamily::music, FormatFamily::wma,
                                  FormatFamily::flac};
constexpr std::size_t kBlockFrames = 1500;
constexpr int kMostBlocks = 60;
constexpr int kMostSlices = 20;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void readSome(Decoder& decoder, int blocks) {
    std::vector<float> block(kBlockFrames * static_cast<std::size_t>(decoder.channels()));
    for (int n = 0; n < blocks; ++n) {
        const std::size_t got = decoder.read(block);
        demand(got <= kBlockFrames);
        if (got < kBlockFrames) {
            demand(decoder.loops() || decoder.read(block) == 0);
            return;
        }
    }
}

void exercise(Decoder& decoder) {
    demand(decoder.channels() == 1 || decoder.channels() == 2);
    demand(decoder.sampleRate() >= 1000 && decoder.sampleRate() <= 768'000);
    const std::int64_t length = decoder.lengthFrames();
    demand(length >= 0);
    readSome(decoder, kMostBlocks);
    for (const std::int64_t frame :
         {length / 2, std::int64_t{0}, length - 1, length / 7, length + 100'000, INT64_MAX}) {
        const std::int64_t position = decoder.seek(frame);
        demand(position >= 0);
        readSome(decoder, 4);
    }
    if (const std::unique_ptr<PacketScan> scan = decoder.lengthScan()) {
        for (int n = 0; n < kMostSlices; ++n) {
            if (scan->run(std::chrono::milliseconds(5))) {
                demand(scan->lengthFrames() >= 0);
                break;
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    for (const FormatFamily family : kFamilies) {
        for (const bool repeat : {false, true}) {
            const OpenResult opened = openDecoder(family, bytes, {.repeat = repeat});
            demand((opened.status == OpenStatus::opened) == (opened.decoder != nullptr));
            if (opened.decoder) {
                exercise(*opened.decoder);
            }
            if (family != FormatFamily::music) {
                break;
            }
        }
        if (family != FormatFamily::music) {
            const OpenResult fallback = openByFallback(family, keepBytes(bytes));
            if (fallback.decoder) {
                exercise(*fallback.decoder);
            }
        }
    }
    return 0;
}
