// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/CoverFiles.h"

#include "base/RegularFile.h"
#include "support/host/TemporaryFolder.h"
#include "tags/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace tovik::desktop {
namespace {

namespace fs = std::filesystem;

const fs::file_time_type kLongAgo = fs::file_time_type::clock::now() - std::chrono::hours(100);

/// A file that begins with a tag of version 2.3 with this picture.
std::string tagged(const std::string& picture) {
    const std::string content = std::string("\0image/jpeg\0\3\0", 14) + picture;
    const auto size = [](std::size_t value) {
        return std::string{'\0', '\0', static_cast<char>(value >> 7U),
                           static_cast<char>(value & 0x7FU)};
    };
    const auto plain = [](std::size_t value) {
        return std::string{'\0', '\0', static_cast<char>(value >> 8U),
                           static_cast<char>(value & 0xFFU)};
    };
    const std::string frame = "APIC" + plain(content.size()) + std::string(2, '\0') + content;
    return std::string("ID3\3\0\0", 6) + size(frame.size()) + frame + "\xFF\xFB sound";
}

std::string jpeg(const std::string& rest) {
    return "\xFF\xD8\xFF" + rest;
}

class CoverFiles : public testing::Test {
protected:
    [[nodiscard]] std::string cover(const CoverLimits& limits = {}) const {
        return coverOf(folder_ / "song.mp3", covers_, limits);
    }

    [[nodiscard]] std::size_t kept() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(covers_), fs::directory_iterator()));
    }

    test::TemporaryFolder folder_;
    std::string covers_ = folder_ / "cache/covers";
};

TEST_F(CoverFiles, tagsOfEveryFormatWhereThatIsWanted) {
    folder_.write("song.mp3", tags::samples::flac({}, jpeg("in FLAC")));
    EXPECT_EQ(cover(), "");
    const std::string found = coverOf(folder_ / "song.mp3", covers_, {}, CoverTags::everyFormat);
    std::string bytes;
    ASSERT_FALSE(base::readWholeFile(found, bytes));
    EXPECT_EQ(bytes, jpeg("in FLAC"));
    folder_.write("song.mp3", tagged(jpeg("in ID3")));
    EXPECT_NE(coverOf(folder_ / "song.mp3", covers_, {}, CoverTags::everyFormat), "");
}

TEST_F(CoverFiles, noneWhereThereIsNone) {
    EXPECT_EQ(cover(), "") << "not even the file";
    folder_.write("song.mp3", "\xFF\xFB sound");
    folder_.write("cover.gif", "a");
    folder_.write("mycover.jpg", "a");
    fs::create_directory(folder_ / "cover.png");
    EXPECT_EQ(cover(), "");
    EXPECT_EQ(coverOf("http://a/b.mp3", covers_), "");
    EXPECT_EQ(coverOf("track01.cda", covers_), "");
    EXPECT_EQ(coverOf("", covers_), "");
    EXPECT_FALSE(fs::exists(covers_));
}

TEST_F(CoverFiles, thePictureOfTheFolderInAnyCaseOfLetters) {
    folder_.write("song.mp3", tagged(jpeg("tag")));
    for (const char* name : {"Front.PNG", "front.jpg", "FOLDER.png", "Folder.jpg", "cover.png",
                             "CoVeR.JpG"}) { // each comes before the one before
        folder_.write(name, "a");
        EXPECT_EQ(cover(), folder_ / name);
    }
    folder_.write("COVER.jpg", "a");
    EXPECT_EQ(cover(), folder_ / "COVER.jpg") << "always the same one of two";
    EXPECT_FALSE(fs::exists(covers_));
}

TEST_F(CoverFiles, thePictureOfTheTagIsKeptOnce) {
    folder_.write("song.mp3", tagged(jpeg("one")));
    const std::string path = cover();
    EXPECT_EQ(fs::path(path).parent_path(), covers_);
    EXPECT_THAT(path, testing::EndsWith(".jpg"));
    std::string bytes;
    ASSERT_FALSE(base::readWholeFile(path, bytes));
    EXPECT_EQ(bytes, jpeg("one"));
    fs::last_write_time(path, kLongAgo);
    EXPECT_EQ(cover(), path);
    EXPECT_GT(fs::last_write_time(path), kLongAgo) << "it was used again";
    EXPECT_EQ(kept(), 1U);
    folder_.write("cache/covers/" + fs::path(path).filename().native(), "not it");
    EXPECT_EQ(cover(), path);
    ASSERT_FALSE(base::readWholeFile(path, bytes));
    EXPECT_EQ(bytes, jpeg("one")) << "what does not hold the picture is no picture of the track";
}

TEST_F(CoverFiles, onlyTheLastOnesAreKept) {
    folder_.write("cache/covers/other.jpg", "somebody else's");
    std::vector<std::string> paths;
    for (int i = 0; i < 4; ++i) {
        folder_.write("song.mp3", tagged(jpeg(std::to_string(i))));
        paths.push_back(cover({.files = 2}));
        ASSERT_TRUE(fs::exists(paths.back()));
        fs::last_write_time(paths.back(), kLongAgo + std::chrono::hours(i));
    }
    EXPECT_FALSE(fs::exists(paths[0]) || fs::exists(paths[1]));
    EXPECT_TRUE(fs::exists(paths[2]));
    EXPECT_EQ(kept(), 3U);
    folder_.write("song.mp3", tagged(jpeg(std::string(100, 'x'))));
    EXPECT_TRUE(fs::exists(cover({.files = 9, .bytes = 50}))) << "the one that is used stays";
    EXPECT_EQ(kept(), 2U);
}

TEST_F(CoverFiles, aCacheThatCannotBeWrittenLeavesNone) {
    folder_.write("cache", "a file where the folder should be");
    folder_.write("song.mp3", tagged(jpeg("one")));
    EXPECT_EQ(cover(), "");
}

TEST_F(CoverFiles, theFolderIsInTheUsersCache) {
    host::Environment environment{.home = "/h",
                                  .dataHome = "",
                                  .locale = "",
                                  .searchPath = "",
                                  .workingFolder = "",
                                  .executableFolder = ""};
    EXPECT_EQ(coverFolder(environment), "/h/.cache/tovik/covers");
    environment.cacheHome = "/c";
    EXPECT_EQ(coverFolder(environment), "/c/tovik/covers");
    environment.cacheHome = "c";
    EXPECT_EQ(coverFolder(environment), "/h/.cache/tovik/covers");
}

} // namespace
} // namespace tovik::desktop
