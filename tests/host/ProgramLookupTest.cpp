// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ProgramLookup.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::host {
namespace {

class ProgramLookupTest : public testing::Test {
protected:
    std::string program(const std::string& name) const {
        std::string path = folder_.write(name, "#!/bin/sh\n");
        std::filesystem::permissions(path, std::filesystem::perms(0755));
        return path;
    }

    std::optional<std::string> find(std::string_view name) const {
        return findProgram(name, paths_, (folder_ / "none") + "::." + ":" + (folder_ / "bin"));
    }

    test::TemporaryFolder folder_;
    Paths paths_{folder_ / "data"};
};

TEST_F(ProgramLookupTest, inTheDataFolderThenWithoutExtensionThenOnTheSearchPath) {
    EXPECT_EQ(find("update.exe"), std::nullopt);
    const std::string onPath = program("bin/update");
    EXPECT_EQ(find("update.exe"), onPath);
    EXPECT_EQ(find("\\Update.exe"), std::nullopt); // case matters on the search path
    const std::string plain = program("data/update");
    EXPECT_EQ(find("update.exe"), plain);
    const std::string whole = program("data/Update.EXE");
    EXPECT_EQ(find("update.exe"), whole);
    EXPECT_EQ(find("\\Update.exe"), whole);
}

TEST_F(ProgramLookupTest, onlyFilesThatCanBeRun) {
    folder_.write("data/lame.exe", "text");
    std::filesystem::create_directories(folder_ / "bin/lame");
    EXPECT_EQ(find("lame.exe"), std::nullopt);
    EXPECT_EQ(find(""), std::nullopt);
    EXPECT_EQ(find(".exe"), std::nullopt);
}

} // namespace
} // namespace tovik::host
