// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipFile.h"

#include "sound/api/PcmHeader.h"
#include "support/host/TemporaryFolder.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace tovik::cd {

namespace {

void waitForEnd(const RipFile& file) {
    for (int i = 0; i < 20'000 && !file.ended(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(file.ended());
}

} // namespace

TEST(RipFile, HoldsHeadAndSamplesAndBothSizes) {
    const test::TemporaryFolder folder;
    RipFile file(folder.write("x.wav", std::string(10000, 'x')),
                 sound::pcmHeader(44100, 2, 16, 0, 0));
    const std::array<std::byte, 4> samples{std::byte{1}, std::byte{2}, std::byte{3}, std::byte{4}};
    file.write(samples);
    file.write({});
    file.write(samples);
    file.close(8);
    waitForEnd(file);
    EXPECT_EQ(file.failure(), "");
    EXPECT_EQ(folder.read("x.wav"),
              std::string("RIFF\x2c\0\0\0WAVEfmt \x10\0\0\0\x01\0\x02\0\x44\xac\0\0\x10\xb1\x02\0"
                          "\x04\0\x10\0data\x08\0\0\0\x01\x02\x03\x04\x01\x02\x03\x04",
                          52));
}

TEST(RipFile, KeepsWhatWasWrittenWithoutAClose) {
    const test::TemporaryFolder folder;
    {
        RipFile file(folder / "x.wav", "head");
        const std::array<std::byte, 1> sample{std::byte{'s'}};
        file.write(sample);
    }
    for (int i = 0; i < 20'000 &&
                    (!std::filesystem::exists(folder / "x.wav") || folder.read("x.wav") != "heads");
         ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(folder.read("x.wav"), "heads");
}

TEST(RipFile, SaysWhatFails) {
    RipFile full("/dev/full", "head");
    waitForEnd(full);
    EXPECT_EQ(full.failure(), "No space left on device");
    EXPECT_TRUE(full.takesMore()); // and throws it away
    RipFile nowhere("/no/such/folder/x.wav", "head");
    waitForEnd(nowhere);
    EXPECT_EQ(nowhere.failure(), "No such file or directory");
}

} // namespace tovik::cd
