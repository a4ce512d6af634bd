// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/MakeRoom.h"

#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace tovik::tags {
namespace {

namespace fs = std::filesystem;
using base::RegularFile;

class MakeRoomTest : public testing::Test {
protected:
    MakeRoomTest() {
        for (std::int64_t number = 0; number < 300000; ++number) {
            old_ += static_cast<char>(number * 7919 / 13);
        }
        path_ = folder_.write("song.mp3", old_);
    }

    std::error_code make(std::int64_t count, const std::string& front) {
        RegularFile file(path_, RegularFile::Access::ReadWrite);
        return file.failure() ? file.failure() : MakeRoom(path_, file, count, front);
    }

    [[nodiscard]] std::string file() const { return folder_.read("song.mp3"); }

    [[nodiscard]] std::string moved(std::size_t count, const std::string& front) const {
        return (std::string(count, '\0') + old_).replace(0, front.size(), front);
    }

    [[nodiscard]] struct stat facts() const {
        struct stat result {};

        ::stat(path_.c_str(), &result);
        return result;
    }

    test::TemporaryFolder folder_;
    std::string old_;
    std::string path_;
};

TEST_F(MakeRoomTest, movesTheBytesBehindTheRoom) {
    for (const auto& [count, front] : {std::pair<std::size_t, std::string>{2048, "front"},
                                       {2048, std::string(2048, 'f')},
                                       {2048, std::string(5000, 'f')},
                                       {1, ""},
                                       {300000, std::string(1000, 'f')}}) {
        folder_.write("song.mp3", old_);
        EXPECT_FALSE(make(static_cast<std::int64_t>(count), front));
        EXPECT_TRUE(file() == moved(count, front));
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 1);
}

TEST_F(MakeRoomTest, keepsModeAndOwner) {
    fs::permissions(path_, fs::perms(0640));
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown(path_.c_str(), 1234, 4321), 0);
    }
    const ino_t before = facts().st_ino;
    EXPECT_FALSE(make(2048, "front"));
    EXPECT_EQ(facts().st_mode & 07777U, 0640U);
    EXPECT_NE(facts().st_ino, before); // written beside
    if (root) {
        EXPECT_EQ(facts().st_uid, 1234U);
        EXPECT_EQ(facts().st_gid, 4321U);
    }
}

TEST_F(MakeRoomTest, aLinkStaysALink) {
    fs::create_symlink("song.mp3", folder_ / "link.mp3");
    path_ = folder_ / "link.mp3";
    EXPECT_FALSE(make(2048, "front"));
    EXPECT_TRUE(fs::is_symlink(path_));
    EXPECT_TRUE(file() == moved(2048, "front"));
}

TEST_F(MakeRoomTest, sweepsWhatKilledProcessesLeft) {
    folder_.write(".tovik-999999999-0.new", "left");
    EXPECT_FALSE(make(2048, "front"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 1);
}

/// A folder that takes no new files from a user who may write the file.
class ClosedFolder : public MakeRoomTest {
protected:
    ClosedFolder() {
        fs::permissions(path_, fs::perms(0666));
        fs::permissions(folder_.path(), fs::perms(0555));
    }

    std::error_code makeUnprivileged(std::int64_t count, const std::string& front) {
        const test::Unprivileged guard;
        return make(count, front);
    }
};

TEST_F(ClosedFolder, theCopyIsBroughtBackIntoTheFile) {
    const ino_t before = facts().st_ino;
    EXPECT_FALSE(makeUnprivileged(2048, std::string(3000, 'f')));
    EXPECT_TRUE(file() == moved(2048, std::string(3000, 'f')));
    EXPECT_EQ(facts().st_ino, before);
}

TEST_F(ClosedFolder, aFullDiskLeavesTheFileAsItWas) {
    {
        const test::FullDisk disk(old_.size() + 1000);
        EXPECT_TRUE(makeUnprivileged(2048, "front"));
    }
    EXPECT_TRUE(file() == old_);
}

TEST_F(MakeRoomTest, anOwnerThatCannotBeKeptLeavesTheFileItsPlace) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "takes another user's file";
    }
    fs::permissions(path_, fs::perms(0666));
    fs::permissions(folder_.path(), fs::perms::all);
    ASSERT_EQ(::chown(path_.c_str(), 1234, 4321), 0);
    const ino_t before = facts().st_ino;
    {
        const test::Unprivileged guard;
        EXPECT_FALSE(make(2048, "front"));
    }
    EXPECT_TRUE(file() == moved(2048, "front"));
    EXPECT_EQ(facts().st_ino, before);
    EXPECT_EQ(facts().st_uid, 1234U);
}

} // namespace
} // namespace tovik::tags
