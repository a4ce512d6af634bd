// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/riff/RiffOpen.h"

#include "sound/decode/mpeg/MpegDecoder.h"
#include "sound/decode/Resampler.h"
#include "sound/decode/riff/BlockDecoder.h"
#include "sound/decode/riff/Fields.h"
#include "sound/decode/riff/RiffHead.h"

#include <array>

namespace tovik::sound::riff {
namespace {

constexpr std::size_t kMostChannels = 64;

std::unique_ptr<BlockCodec> pcm(const RiffHead& head) {
    const std::size_t bytes = head.blockBytes / head.channels;
    const PcmForm form = {.bytes = bytes, .isFloat = false, .isUnsigned = bytes == 1};
    return head.blockBytes % head.channels == 0 ? makePcmCodec(form, head.channels) : nullptr;
}

std::unique_ptr<BlockCodec> floats(const RiffHead& head) {
    const PcmForm form = {.bytes = std::size_t{head.blockBytes} / head.channels, .isFloat = true};
    return head.blockBytes % head.channels == 0 ? makePcmCodec(form, head.channels) : nullptr;
}

std::unique_ptr<BlockCodec> ima(const RiffHead& head) {
    return head.bits == 4 ? makeImaCodec(head.blockBytes, head.channels) : nullptr;
}

// Behind the common fields: their size, the frames of a block, the number of pairs, the pairs.
std::unique_ptr<BlockCodec> microsoft(const RiffHead& head) {
    constexpr std::size_t kCountAt = 4;
    constexpr std::size_t kPairsAt = 6;
    constexpr std::size_t kPairBytes = 4;
    const Fields fields(head.more);
    std::vector<MsCoefficients> pairs;
    const std::size_t count = fields.size() < kPairsAt ? 0 : fields.word(kCountAt);
    for (std::size_t n = 0; n < count && kPairsAt + (n + 1) * kPairBytes <= fields.size(); ++n) {
        const std::size_t at = kPairsAt + n * kPairBytes;
        pairs.push_back({fields.signedWord(at), fields.signedWord(at + 2)});
    }
    return makeMsCodec(head.blockBytes, head.channels, std::move(pairs));
}

struct Row {
    FormTag form;
    std::unique_ptr<BlockCodec> (*make)(const RiffHead&);
    bool packed; ///< the last block may hold less than it has room for, which a chunk tells
};

constexpr std::array<Row, 4> kRows = {{{kPcm, &pcm, false},
                                       {kFloat, &floats, false},
                                       {kImaAdpcm, &ima, true},
                                       {kMsAdpcm, &microsoft, true}}};

} // namespace

OpenResult openRiff(const std::shared_ptr<const ByteStore>& store) {
    const std::optional<RiffHead> head = readRiffHead(*store);
    if (!head) {
        return {OpenStatus::notMine, nullptr};
    }
    auto data = partOf(store, head->dataAt, head->dataBytes);
    if (head->form == kMpegLayer3 || head->form == kMpegLayer12) {
        return mpeg::openMpegStream(std::move(data));
    }
    const bool sane = head->channels <= kMostChannels && head->rate >= Resampler::kLowestRate &&
                      head->rate <= Resampler::kHighestRate;
    for (const Row& row : kRows) {
        if (sane && row.form == head->form) {
            const bool limited = row.packed && head->factFrames > 0;
            BlockPlace place = {
                std::move(data), row.make(*head), speakersOf(head->speakerMask, head->channels),
                static_cast<int>(head->rate), limited ? head->factFrames : INT64_MAX};
            if (!place.codec) {
                return {OpenStatus::broken, nullptr};
            }
            return {OpenStatus::opened, std::make_unique<BlockDecoder>(std::move(place))};
        }
    }
    return {OpenStatus::notMine, nullptr};
}

} // namespace tovik::sound::riff
