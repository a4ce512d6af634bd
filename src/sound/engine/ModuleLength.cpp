// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/ModuleLength.h"

#include "sound/decode/Decoder.h"

#include <cmath>

namespace tovik::sound {

std::int32_t moduleSeconds(const std::string& path) {
    const OpenResult result = openDecoder(FormatFamily::music, path);
    if (!result.decoder) {
        return 0;
    }
    return static_cast<std::int32_t>(
        std::lround(static_cast<double>(result.decoder->lengthFrames()) /
                    static_cast<double>(result.decoder->sampleRate())));
}

} // namespace tovik::sound
