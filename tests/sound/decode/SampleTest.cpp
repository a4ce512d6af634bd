// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded samples against the bytes that stand in uncompressed files.
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace tovik::sound::test {
namespace {

std::uint32_t littleEndian(std::span<const std::byte> bytes) {
    std::uint32_t value = 0;
    for (std::size_t n = bytes.size(); n-- > 0;) {
        value = value << 8U | std::to_integer<std::uint32_t>(bytes[n]);
    }
    return value;
}

// One sample by the definition of its form: whole numbers over their full scale.
double sampleOf(std::span<const std::byte> bytes, bool isFloat) {
    const std::uint32_t word = littleEndian(bytes);
    if (isFloat) {
        return static_cast<double>(std::bit_cast<float>(word));
    }
    if (bytes.size() == 1) {
        return (static_cast<double>(word) - 128.0) / 128.0;
    }
    const auto bits = static_cast<unsigned>(8 * bytes.size());
    const auto value = static_cast<std::int32_t>(word << (32U - bits));
    return static_cast<double>(value) / 2147483648.0;
}

// The samples of a WAV of the media, whose data chunk is the last thing in the file.
std::vector<double> wavSamples(const MediaFile& file, std::size_t channels) {
    const auto bytes = fileBytes(mediaPath(file.name));
    const bool isFloat = file.name.find("_f32") != std::string::npos;
    const std::size_t sampleBytes = file.name.find("_u8") != std::string::npos    ? 1
                                    : file.name.find("_s24") != std::string::npos ? 3
                                    : file.name.find("_s32") != std::string::npos ? 4
                                    : isFloat                                     ? 4
                                                                                  : 2;
    const std::size_t count = static_cast<std::size_t>(file.frames) * channels;
    const std::size_t padding = count * sampleBytes % 2;
    const auto data = std::span(bytes).last(count * sampleBytes + padding);
    std::vector<double> samples(count);
    for (std::size_t n = 0; n < count; ++n) {
        samples[n] = sampleOf(data.subspan(n * sampleBytes, sampleBytes), isFloat);
    }
    return samples;
}

TEST(Samples, UncompressedFilesSurviveExactly) {
    int checked = 0;
    for (const MediaFile& file : allMedia()) {
        if (file.kind != "wav" || file.channels > 2) {
            continue;
        }
        const std::vector<double> expected =
            wavSamples(file, static_cast<std::size_t>(file.channels));
        const std::vector<float> decoded = readAll(*openMedia(file.name), 1237);
        ASSERT_EQ(decoded.size(), expected.size()) << file.name;
        for (std::size_t n = 0; n < decoded.size(); ++n) {
            // Only 32-bit whole numbers have to be rounded.
            ASSERT_EQ(decoded[n], static_cast<float>(expected[n])) << file.name << " at " << n;
        }
        ++checked;
    }
    EXPECT_GE(checked, 18);
}

TEST(Samples, LosslessFilesEqualTheirSource) {
    int checked = 0;
    for (const MediaFile& file : goodMedia()) {
        if (file.kind == "flac" || file.kind == "aiff") {
            EXPECT_EQ(readAll(*openMedia(file.name)), readAll(*openMedia(file.source)))
                << file.name;
            ++checked;
        }
    }
    EXPECT_GE(checked, 10);
}

double correlation(const std::vector<float>& a, const std::vector<float>& b, std::size_t shift) {
    double sum = 0.0;
    for (std::size_t n = shift; n < a.size(); ++n) {
        sum += static_cast<double>(a[n]) * static_cast<double>(b[n - shift]);
    }
    return sum;
}

// Whatever an encoder loses, the sound must lie in its place: it fits worse one frame to each side.
TEST(Samples, LossyFilesLieOnTheirSource) {
    int checked = 0;
    for (const MediaFile& file : goodMedia()) {
        if (file.frames == 0 || (file.kind != "mp3" && file.kind != "ogg")) {
            continue;
        }
        const std::vector<float> decoded = readAll(*openMedia(file.name));
        const std::vector<float> source = readAll(*openMedia(file.source));
        ASSERT_EQ(decoded.size(), source.size()) << file.name;
        const auto frame = static_cast<std::size_t>(file.channels);
        const double there = correlation(decoded, source, 0);
        EXPECT_GT(there, correlation(decoded, source, frame)) << file.name;
        EXPECT_GT(there, correlation(source, decoded, frame)) << file.name;
        EXPECT_GT(there, 0.7 * correlation(source, source, 0)) << file.name;
        ++checked;
    }
    EXPECT_GE(checked, 9);
}

TEST(Samples, BlockSizeDoesNotMatter) {
    for (const std::string name : {"mp3_vbr.mp3", "ogg_mono.ogg", "flac_24_48000.flac",
                                   "wav_s16_44100_5_1.wav", "wma_44100.wma"}) {
        const std::vector<float> whole = readAll(*openMedia(name), 1 << 20);
        for (const std::size_t block : {1U, 63U, 1152U, 5000U}) {
            EXPECT_EQ(readAll(*openMedia(name), block), whole) << name << " by " << block;
        }
    }
}

// ITU-R BS.775 as films are played at the level of stereo: the front untouched, centre and surround
// at -3 dB, the bass channel left out. What exceeds full scale is for the guard of the mix.
TEST(Samples, SixChannelsPlayAtTheLevelOfStereo) {
    const auto& media = allMedia();
    const auto file = std::ranges::find(media, "wav_s16_44100_5_1.wav", &MediaFile::name);
    ASSERT_NE(file, media.end());
    const std::vector<double> six = wavSamples(*file, 6);
    const double side = std::sqrt(0.5);
    for (const auto& [name, slack] :
         {std::pair<std::string, double>{file->name, 1e-6}, {"flac_5_1.flac", 1e-6}}) {
        const std::vector<float> two = readAll(*openMedia(name), 777);
        ASSERT_EQ(two.size() / 2, six.size() / 6) << name;
        for (std::size_t n = 0; n < two.size() / 2; ++n) {
            const std::span in = std::span(six).subspan(6 * n, 6);
            ASSERT_NEAR(two[2 * n], in[0] + side * in[2] + side * in[4], slack) << name << n;
            ASSERT_NEAR(two[2 * n + 1], in[1] + side * in[2] + side * in[5], slack) << name << n;
        }
    }
}

TEST(Samples, SixChannelsOfVorbisAreMixedTheSame) {
    // Its channels come in another order; a lossy codec leaves the sum near that of the source.
    const std::vector<float> vorbis = readAll(*openMedia("ogg_5_1.ogg"));
    const std::vector<float> plain = readAll(*openMedia("wav_s16_44100_5_1.wav"));
    ASSERT_EQ(vorbis.size(), plain.size());
    for (std::size_t side = 0; side < 2; ++side) {
        double difference = 0.0;
        double whole = 0.0;
        for (std::size_t n = side; n < plain.size(); n += 2) {
            const auto off = static_cast<double>(vorbis[n] - plain[n]);
            difference += off * off;
            whole += static_cast<double>(plain[n]) * static_cast<double>(plain[n]);
        }
        EXPECT_LT(difference, 0.05 * whole) << side;
    }
}

} // namespace
} // namespace tovik::sound::test
