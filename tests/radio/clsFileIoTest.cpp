// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/clsFileIo.h"

#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string_view>
#include <sys/stat.h>

namespace tovik::radio {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

class clsFileIoTest : public testing::Test {
protected:
    bool write(std::string_view block) { return file_.WriteBytes(bytesOf(block), synced_); }

    test::TemporaryFolder folder_;
    clsFileIo file_;
    bool synced_ = false;
};

TEST_F(clsFileIoTest, aFileBeginsWithTheFirstFramesBytesAndTheWholeBlock) {
    ASSERT_TRUE(file_.OpenFile(folder_ / "a"));
    EXPECT_TRUE(write("no frame here"));
    EXPECT_FALSE(synced_);
    EXPECT_TRUE(write("rest\xFF\xFB\x90xyz\xFF\xFB\x50"));
    EXPECT_TRUE(synced_);
    EXPECT_TRUE(write("more"));
    EXPECT_EQ(folder_.read("a"), "\xFF\xFB\x90\0rest\xFF\xFB\x90xyz\xFF\xFB\x50more"s);
    EXPECT_EQ(file_.bytesWritten(), folder_.read("a").size());
    EXPECT_TRUE(file_.CloseFile());
    EXPECT_FALSE(file_.CloseFile()) << "no name is set any more";
}

TEST_F(clsFileIoTest, aPairWithNothingBehindItIsNone) {
    ASSERT_TRUE(file_.OpenFile(folder_ / "a"));
    for (const std::string_view block : {"\xFF\xFB"sv, "\xFF"sv, "\xFB\xFF"sv, "\xFF\xFA\x90"sv}) {
        EXPECT_TRUE(write(block));
        EXPECT_FALSE(synced_);
    }
    EXPECT_EQ(folder_.read("a"), "");
}

TEST_F(clsFileIoTest, withoutAnOpenFileNothingIsWritten) {
    EXPECT_TRUE(write("\xFF\xFB\x90"));
    EXPECT_FALSE(synced_);
    ASSERT_TRUE(file_.OpenFile(folder_ / "a"));
    file_.CloseFile();
    EXPECT_TRUE(write("\xFF\xFB\x90"));
    EXPECT_EQ(folder_.read("a"), "");
}

TEST_F(clsFileIoTest, aFileOfThatNameIsReplacedOrGoesOn) {
    folder_.write("a", "old");
    ASSERT_TRUE(file_.OpenFile(folder_ / "a", SongFile::goingOn));
    synced_ = true;
    EXPECT_TRUE(write("new"));
    EXPECT_EQ(folder_.read("a"), "oldnew");
    ASSERT_TRUE(file_.OpenFile(folder_ / "a"));
    EXPECT_EQ(folder_.read("a"), "");
}

TEST_F(clsFileIoTest, whatIsNoFileIsRefused) {
    const std::string outside = folder_.write("outside", "kept");
    std::filesystem::create_symlink(outside, folder_ / "link");
    std::filesystem::create_directory(folder_ / "folder");
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    for (const char* const name : {"link", "folder", "pipe", "nowhere/a"}) {
        EXPECT_FALSE(file_.OpenFile(folder_ / name)) << name;
        EXPECT_TRUE(file_.failure()) << name;
    }
    EXPECT_EQ(folder_.read("outside"), "kept");
}

TEST_F(clsFileIoTest, aFullDiskIsTold) {
    ASSERT_TRUE(file_.OpenFile(folder_ / "a"));
    synced_ = true;
    const test::FullDisk full(5);
    EXPECT_TRUE(write("1234"));
    EXPECT_FALSE(write("56789"));
    EXPECT_EQ(file_.failure(), std::errc::file_too_large);
    EXPECT_EQ(file_.bytesWritten(), 5U);
}

} // namespace
} // namespace tovik::radio
