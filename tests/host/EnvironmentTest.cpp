// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include <pwd.h>
#include <unistd.h>

namespace tovik::host {
namespace {

TEST(Environment, isThatOfThisProcess) {
    ::setenv("XDG_DATA_HOME", "/data home", 1);
    ::setenv("XDG_CONFIG_HOME", "/config home", 1);
    ::setenv("XDG_CACHE_HOME", "/cache home", 1);
    ::setenv("XDG_RUNTIME_DIR", "/run/me", 1);
    ::setenv("LANG", "sl_SI.UTF-8", 1);
    ::setenv("LC_MESSAGES", "de_DE", 1);
    ::setenv("LC_ALL", "", 1);
    ::unsetenv("HOME");
    const Environment environment = Environment::current();
    EXPECT_EQ(environment.dataHome, "/data home");
    EXPECT_EQ(environment.configHome, "/config home");
    EXPECT_EQ(environment.cacheHome, "/cache home");
    EXPECT_EQ(environment.runtimeFolder, "/run/me");
    EXPECT_EQ(environment.locale, "de_DE");
    EXPECT_EQ(environment.home, ::getpwuid(::getuid())->pw_dir);
    ::setenv("HOME", "/my home", 1);
    EXPECT_EQ(Environment::current().home, "/my home");
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(Environment::current().runtimeFolder,
              std::filesystem::temp_directory_path().native());
    EXPECT_EQ(environment.workingFolder, std::filesystem::current_path().native());
    EXPECT_TRUE(std::filesystem::exists(environment.executableFolder + "/tovik_host_tests"));
}

} // namespace
} // namespace tovik::host
