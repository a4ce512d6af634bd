// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/riff/RiffHead.h"

#include "sound/decode/riff/Fields.h"

#include <algorithm>
#include <cstdint>

namespace tovik::sound::riff {
namespace {

constexpr std::size_t kFileHeadBytes = 12;
constexpr std::size_t kChunkHeadBytes = 8;
constexpr std::size_t kPlainFormBytes = 16;
constexpr std::size_t kExtensibleFormBytes = 40;
constexpr std::size_t kMostFormBytes = 1024;
constexpr int kMostChunks = 1000;

// The body of a chunk "fmt ".
void readForm(std::span<const std::byte> body, RiffHead& head) {
    const Fields fields(body);
    head.form = fields.word(0);
    head.channels = fields.word(2);
    head.rate = fields.longWord(4);
    head.blockBytes = fields.word(12);
    head.bits = fields.word(14);
    const auto more = body.subspan(kPlainFormBytes);
    head.more.assign(more.begin(), more.end());
    if (head.form == kExtensible && body.size() >= kExtensibleFormBytes) {
        head.speakerMask = fields.longWord(20);
        head.form = fields.word(24); // the beginning of the form's long name
    }
}

} // namespace

bool isRiff(const ByteStore& store) {
    const auto start = readBytes(store, 0, kFileHeadBytes);
    return start.size() == kFileHeadBytes && Fields(start).isName(0, "RIFF") &&
           Fields(start).isName(8, "WAVE");
}

std::optional<RiffHead> readRiffHead(const ByteStore& store) {
    if (!isRiff(store)) {
        return std::nullopt;
    }
    RiffHead head;
    auto at = static_cast<std::int64_t>(kFileHeadBytes);
    for (int n = 0; n < kMostChunks; ++n) {
        const auto chunk = readBytes(store, at, kChunkHeadBytes + kMostFormBytes);
        if (chunk.size() < kChunkHeadBytes) {
            return std::nullopt;
        }
        const Fields fields(chunk);
        const auto size = static_cast<std::int64_t>(fields.longWord(4));
        const std::int64_t body = at + static_cast<std::int64_t>(kChunkHeadBytes);
        if (fields.isName(0, "data")) {
            head.dataAt = body;
            // Who was cut off while recording never came back to write the size.
            const std::int64_t told = size == 0 ? INT64_MAX : size;
            head.dataBytes = std::clamp<std::int64_t>(store.size() - body, 0, told);
            return head.channels > 0 ? std::optional(head) : std::nullopt;
        }
        const auto held = std::span(chunk).subspan(kChunkHeadBytes);
        const auto known = held.first(std::min(held.size(), static_cast<std::size_t>(size)));
        if (fields.isName(0, "fmt ") && known.size() >= kPlainFormBytes) {
            readForm(known, head);
        } else if (fields.isName(0, "fact") && known.size() >= 4) {
            head.factFrames = Fields(known).longWord(0);
        }
        at = body + size + size % 2;
    }
    return std::nullopt;
}

} // namespace tovik::sound::riff
