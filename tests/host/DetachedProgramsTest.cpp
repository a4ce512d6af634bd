// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/DetachedPrograms.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

#include <sys/wait.h>

namespace tovik::host {
namespace {

class DetachedProgramsTest : public testing::Test {
protected:
    void program(const std::string& name, const std::string& text) const {
        const std::string path = folder_.write(name, text);
        std::filesystem::permissions(path, std::filesystem::perms(0755));
    }

    bool appears(const std::string& name) const {
        using namespace std::chrono_literals;
        for (int wait = 0; wait < 500 && !std::filesystem::exists(folder_ / name); ++wait) {
            std::this_thread::sleep_for(10ms);
        }
        return std::filesystem::exists(folder_ / name);
    }

    test::TemporaryFolder folder_;
    Paths paths_{folder_.path()};
    DetachedPrograms programs_{paths_, "/usr/bin:/bin"};
};

TEST_F(DetachedProgramsTest, startsWithTheArgumentsAsTheyAreInTheDataFolder) {
    program("helper.exe", "#!/bin/sh\nprintf '%s|' \"$@\" > part\nmv part done\n");
    EXPECT_TRUE(programs_.start("helper.exe", {"a b", "$HOME;\"'", "caf\xE9", ""}));
    ASSERT_TRUE(appears("done"));
    EXPECT_EQ(folder_.read("done"), "a b|$HOME;\"'|caf\xE9||");
}

TEST_F(DetachedProgramsTest, leavesNoChildBehind) {
    EXPECT_TRUE(programs_.start("true.exe", {}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(DetachedProgramsTest, whatIsMissingOrCannotRunIsNotStarted) {
    EXPECT_FALSE(programs_.start("nowhere.exe", {}));
    program("broken.exe", "\x7F"
                          "ELF but not really");
    EXPECT_TRUE(programs_.find("broken.exe"));
    EXPECT_FALSE(programs_.start("broken.exe", {}));
}

TEST_F(DetachedProgramsTest, isFoundByTheRule) {
    EXPECT_EQ(programs_.find("sh.exe"), "/usr/bin/sh");
    EXPECT_EQ(programs_.find("nowhere.exe"), std::nullopt);
}

} // namespace
} // namespace tovik::host
