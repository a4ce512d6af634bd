// SPDX-License-Identifier: GPL-3.0-or-later
// Files of the less usual kinds: what is in them sounds, all of it and at its place.
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <span>
#include <string_view>

namespace tovik::sound::test {
namespace {

// How much of `source` is not in `decoded`, which may be longer or lie `shift` frames later, as a
// share of its power.
double missing(const std::vector<float>& decoded, const std::vector<float>& source,
               std::size_t shift = 0) {
    double off = 0.0;
    double whole = 0.0;
    for (std::size_t n = 0; n < source.size(); ++n) {
        const std::size_t at = n + 2 * shift;
        const auto wanted = static_cast<double>(source[n]);
        const double got = at < decoded.size() ? static_cast<double>(decoded[at]) : 0.0;
        off += (got - wanted) * (got - wanted);
        whole += wanted * wanted;
    }
    return off / whole;
}

// The shift, up to two blocks of an encoder, at which the least is missing.
double leastMissing(const std::vector<float>& decoded, const std::vector<float>& source) {
    const std::vector<float> part(source.begin(), source.begin() + 40'000);
    double least = 1.0;
    for (std::size_t shift = 0; shift < 2400; ++shift) {
        least = std::min(least, missing(decoded, part, shift));
    }
    return least;
}

TEST(Kinds, AdpcmOfBothKindsLiesOnItsSource) {
    for (const std::string name : {"adpcm_ms.wav", "adpcm_ima.wav"}) {
        const std::vector<float> source = readAll(*openMedia("wav_s16_44100_stereo.wav"));
        const std::unique_ptr<Decoder> decoder = openMedia(name);
        const std::vector<float> decoded = readAll(*decoder);
        EXPECT_EQ(decoder->lengthFrames(), static_cast<std::int64_t>(decoded.size() / 2)) << name;
        EXPECT_GE(decoded.size(), source.size()) << name;
        EXPECT_LT(decoded.size(), source.size() + 2 * 1020) << name << ": a block at most";
        EXPECT_LT(missing(decoded, source), 0.06) << name;
    }
}

TEST(Kinds, AWavWhoseSizesWereNeverWrittenPlaysToItsEnd) {
    auto bytes = fileBytes(mediaPath("wav_s16_44100_stereo.wav"));
    const auto data = std::ranges::search(bytes, std::as_bytes(std::span("data", 4)));
    ASSERT_EQ(data.size(), 4U);
    std::fill_n(data.end(), 4, std::byte{0});
    std::fill_n(bytes.begin() + 4, 4, std::byte{0});
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    EXPECT_EQ(readAll(*opened.decoder), readAll(*openMedia("wav_s16_44100_stereo.wav")));
}

TEST(Kinds, AdpcmPredictsBeyondThirtyTwoBits) {
    std::vector<std::byte> bytes;
    const auto text = [&bytes](std::string_view name) {
        std::ranges::copy(std::as_bytes(std::span(name)), std::back_inserter(bytes));
    };
    const auto numbers = [&bytes](std::size_t size, std::initializer_list<unsigned> values) {
        for (const unsigned value : values) {
            for (std::size_t n = 0; n < size; ++n) {
                bytes.push_back(static_cast<std::byte>(value >> 8U * n));
            }
        }
    };
    text("RIFF");
    numbers(4, {0});
    text("WAVEfmt ");
    numbers(4, {26});
    numbers(2, {2, 1}); // Microsoft's kind, one channel
    numbers(4, {8000, 4000});
    numbers(2, {8, 4, 8, 4, 1, 0x8000, 0x8000}); // blocks of 8 bytes; one pair, the lowest
    text("data");
    numbers(4, {8});
    numbers(1, {0});
    numbers(2, {16, 0x8000, 0x8000}); // step, and two samples, the lowest, too
    numbers(1, {0});
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    const std::vector<float> decoded = readAll(*opened.decoder);
    ASSERT_EQ(decoded.size(), 4U);
    EXPECT_EQ(decoded[1], -1.0F);
    EXPECT_EQ(decoded[2], 32767.0F / 32768.0F);
}

TEST(Kinds, MpegInAWavSoundsLikeItsSource) {
    const auto decoded = readAll(*openMedia("mp3_in_wav.wav"));
    EXPECT_LT(leastMissing(decoded, readAll(*openMedia("wav_s16_44100_stereo.wav"))), 0.1);
}

TEST(Kinds, FreeFormatSoundsLikeItsSource) {
    const auto source = readAll(*openMedia("wav_s16_44100_stereo.wav"));
    const auto decoded = readAll(*openMedia("mp3_free_format.mp3"));
    EXPECT_EQ(decoded.size(), source.size());
    EXPECT_LT(missing(decoded, source), 0.02);
}

TEST(Kinds, LayerTwoSoundsLikeItsSource) {
    // The noise in it is what this layer loses first.
    const auto decoded = readAll(*openMedia("layer2.mp2"));
    EXPECT_LT(leastMissing(decoded, readAll(*openMedia("wav_s16_44100_stereo.wav"))), 0.2);
}

TEST(Kinds, AFileOfTwoFramesPlaysBoth) {
    const OpenResult opened = openDecoder(FormatFamily::stream, mediaPath("two_frames.mp3"));
    ASSERT_TRUE(opened.decoder);
    EXPECT_EQ(opened.decoder->sampleRate(), 44'100);
    const std::vector<float> both = readAll(*opened.decoder);
    EXPECT_EQ(both.size() / 2, 2 * 1152U);
    EXPECT_EQ(scannedLength(*opened.decoder), 2 * 1152);
    const std::vector<float> whole = readAll(*openMedia("mp3_cbr_no_info.mp3"));
    EXPECT_TRUE(std::equal(both.begin(), both.end(), whole.begin()));
}

TEST(Kinds, AWmaOfTwoBlocksPlays) {
    const OpenResult opened = openDecoder(FormatFamily::wma, mediaPath("two_blocks.wma"));
    ASSERT_TRUE(opened.decoder);
    const std::vector<float> decoded = readAll(*opened.decoder);
    EXPECT_GE(decoded.size() / 2, 2048U);
    const auto loudest = std::ranges::max_element(
        decoded, [](float a, float b) { return std::abs(a) < std::abs(b); });
    EXPECT_GT(std::abs(*loudest), 0.1F);
}

TEST(Kinds, FlacInOggIsBitExactAndFoundByItsContent) {
    EXPECT_EQ(readAll(*openMedia("flac_in_ogg.ogg")),
              readAll(*openMedia("wav_s16_44100_stereo.wav")));
    EXPECT_EQ(openDecoder(FormatFamily::stream, mediaPath("flac_in_ogg.ogg")).status,
              OpenStatus::notMine);
}

TEST(Kinds, TheLinksOfAChainedOggFollowEachOther) {
    std::vector<float> links;
    std::int64_t length = 0;
    for (const std::string name : {"link_1.ogg", "link_2.ogg", "link_3.ogg"}) {
        const std::unique_ptr<Decoder> link = openMedia(name);
        const std::vector<float> samples = readAll(*link);
        links.insert(links.end(), samples.begin(), samples.end());
        length += link->lengthFrames();
    }
    const std::unique_ptr<Decoder> chain = openMedia("ogg_chained.ogg");
    EXPECT_EQ(chain->lengthFrames(), length);
    EXPECT_EQ(readAll(*chain), links);
    // A place in the last link, counted from the beginning of the whole.
    const std::int64_t place = length - 30'000;
    ASSERT_EQ(chain->seek(place), place);
    const std::vector<float> part = readFrames(*chain, 1000);
    EXPECT_TRUE(std::equal(part.begin(), part.end(), links.begin() + 2 * place));
}

TEST(Kinds, TheLinksOfAChainedFlacFollowEachOther) {
    const std::vector<float> whole = readAll(*openMedia("gapless_whole.wav"));
    for (const std::string name : {"flac_chained.ogg", "flac_chained_same.ogg"}) {
        SCOPED_TRACE(name);
        const std::unique_ptr<Decoder> chain = openMedia(name);
        EXPECT_EQ(chain->lengthFrames(), std::ssize(whole) / 2);
        EXPECT_EQ(readAll(*chain), whole);
        for (const std::int64_t place : {100'000, 5000, 88'211, 88'210, 250'000}) {
            ASSERT_EQ(chain->seek(place), place);
            const std::vector<float> part = readFrames(*chain, 3000);
            EXPECT_TRUE(std::equal(part.begin(), part.end(), whole.begin() + 2 * place)) << place;
        }
    }
}

TEST(Kinds, AChainedFlacThatBreaksOffEndsThere) {
    const std::vector<float> whole = readAll(*openMedia("gapless_whole.wav"));
    const auto all = fileBytes(mediaPath("flac_chained.ogg"));
    const auto last =
        static_cast<std::size_t>(std::filesystem::file_size(mediaPath("flac_link_3.ogg")));
    for (const std::size_t kept : {last / 2, std::size_t{60}, std::size_t{20}}) {
        const auto bytes = std::span(all).first(all.size() - last + kept);
        const OpenResult opened = openDecoder(FormatFamily::flac, bytes);
        ASSERT_TRUE(opened.decoder) << kept;
        const std::vector<float> heard = readAll(*opened.decoder);
        EXPECT_EQ(opened.decoder->lengthFrames(), std::ssize(heard) / 2) << kept;
        ASSERT_GE(std::ssize(heard), 176'399 * 2) << kept;
        EXPECT_TRUE(std::equal(heard.begin(), heard.end(), whole.begin())) << kept;
    }
}

TEST(Kinds, AChainMayChangeItsRate) {
    auto bytes = fileBytes(mediaPath("ogg_48000.ogg"));
    const auto second = fileBytes(mediaPath("link_1.ogg"));
    bytes.insert(bytes.end(), second.begin(), second.end());
    const std::unique_ptr<Decoder> first = openMedia("ogg_48000.ogg");
    ASSERT_EQ(first->sampleRate(), 48'000);
    const std::int64_t joint = (first->lengthFrames() * 147 + 80) / 160;
    const std::vector<float> behind = readAll(*openMedia("link_1.ogg"));
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    EXPECT_EQ(opened.decoder->sampleRate(), 44'100);
    EXPECT_EQ(opened.decoder->channels(), 2);
    const std::int64_t length = joint + std::ssize(behind) / 2;
    EXPECT_EQ(opened.decoder->lengthFrames(), length);
    const std::vector<float> whole = readAll(*opened.decoder);
    ASSERT_EQ(std::ssize(whole), 2 * length);
    EXPECT_TRUE(std::equal(behind.begin(), behind.end(), whole.begin() + 2 * joint));
    // From a place in the first link on into the second one.
    for (const std::int64_t place : {joint - 2000, joint, length - 500, length}) {
        ASSERT_EQ(opened.decoder->seek(place), place);
        const std::vector<float> rest = readAll(*opened.decoder);
        EXPECT_NEAR(static_cast<double>(std::ssize(rest)) / 2, static_cast<double>(length - place),
                    1.0);
        const std::size_t same = std::min(rest.size(), behind.size());
        EXPECT_TRUE(std::equal(rest.end() - static_cast<std::ptrdiff_t>(same), rest.end(),
                               behind.end() - static_cast<std::ptrdiff_t>(same)))
            << place;
    }
    constexpr std::int64_t kPlace = 147 * 100; // a frame of both rates
    ASSERT_EQ(opened.decoder->seek(kPlace), kPlace);
    const std::vector<float> part = readFrames(*opened.decoder, 10'000);
    const std::vector<float> there(whole.begin() + 2 * kPlace,
                                   whole.begin() + 2 * (kPlace + 10'000));
    EXPECT_LT(missing(part, there), 0.05);
}

TEST(Kinds, AChainThatBreaksOffInAHeadPlaysWhatIsWhole) {
    const auto first = fileBytes(mediaPath("link_1.ogg"));
    auto bytes = first;
    const auto second = fileBytes(mediaPath("link_2.ogg"));
    bytes.insert(bytes.end(), second.begin(), second.begin() + 4000);
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    const std::vector<float> whole = readAll(*openMedia("link_1.ogg"));
    EXPECT_EQ(readAll(*opened.decoder), whole);
    ASSERT_EQ(opened.decoder->seek(70'000), 70'000);
    const std::vector<float> part = readFrames(*opened.decoder, 1000);
    EXPECT_TRUE(std::equal(part.begin(), part.end(), whole.begin() + 140'000));
}

TEST(Kinds, AChainMayChangeItsChannels) {
    auto bytes = fileBytes(mediaPath("ogg_mono.ogg"));
    const auto second = fileBytes(mediaPath("link_1.ogg"));
    bytes.insert(bytes.end(), second.begin(), second.end());
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    EXPECT_EQ(opened.decoder->channels(), 2);
    const std::vector<float> mono = readAll(*openMedia("ogg_mono.ogg"));
    const std::vector<float> stereo = readAll(*openMedia("link_1.ogg"));
    const std::vector<float> chain = readAll(*opened.decoder);
    ASSERT_EQ(chain.size(), 2 * mono.size() + stereo.size());
    for (std::size_t n = 0; n < mono.size(); ++n) {
        ASSERT_EQ(chain[2 * n], mono[n]);
        ASSERT_EQ(chain[2 * n + 1], mono[n]);
    }
    EXPECT_TRUE(std::equal(stereo.begin(), stereo.end(), chain.end() - std::ssize(stereo)));
}

} // namespace
} // namespace tovik::sound::test
