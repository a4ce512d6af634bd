// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/LeadingTags.h"

namespace tovik::sound {
namespace {

constexpr std::size_t kTagHeadBytes = 10;

} // namespace

// Layout: "ID3", version, flags, then four bytes of seven bits (id3.org, ID3v2.4 structure, 3.1).
std::int64_t leadingTagBytes(const ByteStore& store) {
    std::int64_t total = 0;
    for (;;) {
        const std::vector<std::byte> head = readBytes(store, total, kTagHeadBytes);
        const auto at = [&head](std::size_t n) { return std::to_integer<std::int64_t>(head[n]); };
        if (head.size() < kTagHeadBytes || at(0) != 'I' || at(1) != 'D' || at(2) != '3') {
            return total;
        }
        std::int64_t size = 0;
        for (std::size_t n = 6; n < kTagHeadBytes; ++n) {
            size = size * 128 + at(n) % 128;
        }
        constexpr std::int64_t kFooterFlag = 0x10;
        const std::int64_t parts = (at(5) & kFooterFlag) != 0 ? 2 : 1;
        total += size + parts * static_cast<std::int64_t>(kTagHeadBytes);
    }
}

} // namespace tovik::sound
