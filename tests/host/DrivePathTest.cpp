// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/DrivePath.h"

#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tovik::host {
namespace {

TEST(DrivePath, theDriveIsAFolderOfTheData) {
    const test::TemporaryFolder folder;
    const Paths paths(folder.path());
    EXPECT_EQ(drivePath(paths, R"(c:\test.m3u)"), folder / "drive_c/test.m3u");
    EXPECT_EQ(drivePath(paths, R"(C:\a\b)"), folder / "drive_c/a/b");
    EXPECT_EQ(drivePath(paths, "x"), folder / "drive_c/x");
    folder.write("drive_c/TEST.m3u", "");
    EXPECT_EQ(drivePath(paths, R"(c:\test.m3u)"), folder / "drive_c/TEST.m3u");
}

} // namespace
} // namespace tovik::host
