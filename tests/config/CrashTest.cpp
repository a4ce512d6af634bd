// SPDX-License-Identifier: GPL-3.0-or-later
// A process that is killed while it saves leaves whole settings.
#include "config/SettingsFixture.h"

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <set>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::config {
namespace {

constexpr int kKills = 500;
constexpr std::chrono::microseconds kLongestLife(3000);

class CrashTest : public test::SettingsFixture {
protected:
    void SetUp() override {
        std::filesystem::create_directory(host_.folder / "db");
        std::filesystem::copy_file(TOVIK_DATA_DIR "/db/settings.xml", path());
    }

    /// Reads and writes by turns until it is killed; tells by one byte that it has begun.
    [[noreturn]] void saveForEver(int told, int round) {
        for (int n = 0;; ++n) {
            // Texts of many lengths, so that a mixture of two files could not go unseen.
            const std::string text(static_cast<std::size_t>((n * 37) % 3000), 'x');
            settings_.saveSetting("CFLD", std::to_string(round) + ":" + text + ":end");
            std::ignore = settings_.getSetting("CVL");
            if (n == 0 && ::write(told, "!", 1) != 1) {
                ::_exit(1);
            }
        }
    }

    /// Whether the process saved at least once and died of the kill.
    bool runAndKill(int round, std::chrono::microseconds life) {
        std::array<int, 2> pipe{};
        if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
            return false;
        }
        const pid_t child = ::fork();
        if (child == 0) {
            saveForEver(pipe[1], round);
        }
        ::close(pipe[1]);
        char byte = 0;
        const bool begun = ::read(pipe[0], &byte, 1) == 1;
        ::close(pipe[0]);
        std::this_thread::sleep_for(life);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        return begun && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }
};

TEST_F(CrashTest, killedFiveHundredTimes) {
    ASSERT_TRUE(xml_.OpenXML(path(), XmlSource::FilePath));
    const std::int32_t elements = xml_.NodeCount("//*");
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same lives each time
    std::uniform_int_distribution<std::int64_t> life(0, kLongestLife.count());
    for (int round = 0; round < kKills; ++round) {
        ASSERT_TRUE(runAndKill(round, std::chrono::microseconds(life(random))));
        ASSERT_TRUE(xml_.OpenXML(path(), XmlSource::FilePath)) << file();
        ASSERT_EQ(xml_.NodeCount("//*"), elements);
        ASSERT_EQ(xml_.ReadNode("/Settings/CVL"), "80");
        const std::string text = xml_.ReadNode("/Settings/CFLD");
        const std::string head = std::to_string(round) + ":";
        ASSERT_EQ(text.substr(0, head.size()), head);
        ASSERT_EQ(text.substr(text.size() - 4), ":end");
        ASSERT_EQ(text.find_first_not_of('x', head.size()), text.size() - 4);
    }
}

} // namespace
} // namespace tovik::config
