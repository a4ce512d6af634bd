// SPDX-License-Identifier: GPL-3.0-or-later
// Compressed streams put together by hand, bit by bit.
#pragma once

#include "skin/Huffman.h"
#include "skin/LittleEndian.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tovik::skin {

/// "0110" as bytes: the first bit is the low one of the first byte; the last byte is filled up.
inline std::string packedBits(std::string_view bits, char filler = '0') {
    std::string bytes;
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        unsigned byte = 0;
        for (std::size_t bit = 0; bit < 8; ++bit) {
            const char value = at + bit < bits.size() ? bits[at + bit] : filler;
            byte |= (value == '1' ? 1U : 0U) << bit;
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

/// A stream of method 0x33 from its parts.
struct HandMade {
    std::map<char, std::string> codes; ///< by symbol, each as "010"
    std::string bits;                  ///< the coded data
    std::string original;              ///< what the checksum is of
    std::int32_t length = -1;          ///< less than 0: that of `original`
    char filler = '0';                 ///< what fills the last byte of codes and data
    std::string magic = {'H', 'E', '3', '\r'};

    [[nodiscard]] std::string stream() const {
        std::string bytes = magic;
        appendLittleEndian(bytes, checkSumOf(bytesOf(original)));
        appendLittleEndian(bytes, length < 0 ? static_cast<std::int32_t>(original.size()) : length);
        appendLittleEndian(bytes, static_cast<std::int16_t>(codes.size()));
        std::string codeBits;
        for (const auto& [symbol, code] : codes) {
            bytes += symbol;
            bytes += static_cast<char>(code.size());
            codeBits += code;
        }
        return bytes + packedBits(codeBits, filler) + packedBits(bits, filler);
    }
};

/// The number that decoding raises; 0 for none.
inline int numberRaisedBy(std::string_view stream) {
    try {
        static_cast<void>(HuffmanDecodeString(stream));
        return 0;
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
}

} // namespace tovik::skin
