// SPDX-License-Identifier: GPL-3.0-or-later
// What files, folders and lists that are added stand for.
#include "playlist/MediaToAdd.h"

#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MediaToAddTest : public testing::Test {
protected:
    void make(const std::vector<std::string>& names) const {
        for (const std::string& name : names) {
            folder.write(name, "x");
        }
    }

    /// Each item as "kind path|title", the path told from the folder.
    [[nodiscard]] std::vector<std::string> told(const std::vector<MediaItem>& items) const {
        std::vector<std::string> lines;
        for (const MediaItem& item : items) {
            const std::string root = folder.path() + "/";
            const std::string path =
                item.path.starts_with(root) ? item.path.substr(root.size()) : item.path;
            lines.push_back(std::to_string(static_cast<int>(item.kind)) + " " + path + "|" +
                            titleOf(item));
        }
        return lines;
    }

    [[nodiscard]] std::vector<std::string> below(const FolderSearch& search = kSearch) const {
        return told(musicIn(folder.path(), search, stop));
    }

    [[nodiscard]] MediaToAdd added(const std::vector<std::string>& names,
                                   const MediaSearch& search = {.folder = kSearch}) const {
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            paths.push_back(name.find("//") == std::string::npos ? folder / name : name);
        }
        return mediaToAdd(paths, search, stop);
    }

    static constexpr FolderSearch kSearch{.limits = {.byFolder = true}};

    test::TemporaryFolder folder;
    std::atomic<bool> stop = false;
};

TEST_F(MediaToAddTest, aTreeByFolderAndNameEachFileOnce) {
    make({"b.flac", "A.mp3", "z/c.ogg", "z/a.mod", "c/d.FLAC", "c/x.bit", "c/y.item", "c/e.mp3.bak",
          "c/list.m3u", "c/cover.jpg"});
    EXPECT_THAT(below(), ElementsAre("1 A.mp3|A", "1 b.flac|b", "1 c/d.FLAC|d", "1 z/a.mod|a",
                                     "1 z/c.ogg|c"));
}

TEST_F(MediaToAddTest, theFolderAlone) {
    make({"b.flac", "z/c.ogg"});
    EXPECT_THAT(below({.limits = {.byFolder = true, .below = false}}), ElementsAre("1 b.flac|b"));
}

TEST_F(MediaToAddTest, aCueSheetTellsTheTitleOfItsFile) {
    make({"a.flac", "b.flac"});
    folder.write("x.cue", "PERFORMER P\nTITLE T\nFILE \"a.wav\" WAVE\nTRACK 01 AUDIO\n"
                          "TRACK 02 AUDIO\n");
    EXPECT_THAT(below(), ElementsAre("1 a.flac|P - T", "1 b.flac|b"));
    EXPECT_THAT(below({.readsCueSheets = false, .limits = {.byFolder = true}}),
                ElementsAre("1 a.flac|a", "1 b.flac|b"));
}

TEST_F(MediaToAddTest, whatIsNamedComesInItsOrder) {
    make({"b.mp3", "a.mp3", "sub/c.ogg", "sub/d.ogg", "mine.M3U", "text.txt"});
    EXPECT_THAT(told(added({"b.mp3", "http://radio.example/s", "sub", "mine.M3U", "text.txt",
                            "b.mp3", "sub/c.ogg", "a.mp3"})
                         .items),
                ElementsAre("0 b.mp3|b.mp3", "2 http://radio.example/s|http://radio.example/s",
                            "1 sub/c.ogg|c", "1 sub/d.ogg|d", "3 mine.M3U|mine.M3U",
                            "0 text.txt|text.txt", "0 a.mp3|a.mp3"));
}

TEST_F(MediaToAddTest, listsOfEveryFormAreOpened) {
    for (const char* name : {"x.m3u", "x.M3U8", "x.pls", "x.xspf"}) {
        make({name});
        EXPECT_THAT(told(added({name}).items),
                    ElementsAre(std::string("3 ") + name + "|" + name));
    }
}

TEST_F(MediaToAddTest, whatIsNotWantedIsPassedOver) {
    make({"a.mp3", "sub/c.ogg", "mine.pls", "text.txt", "x.cue"});
    const MediaSearch plain{
        .opensFolders = false, .opensLists = false, .takesAnyFile = false, .folder = kSearch};
    EXPECT_THAT(told(added({"sub", "mine.pls", "text.txt", "a.mp3", "x.cue"}, plain).items),
                ElementsAre("0 mine.pls|mine.pls", "0 a.mp3|a.mp3"));
}

TEST_F(MediaToAddTest, aCueSheetThatIsNamedStandsForItsFiles) {
    make({"one.wav", "sub/two.mp3"});
    folder.write("x.cue", "\xEF\xBB\xBF"
                          "FILE \"one.wav\" WAVE\nTRACK 01 AUDIO\nTITLE One\n"
                          "FILE \"sub\\two.mp3\" MP3\nTRACK 02 AUDIO\nTITLE Two\n"
                          "FILE \"gone.wav\" WAVE\nTRACK 03 AUDIO\n");
    EXPECT_THAT(told(added({"x.cue"}).items), ElementsAre("1 one.wav|One", "1 sub/two.mp3|Two"));
}

TEST_F(MediaToAddTest, theFirstThatIsMissingIsTold) {
    make({"a.mp3"});
    const MediaToAdd found = added({"gone.mp3", "a.mp3", "gone too.mp3"});
    EXPECT_THAT(told(found.items), ElementsAre("0 a.mp3|a.mp3"));
    EXPECT_EQ(found.missing, folder / "gone.mp3");
    EXPECT_EQ(found.failure, std::errc::no_such_file_or_directory);
}

TEST_F(MediaToAddTest, aTrackOfADiscIsNotLookedFor) {
    const MediaToAdd found = added({"Track01.cda"});
    EXPECT_THAT(told(found.items), ElementsAre("0 Track01.cda|Track01.cda"));
    EXPECT_FALSE(found.failure);
}

TEST_F(MediaToAddTest, largeFilesCountWhenTheyAreWanted) {
    make({"small.wav", "large.wav"});
    std::filesystem::resize_file(folder / "large.wav", std::uintmax_t{3} << 30); // takes no room
    EXPECT_THAT(below(), ElementsAre("1 small.wav|small"));
    EXPECT_THAT(
        below({.limits = {.maxSize = std::numeric_limits<std::int64_t>::max(), .byFolder = true}}),
        ElementsAre("1 large.wav|large", "1 small.wav|small"));
}

TEST_F(MediaToAddTest, itCanBeStopped) {
    make({"a.mp3"});
    stop = true;
    EXPECT_THAT(added({"a.mp3"}).items, IsEmpty());
}

} // namespace
} // namespace tovik::playlist
