// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AtomicFile.h"
#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::base {
namespace {

namespace fs = std::filesystem;

class AtomicFileTest : public testing::Test {
protected:
    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
    }

    test::TemporaryFolder folder_;
};

TEST_F(AtomicFileTest, makesAndReplaces) {
    for (const Flush flush : {Flush::No, Flush::Yes}) {
        EXPECT_FALSE(replaceFile(folder_ / "list.m3u", "old", flush));
        EXPECT_EQ(folder_.read("list.m3u"), "old");
        EXPECT_FALSE(replaceFile(folder_ / "list.m3u", std::string(100000, 'x'), flush));
        EXPECT_EQ(folder_.read("list.m3u"), std::string(100000, 'x'));
        EXPECT_EQ(entries(), 1U);
    }
}

TEST_F(AtomicFileTest, untilTheCommitTheOldFileStays) {
    folder_.write("a", "old");
    {
        AtomicFile file(folder_ / "a");
        EXPECT_FALSE(file.write("ne"));
        EXPECT_FALSE(file.write("w"));
        EXPECT_EQ(folder_.read("a"), "old");
    }
    EXPECT_EQ(folder_.read("a"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(AtomicFileTest, twoWritersDoNotMix) {
    AtomicFile one(folder_ / "a");
    AtomicFile other(folder_ / "a");
    one.write("one");
    other.write("other");
    EXPECT_FALSE(one.commit(Flush::No));
    EXPECT_EQ(folder_.read("a"), "one");
    EXPECT_FALSE(other.commit(Flush::No));
    EXPECT_EQ(folder_.read("a"), "other");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(AtomicFileTest, keepsTheMode) {
    const std::string path = folder_.write("a", "old");
    fs::permissions(path, fs::perms(0640));
    EXPECT_FALSE(replaceFile(path, "new", Flush::No));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(AtomicFileTest, aNewFileFollowsTheMask) {
    const mode_t before = ::umask(027);
    EXPECT_FALSE(replaceFile(folder_ / "a", "new", Flush::No));
    ::umask(before);
    EXPECT_EQ(fs::status(folder_ / "a").permissions(), fs::perms(0640));
}

TEST_F(AtomicFileTest, aLinkStaysALink) {
    folder_.write("real", "old");
    fs::create_symlink("real", folder_ / "link");
    EXPECT_FALSE(replaceFile(folder_ / "link", "new", Flush::No));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
    EXPECT_EQ(folder_.read("real"), "new");
}

TEST_F(AtomicFileTest, aMissingFolderIsAFailure) {
    EXPECT_EQ(replaceFile(folder_ / "none/a", "x", Flush::Yes),
              std::errc::no_such_file_or_directory);
}

TEST_F(AtomicFileTest, aFolderIsNotReplaced) {
    fs::create_directory(folder_ / "a");
    EXPECT_EQ(replaceFile(folder_ / "a", "x", Flush::No), std::errc::is_a_directory);
    EXPECT_TRUE(fs::is_directory(folder_ / "a"));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(AtomicFileTest, aReadOnlyFolderIsAFailure) {
    folder_.write("a", "old");
    fs::permissions(folder_.path(), fs::perms(0555));
    std::error_code failure;
    {
        const test::Unprivileged rights;
        failure = replaceFile(folder_ / "a", "new", Flush::No);
    }
    EXPECT_EQ(failure, std::errc::permission_denied);
    EXPECT_FALSE(failure.message().empty());
    EXPECT_EQ(folder_.read("a"), "old");
}

TEST_F(AtomicFileTest, aFullDiskLeavesTheOldFile) {
    folder_.write("a", "old");
    std::error_code failure;
    std::error_code later;
    {
        const test::FullDisk limit(1000);
        AtomicFile file(folder_ / "a");
        failure = file.write(std::string(5000, 'x'));
        later = file.write("y");
        EXPECT_EQ(file.commit(Flush::Yes), failure);
    }
    EXPECT_EQ(failure, std::errc::file_too_large);
    EXPECT_EQ(later, failure);
    EXPECT_EQ(folder_.read("a"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(AtomicFileTest, LeftoversOfDeadWritersAreSwept) {
    const pid_t child = ::fork();
    if (child == 0) {
        AtomicFile file(folder_.path() + "/list");
        file.write("half");
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    ASSERT_EQ(entries(), 1U);
    AtomicFile own(folder_.path() + "/list");
    own.write("being written");
    ASSERT_EQ(entries(), 2U);
    sweepLeftovers(folder_.path());
    EXPECT_EQ(entries(), 1U);
    EXPECT_FALSE(own.commit(Flush::No));
    sweepLeftovers(folder_.path() + "/no such folder");
    EXPECT_EQ(entries(), 1U);
}

} // namespace
} // namespace tovik::base
