// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a stream with metadata; its first byte is the interval. What is separated
// does not depend on how the stream is cut.
#include "sound/net/IcyFilter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

struct Separated final : tovik::sound::IcySink {
    void sound(std::span<const std::byte> bytes) override {
        for (const std::byte byte : bytes) {
            all.push_back(static_cast<char>(byte));
        }
    }

    void metadata(std::string_view text) override {
        all += "\1meta\1";
        all += text;
    }

    std::string all;
};

std::string separated(std::uint64_t interval, std::span<const std::byte> stream,
                      std::size_t piece) {
    tovik::sound::IcyFilter filter(interval);
    Separated sink;
    for (; !stream.empty(); stream = stream.subspan(std::min(piece, stream.size()))) {
        filter.feed(stream.first(std::min(piece, stream.size())), sink);
    }
    return sink.all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto stream = std::as_bytes(std::span(data, size)).subspan(1);
    const std::string whole = separated(data[0], stream, size);
    if (separated(data[0], stream, 1) != whole || separated(data[0], stream, 7) != whole) {
        std::abort();
    }
    return 0;
}
