// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/encode/WmaEncoder.h"

#include "sound/decode/Media.h"
#include "sound/encode/EncodeRig.h"
#include "support/host/TemporaryFolder.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <numbers>

namespace tovik::sound {

namespace {

using tovik::test::TemporaryFolder;

constexpr WmaForm kForm{.rate = 44100, .bitrate = 128000};

EncodeReport endOf(const WmaEncoder& encoder) {
    return test::waitForEnd([&] { return encoder.report(); });
}

std::vector<std::int16_t> tone(std::size_t frames) {
    std::vector<std::int16_t> samples(frames * 2);
    for (std::size_t i = 0; i < frames; ++i) {
        const double angle = 2 * std::numbers::pi * 441 * static_cast<double>(i) / 44100;
        samples[2 * i] = static_cast<std::int16_t>(16000 * std::sin(angle));
        samples[2 * i + 1] = static_cast<std::int16_t>(-8000 * std::sin(angle));
    }
    return samples;
}

/// A text as ASF holds it.
std::string utf16(std::string_view text) {
    std::string bytes;
    for (const char c : text) {
        bytes += {c, '\0'};
    }
    return bytes;
}

} // namespace

TEST(WmaEncoder, WritesWhatItWasGiven) {
    const TemporaryFolder folder;
    const std::string path = folder / "a: b.wma"; // looks like a protocol
    constexpr std::size_t kFrames = 100'000;
    const std::vector<std::int16_t> samples = tone(kFrames);
    WmaEncoder encoder(path, kForm);
    EXPECT_TRUE(encoder.setTag("Title", "The song"));
    EXPECT_TRUE(encoder.setTag("Author", "Someone"));
    EXPECT_TRUE(encoder.setTag("WM/Year", "1999"));
    const auto bytes = std::as_bytes(std::span(samples));
    for (std::size_t at = 0; at < bytes.size(); at += 20000) {
        EXPECT_TRUE(
            encoder.feed(bytes.subspan(at, std::min<std::size_t>(20000, bytes.size() - at))));
    }
    encoder.close();
    ASSERT_EQ(endOf(encoder).stage, EncodeStage::finished);
    EXPECT_FALSE(encoder.setTag("Title", "Too late"));

    const std::string file = folder.read("a: b.wma");
    for (const char* text : {"The song", "Someone", "WM/Year", "1999"}) {
        EXPECT_NE(file.find(utf16(text)), std::string::npos) << text;
    }
    OpenResult opened = openDecoder(FormatFamily::wma, path);
    ASSERT_EQ(opened.status, OpenStatus::opened);
    const std::vector<float> read = test::readAll(*opened.decoder);
    // The last frame is filled up, and the format counts in milliseconds.
    EXPECT_NEAR(static_cast<double>(read.size()) / 2, kFrames, 2048 + 100);
    double left = 0;
    double right = 0;
    constexpr std::size_t kFrom = 20000;
    for (std::size_t i = kFrom; i < kFrom + 40000; ++i) {
        left += std::pow(double{read[2 * i]}, 2);
        right += std::pow(double{read[2 * i + 1]}, 2);
    }
    EXPECT_NEAR(std::sqrt(left / 40000), 16000 / 32768.0 / std::numbers::sqrt2, 0.01);
    EXPECT_NEAR(std::sqrt(right / 40000), 8000 / 32768.0 / std::numbers::sqrt2, 0.01);
}

TEST(WmaEncoder, MakesAFileOfNothing) {
    const TemporaryFolder folder;
    WmaEncoder encoder(folder / "empty.wma", kForm);
    encoder.close();
    EXPECT_EQ(endOf(encoder).stage, EncodeStage::finished);
    EXPECT_GT(std::filesystem::file_size(folder / "empty.wma"), 100U);
}

TEST(WmaEncoder, SaysWhyItCannotWrite) {
    const WmaEncoder nowhere("/no/such/folder/x.wma", kForm);
    const EncodeReport report = endOf(nowhere);
    EXPECT_EQ(report.stage, EncodeStage::failed);
    EXPECT_EQ(report.words, "No such file or directory");

    WmaEncoder full("/dev/full", kForm);
    const std::vector<std::int16_t> samples = tone(200'000);
    full.feed(std::as_bytes(std::span(samples)));
    full.close();
    const EncodeReport later = endOf(full);
    EXPECT_EQ(later.stage, EncodeStage::failed);
    EXPECT_EQ(later.words, "No space left on device");
    EXPECT_FALSE(full.feed(std::as_bytes(std::span(samples))));
}

} // namespace tovik::sound
