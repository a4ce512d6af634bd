// SPDX-License-Identifier: GPL-3.0-or-later
// Updates that are killed at any moment. TOVIK_KILLS says how often; 30 times without it.
#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace tovik::tags {
namespace {

using namespace samples;

int kills() {
    const char* const told = std::getenv("TOVIK_KILLS");
    return told == nullptr ? 30 : std::atoi(told);
}

/// A file as an encoder made it.
std::string encodedSound() {
    const test::TemporaryFolder folder;
    const std::string media = std::string(std::getenv("TOVIK_MEDIA")) + "/mp3_cbr128.mp3";
    std::filesystem::copy_file(media, folder / "song.mp3");
    const std::string once = folder.read("song.mp3");
    std::string bytes;
    while (bytes.size() < 1000000) {
        bytes += once;
    }
    return bytes;
}

/// Saves both tags again and again, in place and by moving the sound; never returns.
[[noreturn]] void saveForEver(const std::string& path) {
    test::RecordingDialogs dialogs;
    TagWarning warning(dialogs);
    for (std::size_t round = 1;; ++round) {
        // The room grows with each round: every other save moves the sound.
        const std::string text(round * 2000 / (round % 2 + 1), static_cast<char>('a' + round % 26));
        cMP3ID3v2 second(warning);
        second.MP3File(path);
        second.Title(text);
        second.Artist(text);
        second.Update();
        cMP3ID3v1 first(warning);
        first.MP3File(path);
        first.Title(text);
        first.Album(text);
        first.Update();
    }
}

TEST(KilledUpdate, leavesTheSoundAndWholeTags) {
    const std::string whole = encodedSound();
    const test::TemporaryFolder folder;
    std::mt19937 random(static_cast<std::mt19937::result_type>(::getpid()));
    int moved = 0;
    for (int round = 0; round < kills(); ++round) {
        const std::string path = folder.write("song.mp3", whole);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            saveForEver(path);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 40000));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        const std::string left = folder.read("song.mp3");
        const std::size_t at = left.find(whole);
        ASSERT_NE(at, std::string::npos) << round;
        moved += at > 0 ? 1 : 0;
        ASSERT_TRUE(at == 0 || left.starts_with("ID3\3"s)) << round;
        const std::size_t behind = left.size() - at - whole.size();
        ASSERT_TRUE(behind == 0 || behind == 128) << round;
        test::RecordingDialogs dialogs;
        TagWarning warning(dialogs);
        cMP3ID3v1 first(warning);
        first.MP3File(path);
        EXPECT_EQ(first.Title(), first.Album()) << round;
        cMP3ID3v2 second(warning);
        second.MP3File(path);
        // A larger one in place may be half of each; the sound behind it never is.
        if (second.Title().size() + second.Artist().size() < 4000) {
            EXPECT_EQ(second.Title(), second.Artist()) << round;
        }
    }
    EXPECT_GT(moved, 0) << "each child was killed before it saved anything";
}

} // namespace
} // namespace tovik::tags
