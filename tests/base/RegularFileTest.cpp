// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RegularFile.h"

#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tovik::base {
namespace {

using Access = RegularFile::Access;

class RegularFileTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
};

TEST_F(RegularFileTest, aMissingFileIsNotMade) {
    for (const Access access : {Access::Read, Access::ReadWrite}) {
        const RegularFile file(folder / "none", access);
        EXPECT_EQ(file.failure(), std::errc::no_such_file_or_directory);
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST_F(RegularFileTest, foldersAndPipesAreRefusedAtOnce) {
    EXPECT_EQ(RegularFile(folder.path(), Access::Read).failure(), std::errc::is_a_directory);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_TRUE(RegularFile(folder / "pipe", Access::Read).failure());
    EXPECT_TRUE(RegularFile(folder / "pipe", Access::ReadWrite).failure());
}

TEST_F(RegularFileTest, readsWhatIsThere) {
    const RegularFile file(folder.write("a", "0123456789"), Access::Read);
    ASSERT_FALSE(file.failure());
    EXPECT_EQ(file.size(), 10);
    std::string bytes;
    EXPECT_FALSE(file.readAt(3, 4, bytes));
    EXPECT_EQ(bytes, "3456");
    EXPECT_FALSE(file.readAt(8, 4, bytes));
    EXPECT_EQ(bytes, "89");
    EXPECT_FALSE(file.readAt(20, 4, bytes));
    EXPECT_EQ(bytes, "");
}

TEST_F(RegularFileTest, writesInPlaceAndBehindTheEnd) {
    {
        RegularFile file(folder.write("a", "0123456789"), Access::ReadWrite);
        EXPECT_FALSE(file.writeAt(2, "xy"));
        EXPECT_FALSE(file.writeAt(10, "end"));
    }
    EXPECT_EQ(folder.read("a"), "01xy456789end");
}

TEST_F(RegularFileTest, readingOnlyRefusesToWrite) {
    RegularFile file(folder.write("a", "0123456789"), Access::Read);
    EXPECT_TRUE(file.writeAt(0, "x"));
    EXPECT_TRUE(file.resize(1));
    EXPECT_EQ(folder.read("a"), "0123456789");
}

TEST_F(RegularFileTest, resizes) {
    RegularFile file(folder.write("a", "0123456789"), Access::ReadWrite);
    EXPECT_FALSE(file.resize(4));
    EXPECT_EQ(folder.read("a"), "0123");
}

TEST_F(RegularFileTest, wholeFiles) {
    const std::string content("all\0of it", 9);
    std::string bytes;
    EXPECT_FALSE(readWholeFile(folder.write("a", content), bytes));
    EXPECT_EQ(bytes, content);
    EXPECT_FALSE(readWholeFile(folder.write("empty", ""), bytes));
    EXPECT_EQ(bytes, "");
    bytes = "old";
    EXPECT_EQ(readWholeFile(folder / "none", bytes), std::errc::no_such_file_or_directory);
    EXPECT_EQ(bytes, "");
}

TEST_F(RegularFileTest, aFileTooBigIsNotReadAsAWhole) {
    const std::string path = folder.write("big", "x");
    std::filesystem::resize_file(path, kMostWholeFileBytes + 1); // takes no room on the disk
    std::string bytes;
    EXPECT_EQ(readWholeFile(path, bytes), std::errc::not_enough_memory);
}

} // namespace
} // namespace tovik::base
