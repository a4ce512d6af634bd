// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what a station sends; its first byte is the size of the blocks. Units are
// parts of the stream, one behind the other, and songs of it are saved without harm.
#include "radio/SoundUnits.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace tovik::radio;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::size_t block = std::size_t{data[0]} * 8 + 1;
    const Bytes stream = std::as_bytes(std::span(data + 1, size - 1));
    SoundUnits units;
    std::uint64_t end = 0;
    std::string head;
    const auto take = [&](const SoundUnit& unit) {
        demand(!unit.bytes.empty() && unit.begin >= end);
        end = unit.begin + unit.bytes.size();
        demand(end <= stream.size());
        demand(std::ranges::equal(unit.bytes, stream.subspan(unit.begin, unit.bytes.size())));
        for (const std::byte byte : unit.head ? unit.bytes : Bytes()) {
            head += static_cast<char>(byte);
        }
    };
    for (std::size_t at = 0; at < stream.size(); at += block) {
        units.feed(stream.subspan(at, std::min(block, stream.size() - at)), take);
    }
    units.feed({}, take);
    if (const UnitRule* const rule = units.rule(); rule != nullptr) {
        demand(rule->ending().starts_with('.'));
        static_cast<void>(rule->titleOf(head));
        static_cast<void>(rule->headOf(head, "artist", "title"));
    }
    return 0;
}
