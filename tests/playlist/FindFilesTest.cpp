// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/FindFiles.h"

#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FindFilesTest : public testing::Test {
protected:
    void make(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            folder.write(name, "x");
        }
    }

    /// What is found, told from the folder.
    std::vector<std::string> find(const std::vector<std::string>& patterns,
                                  const FileLimits& limits = {}) {
        std::vector<std::string> names;
        for (const std::string& path : FindFiles(folder.path(), patterns, limits, stop)) {
            EXPECT_TRUE(path.starts_with(folder.path() + "/")) << path;
            names.push_back(path.substr(folder.path().size() + 1));
        }
        return names;
    }

    test::TemporaryFolder folder;
    std::atomic<bool> stop = false;
};

TEST_F(FindFilesTest, filesOfAFolderComeBeforeThoseBelow) {
    make({"b/x.mp3", "a.mp3", "z.mp3", "b/a/x.mp3", "a/x.mp3", "C/x.mp3"});
    EXPECT_THAT(find({".mp3"}),
                ElementsAre("a.mp3", "z.mp3", "a/x.mp3", "b/x.mp3", "b/a/x.mp3", "C/x.mp3"));
}

TEST_F(FindFilesTest, namesAreInOrderWhateverTheirCase) {
    make({"b.mp3", "A.mp3", "C.mp3", "a.mp3", "10.mp3", "2.mp3"});
    EXPECT_THAT(find({".mp3"}), ElementsAre("10.mp3", "2.mp3", "A.mp3", "a.mp3", "b.mp3", "C.mp3"));
    EXPECT_THAT(filesIn(folder.path()),
                ElementsAre("10.mp3", "2.mp3", "A.mp3", "a.mp3", "b.mp3", "C.mp3"));
}

TEST_F(FindFilesTest, filesAreGroupedByPattern) {
    make({"1.mp3", "2.ogg", "d/3.mp3", "d/4.ogg"});
    EXPECT_THAT(find({".ogg", ".mp3"}), ElementsAre("2.ogg", "d/4.ogg", "1.mp3", "d/3.mp3"));
}

TEST_F(FindFilesTest, aPatternIsHeldAnywhereInTheName) {
    make({"a.mp3.bak", "b.MP3", "mp3", "c.flac", "x.mp3/y.txt"});
    EXPECT_THAT(find({".mp3"}), ElementsAre("a.mp3.bak", "b.MP3"));
    EXPECT_THAT(find({".flac", ".fla"}), ElementsAre("c.flac", "c.flac"));
}

TEST_F(FindFilesTest, sizesAreLimited) {
    folder.write("0.mp3", "");
    folder.write("2.mp3", "xx");
    folder.write("4.mp3", "xxxx");
    EXPECT_THAT(find({".mp3"}, {.minSize = 2}), ElementsAre("2.mp3", "4.mp3"));
    EXPECT_THAT(find({".mp3"}, {.maxSize = 2}), ElementsAre("0.mp3", "2.mp3"));
    EXPECT_THAT(find({".mp3"}, {.maxSize = 0}), ElementsAre("0.mp3"));
    std::filesystem::resize_file(folder / "4.mp3", (std::uintmax_t{1} << 31U) - 1);
    EXPECT_THAT(find({".mp3"}), ElementsAre("0.mp3", "2.mp3", "4.mp3"));
    std::filesystem::resize_file(folder / "4.mp3", std::uintmax_t{1} << 31U);
    EXPECT_THAT(find({".mp3"}), ElementsAre("0.mp3", "2.mp3"));
}

TEST_F(FindFilesTest, hiddenFilesCountUnlessTheyAreExcluded) {
    make({".a.mp3", "b.mp3", ".d/c.mp3"});
    EXPECT_THAT(find({".mp3"}), ElementsAre(".a.mp3", "b.mp3", ".d/c.mp3"));
    EXPECT_THAT(find({".mp3"}, {.excludeHidden = true}), ElementsAre("b.mp3", ".d/c.mp3"));
}

TEST_F(FindFilesTest, linksLeadRoundNoCircle) {
    make({"a/x.mp3", "real.mp3"});
    std::filesystem::create_directory_symlink("..", folder / "a/up");
    std::filesystem::create_directory_symlink(".", folder / "a/self");
    std::filesystem::create_directory_symlink("a", folder / "b");
    std::filesystem::create_symlink("real.mp3", folder / "link.mp3");
    std::filesystem::create_symlink("none.mp3", folder / "broken.mp3");
    EXPECT_THAT(find({".mp3"}), ElementsAre("link.mp3", "real.mp3", "a/x.mp3"));
}

TEST_F(FindFilesTest, aLinkToAFolderElsewhereIsFollowedOnce) {
    test::TemporaryFolder other;
    other.write("y.mp3", "x");
    std::filesystem::create_directory_symlink(other.path(), folder / "1");
    std::filesystem::create_directory_symlink(other.path(), folder / "2");
    EXPECT_THAT(find({".mp3"}), ElementsAre("1/y.mp3"));
}

TEST_F(FindFilesTest, whatCannotBeReadIsPassedOver) {
    make({"a/x.mp3", "secret/y.mp3", "z/w.mp3"});
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder / "secret", std::filesystem::perms::none);
    {
        const test::Unprivileged guard;
        EXPECT_THAT(find({".mp3"}), ElementsAre("a/x.mp3", "z/w.mp3"));
    }
    std::filesystem::permissions(folder / "secret", std::filesystem::perms::all);
    EXPECT_THAT(FindFiles(folder / "none", std::vector<std::string>{"."}, {}, stop), IsEmpty());
    EXPECT_THAT(filesIn(folder / "none"), IsEmpty());
}

TEST_F(FindFilesTest, aDeepTree) {
    std::string path = "d";
    for (int depth = 0; depth < 500; ++depth) {
        path += "/d";
    }
    make({path + "/x.mp3"});
    EXPECT_THAT(find({".mp3"}), ElementsAre(path + "/x.mp3"));
}

TEST_F(FindFilesTest, theStopFlagEndsIt) {
    make({"a.mp3"});
    stop = true;
    EXPECT_THAT(find({".mp3"}), IsEmpty());
}

} // namespace
} // namespace tovik::playlist
