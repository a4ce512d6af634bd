// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/MpegHeader.h"

#include <algorithm>
#include <charconv>
#include <span>

namespace tovik::tags {

namespace {

constexpr std::string_view kNoRate = "NA";

struct VersionRow {
    std::uint8_t bits; ///< all of them are set in the second byte
    std::string_view version;
    std::array<std::string_view, 3> rates; ///< "32 kHz", "48 kHz" and any other bits of the third
};

/// The first row that fits counts.
constexpr std::array kVersions{
    VersionRow{24, "1.0", {"32000", "48000", "44100"}},
    VersionRow{16, "2.0", {"16000", "24000", "22050"}},
    VersionRow{8, "-1", {}},
    VersionRow{0, "2.5", {"8000", "12000", "11025"}},
};

struct BitsRow {
    std::uint8_t bits;
    std::string_view text;
};

constexpr std::array kLayers{BitsRow{6, "1"}, BitsRow{4, "2"}, BitsRow{2, "3"}, BitsRow{0, "0"}};
constexpr std::array kModes{BitsRow{192, "Mono"}, BitsRow{128, "Dual Channel"},
                            BitsRow{64, "Joint Stereo"}, BitsRow{0, "Stereo"}};
constexpr std::array kExtensions{BitsRow{48, "11"}, BitsRow{32, "10"}, BitsRow{16, "01"},
                                 BitsRow{0, "00"}};
constexpr std::array kEmphases{BitsRow{3, "CCIT J.17"}, BitsRow{2, "Reserved"},
                               BitsRow{1, "50/15 ms"}, BitsRow{0, "None"}};

template <typename Row>
const Row& fitting(std::span<const Row> rows, std::uint8_t byte) {
    return *std::find_if(rows.begin(), rows.end(),
                         [byte](const Row& row) { return (byte & row.bits) == row.bits; });
}

std::string_view textOf(std::span<const BitsRow> rows, std::uint8_t byte) {
    return fitting(rows, byte).text;
}

/// By the high half of the byte, 1 to 14: version 1 with layers 1 to 3, other versions with
/// layer 3.
struct RateRow {
    std::array<std::string_view, 3> first;
    std::string_view otherLayer3;
};

constexpr std::array kRates{
    RateRow{{"32", "32", "32"}, "8"},      RateRow{{"64", "48", "40"}, "16"},
    RateRow{{"96", "56", "48"}, "24"},     RateRow{{"128", "64", "56"}, "32"},
    RateRow{{"160", "80", "64"}, "64"},    RateRow{{"192", "96", "80"}, "80"},
    RateRow{{"224", "112", "96"}, "56"},   RateRow{{"256", "128", "112"}, "64"},
    RateRow{{"288", "160", "128"}, "128"}, RateRow{{"320", "192", "160"}, "160"},
    RateRow{{"352", "224", "192"}, "112"}, RateRow{{"384", "256", "224"}, "128"},
    RateRow{{"416", "320", "256"}, "256"}, RateRow{{"448", "384", "320"}, "320"},
};

std::int32_t numberOf(std::string_view digits) {
    std::int32_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

} // namespace

std::string_view MpegHeader::BitrateFromByte(std::uint8_t byte) const {
    const std::size_t row = (byte >> 4U) - std::size_t{1}; // 0 has none and wraps
    const std::int32_t number = numberOf(layer.bytes());
    if (row >= kRates.size() || number < 1 || number > 3 || version.trimmed() == "-1") {
        return kNoRate;
    }
    const RateRow& rates = kRates[row];
    return number == 3 && version.bytes() != "1.0"
               ? rates.otherLayer3
               : rates.first.at(static_cast<std::size_t>(number) - 1);
}

bool MpegHeader::ParseHeader(const Bytes& bytes) {
    valid = parse(bytes);
    return valid;
}

bool MpegHeader::parse(const Bytes& bytes) {
    const auto [first, second, third, fourth] = bytes;
    const auto& row = fitting(std::span<const VersionRow>(kVersions), second);
    version = row.version;
    if (row.rates[0].empty()) {
        sampleRate = "0";
        return false;
    }
    layer = textOf(kLayers, second);
    if (layer.bytes() == "0") {
        sampleRate = "0";
        return false;
    }
    crcPresent = (second & 1U) == 0;
    bitrate = BitrateFromByte(third);
    if ((third & 12U) == 12) {
        sampleRate = "0";
        return false;
    }
    sampleRate = row.rates[(third & 8U) != 0 ? 0 : ((third & 4U) != 0 ? 1 : 2)];
    padding = (third & 2U) != 0 ? 1 : 0;
    privateBit = (third & 1U) != 0 ? 1 : 0;
    channelMode = textOf(kModes, fourth);
    modeExtension = textOf(kExtensions, fourth);
    copyright = (fourth & 8U) != 0;
    original = (fourth & 4U) != 0;
    emphasis = textOf(kEmphases, fourth);
    if (bitrate.trimmed() == kNoRate) {
        return false;
    }
    const std::int32_t bits = numberOf(bitrate.bytes()) * 1000;
    const std::int32_t hertz = numberOf(sampleRate.bytes());
    // The integer part of the quotient with the padding is that of the quotient and the padding.
    const std::int32_t length =
        layer.bytes() == "1" ? (bits * 12 / hertz + padding) * 4 : bits * 144 / hertz + padding;
    frameLength = static_cast<std::int16_t>(length);
    return true;
}

} // namespace tovik::tags
