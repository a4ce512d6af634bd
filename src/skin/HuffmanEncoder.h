// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the compressed streams of a skin package; see `Huffman.h` for their form. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::skin {

/// A stream that holds the data as it is.
[[nodiscard]] std::string storedStream(std::string_view data);

/// A stream with a canonical Huffman code of the data (Huffman, 1952; codes of one length in the
/// order of their symbols). Raises 5 for no data and for more than `kMostOriginalBytes`, which
/// this form cannot tell.
[[nodiscard]] std::string huffmanStream(std::string_view data);

/// The smaller of the two; of equal ones the stored one.
[[nodiscard]] std::string smallestStream(std::string_view data);

} // namespace tovik::skin
