// SPDX-License-Identifier: GPL-3.0-or-later
// Which containers and codecs belong to which family, and how far their figures can be trusted. Any
// thread.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"
#include "sound/decode/ffmpeg/Handles.h"

#include <string_view>

namespace tovik::sound::ffmpeg {

/// Where the length in frames comes from.
enum class LengthSource {
    header,  ///< the container's own figure
    bytes,   ///< the bytes of sample data that the file really holds
    tail,    ///< the container's figure, to be checked at the file's last packets
    packets, ///< an estimate, to be replaced by the sum of all packets
};

struct Format {
    FormatFamily family;
    std::string_view demuxer;
    std::span<const AVCodecID> codecs;
    LengthSource length;
    /// True when time stamps are whole samples; else they are only good to find a place.
    bool exactStamps;
    /// How much must have been read before the end is found where it is.
    std::int64_t endContextSeconds;
};

/// True when `family` has a row for a demuxer of this name.
[[nodiscard]] bool isListed(FormatFamily family, std::string_view demuxer) noexcept;

/// The row of `family` for this demuxer and codec, if there is one.
[[nodiscard]] const Format* findFormat(FormatFamily family, std::string_view demuxer,
                                       AVCodecID codec) noexcept;

struct ProbeResult {
    const AVInputFormat* demuxer = nullptr;
    int score = 0;
};

/// Asks all demuxers of the library whose content this is; the name of a file plays no part.
[[nodiscard]] ProbeResult probe(const ByteStore& store);

} // namespace tovik::sound::ffmpeg
