// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/WavWriter.h"
#include "sound/output/WavFile.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <bit>
#include <filesystem>
#include <limits>
#include <thread>

namespace tovik::sound {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class WavWriterTest : public testing::Test {
protected:
    [[nodiscard]] std::string file(const std::string& name) const { return folder_ / name; }

private:
    test::TemporaryFolder folder_;
};

TEST_F(WavWriterTest, ReadsBackBitForBit) {
    const std::vector<float> samples = {
        0.0F, -0.0F, 1.0F, -1.0F, 0.1F, -1e-20F, std::numeric_limits<float>::denorm_min(), 17.5F};
    {
        WavWriter writer(file("a.wav"), 44100, 2);
        writer.write(std::span(samples).first(2));
        writer.write(std::span(samples).subspan(2));
        writer.close();
        EXPECT_TRUE(writer.ok()) << writer.error();
    }
    const auto wav = readWav(file("a.wav"));
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->formatTag, 3);
    EXPECT_EQ(wav->channels, 2);
    EXPECT_EQ(wav->sampleRate, 44100U);
    EXPECT_EQ(wav->bytesPerSecond, 44100U * 8);
    EXPECT_EQ(wav->frameBytes, 8);
    EXPECT_EQ(wav->bitsPerSample, 32);
    EXPECT_EQ(wav->factFrames, 4U);
    EXPECT_EQ(wav->dataBytes, 32U);
    EXPECT_EQ(wav->riffBytes, std::filesystem::file_size(file("a.wav")) - 8);
    ASSERT_EQ(wav->samples.size(), samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        EXPECT_EQ(std::bit_cast<std::uint32_t>(wav->samples[i]),
                  std::bit_cast<std::uint32_t>(samples[i]));
    }
}

TEST_F(WavWriterTest, WritesMoreThanItsBuffer) {
    std::vector<float> samples(50'001);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(i) / 65536;
    }
    WavWriter writer(file("long.wav"), 8000, 1);
    writer.write(samples);
    writer.close();
    const auto wav = readWav(file("long.wav"));
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->samples, samples);
    EXPECT_EQ(wav->factFrames, 50'001U);
}

TEST_F(WavWriterTest, AnEmptyRecordingIsAWholeFile) {
    { const WavWriter writer(file("empty.wav"), 44100, 2); }
    const auto wav = readWav(file("empty.wav"));
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->dataBytes, 0U);
    EXPECT_EQ(wav->riffBytes, kWavHeaderBytes - 8);
}

TEST_F(WavWriterTest, ReplacesALongerFile) {
    {
        WavWriter writer(file("twice.wav"), 44100, 2);
        writer.write(std::vector<float>(1000));
    }
    {
        WavWriter writer(file("twice.wav"), 44100, 2);
        writer.write(std::vector<float>(10));
    }
    EXPECT_EQ(std::filesystem::file_size(file("twice.wav")), kWavHeaderBytes + 40);
}

TEST_F(WavWriterTest, AFileThatIsStillWrittenSaysReadToTheEnd) {
    WavWriter writer(file("open.wav"), 44100, 2);
    writer.write(std::vector<float>(200'000));
    const auto wav = readWav(file("open.wav"));
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->dataBytes, 0xFFFFFFFFU);
    EXPECT_GT(wav->samples.size(), 100'000U);
}

TEST(WavHeader, SizesBeyondFourGibibytesReadToTheEnd) {
    const auto field = [](std::uint64_t dataBytes, std::size_t at) {
        const auto header = wavHeader(44100, 2, dataBytes);
        std::uint32_t value = 0;
        for (std::size_t i = 4; i-- > 0;) {
            value = value << 8U | header[at + i];
        }
        return value;
    };
    constexpr std::size_t kRiff = 4;
    constexpr std::size_t kFact = 46;
    constexpr std::size_t kData = 54;
    constexpr std::uint64_t kLargest = 0xFFFFFFFFULL - 50;
    EXPECT_EQ(field(kLargest - 5, kRiff), 0xFFFFFFFFU - 5);
    EXPECT_EQ(field(kLargest - 5, kData), kLargest - 5);
    EXPECT_EQ(field(0x1'0000'0000ULL, kRiff), 0xFFFFFFFFU);
    EXPECT_EQ(field(0x1'0000'0000ULL, kData), 0xFFFFFFFFU);
    EXPECT_EQ(field(0x1'0000'0000ULL, kFact), 0x2000'0000U);
    EXPECT_EQ(field(0x10'0000'0000ULL, kFact), 0xFFFFFFFFU);
}

TEST_F(WavWriterTest, AFullDiskIsReported) {
    WavWriter writer("/dev/full", 44100, 2);
    writer.write(std::vector<float>(100'000));
    EXPECT_FALSE(writer.ok());
    EXPECT_THAT(writer.error(), HasSubstr("Cannot write \"/dev/full\": No space left"));
}

TEST_F(WavWriterTest, ADiskThatFillsWithTheLastBytesIsReported) {
    WavWriter writer("/dev/full", 44100, 2);
    writer.write(std::vector<float>(2));
    EXPECT_TRUE(writer.ok()) << "nothing left the buffer yet";
    writer.close();
    EXPECT_FALSE(writer.ok());
    EXPECT_THAT(writer.error(), HasSubstr("No space left"));
}

TEST_F(WavWriterTest, AFileThatCannotBeCreatedIsReported) {
    WavWriter writer(file("no/such/folder.wav"), 44100, 2);
    EXPECT_FALSE(writer.ok());
    EXPECT_THAT(writer.error(), HasSubstr("Cannot create"));
    writer.write(std::vector<float>(2));
    writer.close();
    EXPECT_THAT(writer.error(), HasSubstr("Cannot create"));
}

TEST_F(WavWriterTest, APipeGetsAnEndlessFile) {
    ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
    std::optional<WavFile> wav;
    std::thread reader([&] { wav = readWav(file("pipe")); });
    WavWriter writer(file("pipe"), 44100, 2);
    writer.write(std::vector<float>{1.0F, 2.0F});
    writer.close();
    reader.join();
    EXPECT_TRUE(writer.ok()) << writer.error();
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->dataBytes, 0xFFFFFFFFU);
    EXPECT_THAT(wav->samples, ElementsAre(1.0F, 2.0F));
}

} // namespace
} // namespace tovik::sound
