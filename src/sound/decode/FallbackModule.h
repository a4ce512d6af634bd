// SPDX-License-Identifier: GPL-3.0-or-later
// The decoders behind all others, FFmpeg's, which live in a module of ours beside the program. With
// their hundred libraries they take longer to load than all the rest of a start, and most files do
// without them: the module is loaded when a file or a station first needs it. Any thread.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"
#include "sound/decode/LiveSound.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace tovik::sound {

/// What the module hands over, under the name `kFallbackSymbol`.
struct FallbackDecoders {
    std::uint32_t version; ///< kFallbackVersion of when it was built
    OpenResult (*open)(FormatFamily family, std::shared_ptr<const ByteStore> store);
    std::unique_ptr<LiveSound> (*openLive)(std::shared_ptr<LiveBytes> bytes,
                                           std::string_view contentType);
};

inline constexpr std::uint32_t kFallbackVersion = 2;
/// The module's file name.
inline constexpr const char* kFallbackFile = "tovik-ffmpeg.so";
inline constexpr const char* kFallbackSymbol = "tovikFallbackDecoders";

/// Opens by the module, which the first call loads (tens of milliseconds). `notMine` where there is
/// no module. `family` is any but music.
[[nodiscard]] OpenResult openByFallback(FormatFamily family,
                                        const std::shared_ptr<const ByteStore>& store);

} // namespace tovik::sound
