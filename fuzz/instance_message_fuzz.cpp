// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what somebody sends to the socket of a running player; the first byte says
// in which pieces it arrives.
#include "host/InstanceMessage.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using State = tovik::host::InstanceRecord::State;

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
    const std::size_t piece = std::size_t{data[0]} + 1;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    tovik::host::InstanceRecord whole;
    const State state = whole.take(bytes);
    tovik::host::InstanceRecord pieces;
    State last = State::unfinished;
    while (!bytes.empty()) {
        last = pieces.take(bytes.substr(0, piece));
        bytes.remove_prefix(std::min(piece, bytes.size()));
    }
    demand(last == state);
    if (state == State::whole) {
        const tovik::host::InstanceMessage message = whole.message();
        demand(message == pieces.message());
        demand(message.text.size() <= tovik::host::kLongestLine);
        demand(message.text.find('\0') == std::string::npos);
        tovik::host::InstanceRecord again;
        const bool fits = message.kind != tovik::host::InstanceMessageKind::file ||
                          message.text.size() < tovik::host::kPathBuffer;
        demand(again.take(tovik::host::recordOf(message)) == State::whole);
        demand(!fits || again.message() == message);
    }
    return 0;
}
