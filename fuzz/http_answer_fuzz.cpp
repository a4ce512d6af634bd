// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what a server answers: lines of a head up to an empty one, then a body in
// pieces whose sizes the input tells. No answer hands over more than it has, or begins twice.
#include "sound/net/Receiver.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovik::sound;
    constexpr std::size_t kMostQueued = 1 << 20;
    std::size_t handed = 0;
    StreamRoutines routines(
        [&](std::span<const std::byte> bytes, std::uintptr_t) { handed += bytes.size(); }, 0);
    NetTimes times;
    times.idle = std::chrono::milliseconds(0);
    StreamState state(times, {}, kMostQueued);
    Receiver receiver(state, routines);
    std::string_view rest(static_cast<const char*>(static_cast<const void*>(data)), size);
    for (bool head = true; head && !rest.empty();) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (!receiver.header(line)) {
            return 0;
        }
        head = !line.empty();
    }
    receiver.answeredBy("http://host/list");
    while (!rest.empty()) {
        const std::size_t piece =
            std::min<std::size_t>(static_cast<unsigned char>(rest.front()) + 1U, rest.size());
        if (!receiver.body(std::as_bytes(std::span(rest.substr(0, piece))))) {
            break;
        }
        rest.remove_prefix(piece);
    }
    receiver.finish();
    if (handed > size || receiver.received() > size) {
        std::abort();
    }
    return 0;
}
