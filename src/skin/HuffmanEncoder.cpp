// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/HuffmanEncoder.h"

#include "base/RuntimeError.h"
#include "skin/Huffman.h"
#include "skin/LittleEndian.h"

#include <algorithm>
#include <array>
#include <functional>
#include <queue>
#include <tuple>
#include <vector>

namespace tovik::skin {

namespace {

constexpr std::size_t kSymbols = 256;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr int kBitsInByte = 8;

using Lengths = std::array<std::uint8_t, kSymbols>;    ///< 0: no code
using Codes = std::array<std::vector<bool>, kSymbols>; ///< the bit nearest the root first

std::string head(std::uint8_t method) {
    std::string stream(kHuffmanMagic.begin(), kHuffmanMagic.end());
    stream[2] = static_cast<char>(method);
    return stream;
}

/// The depth of each symbol in the tree that always joins the two rarest parts. With less than
/// 2^64 bytes no depth comes near 255.
Lengths codeLengths(std::span<const std::uint8_t> data) {
    std::array<std::size_t, kSymbols> counts{};
    for (const std::uint8_t byte : data) {
        ++counts[byte];
    }
    // A part is a symbol or, from kSymbols on, a join; the second member settles ties.
    using Part = std::tuple<std::size_t, std::size_t>;
    std::priority_queue<Part, std::vector<Part>, std::greater<>> parts;
    for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
        if (counts[symbol] > 0) {
            parts.emplace(counts[symbol], symbol);
        }
    }
    std::array<std::size_t, 2 * kSymbols> parents{};
    parents.fill(kNone);
    std::size_t join = kSymbols;
    const bool single = parts.size() == 1;
    while (parts.size() > 1) {
        std::size_t count = 0;
        for (int half = 0; half < 2; ++half) {
            const auto [partCount, part] = parts.top();
            parts.pop();
            parents[part] = join;
            count += partCount;
        }
        parts.emplace(count, join++);
    }
    Lengths lengths{};
    for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
        for (std::size_t part = symbol; parents[part] != kNone; part = parents[part]) {
            ++lengths[symbol];
        }
        if (single && counts[symbol] > 0) {
            lengths[symbol] = 1;
        }
    }
    return lengths;
}

/// The next code of the same length.
void increment(std::vector<bool>& code) {
    auto bit = code.rbegin();
    while (bit != code.rend() && *bit) {
        *bit++ = false;
    }
    if (bit != code.rend()) {
        *bit = true;
    }
}

Codes canonicalCodes(const Lengths& lengths) {
    std::vector<std::size_t> order;
    for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
        if (lengths[symbol] > 0) {
            order.push_back(symbol);
        }
    }
    std::ranges::stable_sort(order, {}, [&](std::size_t symbol) { return lengths[symbol]; });
    Codes codes;
    std::vector<bool> code;
    for (const std::size_t symbol : order) {
        code.resize(lengths[symbol], false);
        codes[symbol] = code;
        increment(code);
    }
    return codes;
}

/// Appends bits, the low bit of each byte first.
class BitWriter {
public:
    explicit BitWriter(std::string& bytes) : bytes_(bytes) {}

    void write(const std::vector<bool>& bits) {
        for (const bool bit : bits) {
            byte_ |= (bit ? 1U : 0U) << used_;
            if (++used_ == kBitsInByte) {
                flush();
            }
        }
    }

    /// Leaves the rest of a byte that was begun as zeros.
    void flush() {
        if (used_ > 0) {
            bytes_ += static_cast<char>(byte_);
        }
        byte_ = 0;
        used_ = 0;
    }

private:
    std::string& bytes_;
    unsigned byte_ = 0;
    int used_ = 0;
};

} // namespace

std::string storedStream(std::string_view data) {
    return head(kMethodStored).append(data);
}

std::string huffmanStream(std::string_view data) {
    if (data.empty() || data.size() > static_cast<std::size_t>(kMostOriginalBytes)) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
    const std::span<const std::uint8_t> bytes = bytesOf(data);
    const Lengths lengths = codeLengths(bytes);
    const Codes codes = canonicalCodes(lengths);
    std::string stream = head(kMethodHuffman);
    appendLittleEndian(stream, checkSumOf(bytes));
    appendLittleEndian(stream, static_cast<std::int32_t>(data.size()));
    appendLittleEndian(
        stream, static_cast<std::int16_t>(kSymbols - static_cast<std::size_t>(std::ranges::count(
                                                         lengths, std::uint8_t{0}))));
    for (std::size_t symbol = 0; symbol < kSymbols; ++symbol) {
        if (lengths[symbol] > 0) {
            appendLittleEndian(stream, static_cast<std::uint8_t>(symbol));
            appendLittleEndian(stream, lengths[symbol]);
        }
    }
    BitWriter bits(stream);
    for (const std::vector<bool>& code : codes) {
        bits.write(code);
    }
    bits.flush();
    for (const std::uint8_t byte : bytes) {
        bits.write(codes[byte]);
    }
    bits.flush();
    return stream;
}

std::string smallestStream(std::string_view data) {
    std::string stored = storedStream(data);
    if (data.empty() || data.size() > static_cast<std::size_t>(kMostOriginalBytes)) {
        return stored;
    }
    std::string packed = huffmanStream(data);
    return packed.size() < stored.size() ? packed : stored;
}

} // namespace tovik::skin
