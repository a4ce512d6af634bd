// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/riff/AiffOpen.h"

#include "sound/decode/Resampler.h"
#include "sound/decode/riff/BlockDecoder.h"
#include "sound/decode/riff/Fields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace tovik::sound::riff {
namespace {

constexpr std::size_t kFileHeadBytes = 12;
constexpr std::size_t kChunkHeadBytes = 8;
constexpr std::size_t kPlainCommonBytes = 18;
constexpr std::size_t kCommonBytes = 22; ///< with the name of a compression
constexpr std::size_t kSoundHeadBytes = 8;
constexpr int kMostChunks = 1000;
constexpr std::size_t kMostChannels = 64;

/// Number forms by the name that AIFF-C gives them; bytes 0: as many as the bits need.
struct Compression {
    std::string_view name;
    PcmForm form;
};

constexpr std::array<Compression, 10> kCompressions = {{
    {"NONE", {0, false, false, true}},
    {"twos", {0, false, false, true}},
    {"sowt", {2, false, false, false}},
    {"raw ", {1, false, true, false}},
    {"in24", {3, false, false, true}},
    {"in32", {4, false, false, true}},
    {"fl32", {4, true, false, true}},
    {"FL32", {4, true, false, true}},
    {"fl64", {8, true, false, true}},
    {"FL64", {8, true, false, true}},
}};

struct AiffHead {
    std::size_t channels = 0;
    std::int64_t frames = 0;
    double rate = 0.0;
    PcmForm form;
    std::int64_t dataAt = 0;
    std::int64_t dataBytes = 0;
};

// An 80-bit float of IEEE 754, as whole rates need it.
double extended(const Fields& fields, std::size_t at) {
    const int exponent = fields.bigWord(at) & 0x7FFF;
    const double high = fields.bigLongWord(at + 2);
    const double low = fields.bigLongWord(at + 6);
    return std::ldexp(high, exponent - 16383 - 31) + std::ldexp(low, exponent - 16383 - 63);
}

bool readCommon(const Fields& fields, AiffHead& head) {
    head.channels = fields.bigWord(0);
    head.frames = fields.bigLongWord(2);
    head.rate = extended(fields, 8);
    const std::size_t bits = fields.bigWord(6);
    const auto* const row =
        std::ranges::find_if(kCompressions, [&fields](const Compression& compression) {
            return fields.size() < kCommonBytes ? compression.name == "NONE"
                                                : fields.isName(18, compression.name);
        });
    if (row == kCompressions.end()) {
        return false;
    }
    head.form = row->form;
    if (head.form.bytes == 0) {
        head.form.bytes = (bits + 7) / 8;
    }
    return true;
}

std::optional<AiffHead> readHead(const ByteStore& store) {
    AiffHead head;
    bool common = false;
    auto at = static_cast<std::int64_t>(kFileHeadBytes);
    for (int n = 0; n < kMostChunks; ++n) {
        const auto chunk = readBytes(store, at, kChunkHeadBytes + kCommonBytes);
        if (chunk.size() < kChunkHeadBytes) {
            break;
        }
        const Fields fields(chunk);
        const std::int64_t size = fields.bigLongWord(4);
        const std::int64_t body = at + static_cast<std::int64_t>(kChunkHeadBytes);
        const auto held = std::span(chunk).subspan(kChunkHeadBytes);
        const auto known = held.first(std::min(held.size(), static_cast<std::size_t>(size)));
        if (fields.isName(0, "COMM") && known.size() >= kPlainCommonBytes) {
            common = readCommon(Fields(known), head);
        } else if (fields.isName(0, "SSND") && known.size() >= kSoundHeadBytes) {
            const std::int64_t offset = Fields(known).bigLongWord(0);
            head.dataAt = body + static_cast<std::int64_t>(kSoundHeadBytes) + offset;
            head.dataBytes = std::max<std::int64_t>(
                size - static_cast<std::int64_t>(kSoundHeadBytes) - offset, 0);
        }
        at = body + size + size % 2;
    }
    return common && head.dataAt > 0 ? std::optional(head) : std::nullopt;
}

} // namespace

bool isAiff(const ByteStore& store) {
    const auto start = readBytes(store, 0, kFileHeadBytes);
    const Fields fields(start);
    return start.size() == kFileHeadBytes && fields.isName(0, "FORM") &&
           (fields.isName(8, "AIFF") || fields.isName(8, "AIFC"));
}

OpenResult openAiff(const std::shared_ptr<const ByteStore>& store) {
    if (!isAiff(*store)) {
        return {OpenStatus::notMine, nullptr};
    }
    const std::optional<AiffHead> head = readHead(*store);
    if (!head || head->channels > kMostChannels || !(head->rate >= Resampler::kLowestRate) ||
        head->rate > Resampler::kHighestRate) {
        return {OpenStatus::broken, nullptr};
    }
    BlockPlace place = {partOf(store, head->dataAt, head->dataBytes),
                        makePcmCodec(head->form, head->channels), speakersOf(0, head->channels),
                        static_cast<int>(std::lround(head->rate)), head->frames};
    if (!place.codec) {
        return {OpenStatus::broken, nullptr};
    }
    return {OpenStatus::opened, std::make_unique<BlockDecoder>(std::move(place))};
}

} // namespace tovik::sound::riff
