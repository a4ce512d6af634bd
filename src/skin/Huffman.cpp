// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/Huffman.h"

#include "base/RuntimeError.h"
#include "skin/LittleEndian.h"

#include <algorithm>
#include <limits>

namespace tovik::skin {

namespace {

using base::ErrorNumber;
using base::RuntimeError;
using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kMethodAt = 2;
constexpr std::size_t kStoredAt = 4;
constexpr std::size_t kCheckSumAt = 4;
constexpr std::size_t kLengthAt = 5;
constexpr std::size_t kSymbolCountAt = 9;
constexpr std::size_t kSymbolsAt = 11;
constexpr int kBitsInByte = 8;

/// Bytes that do not begin as a stream are decoded as one of method 0x33 all the same: a user may
/// meet a picture of garbage, or a box, where a refusal would name the fault.
constexpr bool kDecodesWithoutMagic = true;

/// The code of each symbol, one bit an element; empty for a symbol without one.
using Codes = std::array<std::vector<std::uint8_t>, 256>;

std::uint8_t byteAt(Bytes stream, std::size_t at) {
    if (at >= stream.size()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return stream[at];
}

bool hasMagic(Bytes stream) {
    return byteAt(stream, 0) == kHuffmanMagic[0] && byteAt(stream, 1) == kHuffmanMagic[1] &&
           byteAt(stream, 3) == kHuffmanMagic[3];
}

std::int32_t originalLength(Bytes stream) {
    const auto length = littleEndian<std::int32_t>(stream, kLengthAt);
    if (length < 0) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    if (length > kMostOriginalBytes) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    return length;
}

/// Bit after bit of a stream, the low bit of each byte first.
class BitReader {
public:
    BitReader(Bytes stream, std::size_t at) : stream_(stream), at_(at), byte_(byteAt(stream, at)) {}

    [[nodiscard]] std::uint8_t next() {
        const auto bit = static_cast<std::uint8_t>((byte_ >> bit_) & 1);
        if (++bit_ == kBitsInByte) {
            bit_ = 0;
            byte_ = byteAt(stream_, ++at_);
        }
        return bit;
    }

    /// The first byte of which no bit was read.
    [[nodiscard]] std::size_t wholeByte() const { return bit_ == 0 ? at_ : at_ + 1; }

private:
    Bytes stream_;
    std::size_t at_;
    std::uint8_t byte_;
    int bit_ = 0;
};

/// Gives each listed symbol a code of its length; returns where the bits begin.
std::size_t readLengths(Bytes stream, Codes& codes) {
    const auto count = littleEndian<std::int16_t>(stream, kSymbolCountAt);
    std::size_t at = kSymbolsAt;
    for (int symbol = 0; symbol < count; ++symbol, at += 2) {
        const std::uint8_t length = byteAt(stream, at + 1);
        if (length == 0) {
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        }
        codes[stream[at]].assign(length, 0);
    }
    return at;
}

/// Reads the bits of all codes; returns where the coded data begins.
std::size_t readCodes(Bytes stream, std::size_t at, Codes& codes) {
    BitReader bits(stream, at);
    for (auto& code : codes) {
        std::ranges::generate(code, [&bits] { return bits.next(); });
    }
    return bits.wholeByte();
}

std::size_t childOf(const HuffmanNode& node, bool right) {
    const std::int16_t child = right ? node.RightNode : node.LeftNode;
    if (child < 0) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(child);
}

void decode(Bytes coded, const HuffmanNodes& nodes, std::span<std::uint8_t> output) {
    std::size_t node = 0;
    std::size_t done = 0;
    for (const std::uint8_t byte : coded) {
        for (int bit = 0; bit < kBitsInByte; ++bit) {
            node = childOf(nodes[node], ((byte >> bit) & 1) != 0);
            if (nodes[node].Value > -1) {
                output[done] = static_cast<std::uint8_t>(nodes[node].Value);
                node = 0;
                if (++done == output.size()) {
                    return;
                }
            }
        }
    }
}

std::vector<std::uint8_t> unfolded(Bytes stream, std::int32_t length) {
    Codes codes;
    const std::size_t codesAt = readLengths(stream, codes);
    const std::size_t dataAt = readCodes(stream, codesAt, codes);
    HuffmanNodes nodes{};
    std::int16_t nodeCount = 1;
    for (std::size_t symbol = 0; symbol < codes.size(); ++symbol) {
        if (!codes[symbol].empty()) {
            HuffmanAddCode(nodes, nodeCount, static_cast<std::uint8_t>(symbol), codes[symbol]);
        }
    }
    std::vector<std::uint8_t> output(static_cast<std::size_t>(length));
    decode(stream.subspan(std::min(dataAt, stream.size())), nodes, output);
    return output;
}

} // namespace

void HuffmanAddCode(HuffmanNodes& nodes, std::int16_t& nodeCount, std::uint8_t symbol,
                    std::span<const std::uint8_t> code) {
    std::int16_t node = 0;
    for (const std::uint8_t bit : code) {
        HuffmanNode& parent = nodes[static_cast<std::size_t>(node)];
        std::int16_t& child = bit != 0 ? parent.RightNode : parent.LeftNode;
        if (child == -1) {
            if (nodeCount < 0 || static_cast<std::size_t>(nodeCount) >= nodes.size()) {
                throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
            }
            child = nodeCount++;
            nodes[static_cast<std::size_t>(child)] = {.ParentNode = node};
        }
        node = child;
    }
    nodes[static_cast<std::size_t>(node)].Value = symbol;
}

void HuffmanDecodeBytes(std::vector<std::uint8_t>& buffer, std::int32_t length) {
    if (length < 0 || static_cast<std::size_t>(length) > buffer.size()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    const Bytes stream = Bytes(buffer).first(static_cast<std::size_t>(length));
    if (hasMagic(stream)) {
        if (stream[kMethodAt] == kMethodStored) {
            buffer = {stream.begin() + kStoredAt, stream.end()};
            return;
        }
        if (stream[kMethodAt] != kMethodHuffman) {
            return;
        }
    } else if (!kDecodesWithoutMagic) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    const std::uint8_t checkSum = byteAt(stream, kCheckSumAt);
    const std::int32_t outputLength = originalLength(stream);
    if (outputLength == 0) {
        return;
    }
    std::vector<std::uint8_t> output = unfolded(stream, outputLength);
    if (checkSumOf(output) != checkSum) {
        throw RuntimeError(ErrorNumber::DamagedData,
                           "The data might be corrupted (checksum did not match expected value)",
                           "clsHuffman.Decode()");
    }
    buffer = std::move(output);
}

std::string HuffmanDecodeString(std::string_view data) {
    if (data.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    std::vector<std::uint8_t> buffer(data.begin(), data.end());
    HuffmanDecodeBytes(buffer, static_cast<std::int32_t>(data.size()));
    return {buffer.begin(), buffer.end()};
}

} // namespace tovik::skin
