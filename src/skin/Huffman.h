// SPDX-License-Identifier: GPL-3.0-or-later
// The compressed streams inside a skin package. A stream begins 0x48 0x45 method 0x0D. Method 0x30
// is followed by the data. Method 0x33 is followed by the XOR of the data (1 byte), its length
// (signed 32 bits), the number of symbols (signed 16 bits), a pair of symbol and code length for
// each, the bits of all codes in the order of the symbols, and from the next whole byte on the
// coded data. Integers have their low byte first, bytes their low bit. Any thread.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::skin {

/// What a stream begins with; the third byte is its method.
inline constexpr std::array<std::uint8_t, 4> kHuffmanMagic{0x48, 0x45, 0x33, 0x0D};
inline constexpr std::uint8_t kMethodStored = 0x30;
inline constexpr std::uint8_t kMethodHuffman = 0x33;

/// The most bytes that one stream may unfold to, 64 MiB.
inline constexpr std::int32_t kMostOriginalBytes = 64 * 1024 * 1024;

/// A node of the decoding tree; -1 in a member means none.
struct HuffmanNode {
    std::int16_t ParentNode = -1;
    std::int16_t RightNode = -1; ///< the child taken on bit 1
    std::int16_t LeftNode = -1;  ///< the child taken on bit 0
    std::int16_t Value = -1;     ///< the symbol at a leaf
};

inline constexpr std::size_t kMostHuffmanNodes = 512;
using HuffmanNodes = std::array<HuffmanNode, kMostHuffmanNodes>;

/// Puts a symbol's code, one bit an element, into the tree whose root is node 0, and advances
/// `nodeCount` past the nodes that it took into use. Raises 9 when the tree is full.
void HuffmanAddCode(HuffmanNodes& nodes, std::int16_t& nodeCount, std::uint8_t symbol,
                    std::span<const std::uint8_t> code);

/// Replaces the stream in the first `length` bytes of the buffer by what it unfolds to. A buffer
/// without the magic counts as a stream of method 0x33; one with the magic and a method that is
/// none of the two stays as it is, and so does one whose data has length 0. A stream that ends
/// early leaves zeros at the end, which only the checksum may notice.
/// Raises 9 when the buffer or the tree is left, 7 for data of more than `kMostOriginalBytes`, and
/// -2147221504 when the checksum does not match; the buffer is as it was then.
void HuffmanDecodeBytes(std::vector<std::uint8_t>& buffer, std::int32_t length);

/// The same for a byte string: what the stream unfolds to.
[[nodiscard]] std::string HuffmanDecodeString(std::string_view data);

} // namespace tovik::skin
