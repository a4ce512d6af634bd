// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the list while the process is killed at any moment.
#include "playlist/Lists.h"
#include "playlist/M3uList.h"
#include "playlist/PlaylistFiles.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <thread>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::playlist {
namespace {

class IdlePump final : public host::MessagePump {
public:
    [[nodiscard]] bool Step() override { return true; }
};

/// Saves the lists in turn, with a byte into the pipe after each save, until it is killed.
[[noreturn]] void saveForEver(const PlaylistFiles& one, const PlaylistFiles& other, int pipe) {
    while (true) {
        for (const PlaylistFiles* files : {&one, &other}) {
            files->autosave_playlist();
            if (::write(pipe, "x", 1) != 1) {
                ::_exit(1);
            }
        }
    }
}

/// Waits for that many saves of the child.
bool sawSaves(int pipe, int saves) {
    char byte = 0;
    while (saves > 0 && ::read(pipe, &byte, 1) == 1) {
        --saves;
    }
    return saves == 0;
}

TEST(KilledSave, leavesOneWholeList) {
    const test::TemporaryFolder folder;
    const host::Paths paths(folder.path());
    IdlePump pump;
    stdSS shortList;
    stdSS longList;
    fill(shortList, {"a", "b"});
    for (int n = 0; n < 500; ++n) {
        fill(longList, {"title " + std::to_string(n)});
    }
    const PlaylistFiles one(shortList, pump, paths);
    const PlaylistFiles other(longList, pump, paths);
    folder.write("db/autosave.m3u", m3uText(shortList));
    int longOnes = 0;
    for (int round = 0; round < 500; ++round) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            saveForEver(one, other, pipe[1]);
        }
        const bool saved = sawSaves(pipe[0], 1 + round % 2);
        std::this_thread::sleep_for(std::chrono::microseconds(round * 37 % 500)); // any moment
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(saved && WIFSIGNALED(status));
        ::close(pipe[0]);
        ::close(pipe[1]);
        const std::string list = folder.read("db/autosave.m3u");
        longOnes += list == m3uText(longList) ? 1 : 0;
        ASSERT_TRUE(list == m3uText(longList) || list == m3uText(shortList)) << round;
    }
    EXPECT_GT(longOnes, 0);
    EXPECT_LT(longOnes, 500);
}

} // namespace
} // namespace tovik::playlist
