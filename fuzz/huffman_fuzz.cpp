// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a compressed stream, and for data to be compressed: what was packed always
// comes back as it was.
#include "base/RuntimeError.h"
#include "skin/Huffman.h"
#include "skin/HuffmanEncoder.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovik;
    const std::string input(data, data + size);
    try {
        const std::string output = skin::HuffmanDecodeString(input);
        demand(output.size() <=
               std::max(static_cast<std::size_t>(skin::kMostOriginalBytes), input.size()));
    } catch (const base::RuntimeError& error) {
        demand(error.number() == static_cast<int>(base::ErrorNumber::SubscriptOutOfRange) ||
               error.number() == static_cast<int>(base::ErrorNumber::OutOfMemory) ||
               error.number() == static_cast<int>(base::ErrorNumber::DamagedData));
    }
    demand(skin::HuffmanDecodeString(skin::smallestStream(input)) == input);
    if (!input.empty()) {
        demand(skin::HuffmanDecodeString(skin::huffmanStream(input)) == input);
    }
    return 0;
}
