// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipFile.h"

#include "sound/api/PcmHeader.h"
#include "support/host/TemporaryFolder.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include <unistd.h>

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

// Some file systems tell only then that a disk is full.
TEST(RipFile, SaysWhatFailsWhenItIsClosed) {
    const test::TemporaryFolder folder;
    const std::string path = folder / "x.wav";
    RipFile file(path, "head");
    const auto descriptor = [&path] {
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
            if (std::filesystem::read_symlink(entry.path(), none) == path) {
                return std::stoi(entry.path().filename().string());
            }
        }
        return -1;
    };
    int open = -1;
    for (int i = 0; i < 20'000 && (open < 0 || folder.read("x.wav") != "head"); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        open = descriptor();
    }
    ASSERT_GE(open, 0);
    ::close(open); // the writer waits for samples meanwhile
    file.close(0);
    waitForEnd(file);
    EXPECT_EQ(file.failure(), "Bad file descriptor");
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
