// SPDX-License-Identifier: GPL-3.0-or-later
// The head of an MPEG audio frame as the technical page tells it. Any thread.
#pragma once

#include "tags/FixedText.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tovik::tags {

/// What the last head told. A field that a head does not reach keeps its value.
struct MpegHeader {
    using Bytes = std::array<std::uint8_t, 4>;

    FixedText<3> version{};       ///< "1.0", "2.0", "2.5", or "-1"
    FixedText<1> layer{};         ///< "1" to "3", or "0"
    FixedText<3> bitrate{};       ///< in kbit/s, or "NA"
    FixedText<5> sampleRate{};    ///< in Hz, or "0"
    FixedText<12> channelMode{};  ///< such as "Joint Stereo"
    FixedText<2> modeExtension{}; ///< two binary digits
    FixedText<8> emphasis{};      ///< "CCIT J.17" does not fit and is cut
    bool crcPresent = false;
    bool copyright = false;
    bool original = false;
    std::int16_t padding = 0;
    std::int16_t privateBit = 0;
    std::int16_t frameLength = 0; ///< in bytes
    bool valid = false;

    /// Takes four bytes apart and returns `valid`. The first one is not looked at.
    bool ParseHeader(const Bytes& bytes);

    /// The rate for the third byte of a head, by the current version and layer; "NA" where it has
    /// none. A deliberate oddity: versions 2 have the rates of version 1 for layers 1 and 2, and
    /// rates of their own, some of them wrong, for layer 3.
    [[nodiscard]] std::string_view BitrateFromByte(std::uint8_t byte) const;

private:
    bool parse(const Bytes& bytes);
};

} // namespace tovik::tags
