// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/FirstFill.h"

#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"

#include <filesystem>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;

class MusicFolderTest : public testing::Test {
protected:
    void writeDirs(std::string_view text) const { home_.write(".config/user-dirs.dirs", text); }

    [[nodiscard]] std::string folder() const { return musicFolder(home_.path(), ""); }

    test::TemporaryFolder home_;
};

TEST_F(MusicFolderTest, withoutAWordFromTheUserItIsMusic) {
    EXPECT_EQ(folder(), home_ / "Music");
    writeDirs("# XDG_MUSIC_DIR=\"$HOME/No\"\nXDG_VIDEOS_DIR=\"$HOME/V\"\n");
    EXPECT_EQ(folder(), home_ / "Music");
}

TEST_F(MusicFolderTest, isReadFromTheUsersFolders) {
    writeDirs("XDG_VIDEOS_DIR=\"$HOME/V\"\n  XDG_MUSIC_DIR=\"$HOME/Glasba\"\n");
    EXPECT_EQ(folder(), home_ / "Glasba");
    writeDirs("XDG_MUSIC_DIR=\"/srv/my \\\"best\\\" \\$music/\"\n");
    EXPECT_EQ(folder(), "/srv/my \"best\" $music");
    writeDirs("XDG_MUSIC_DIR=\"$HOME/A\"\nXDG_MUSIC_DIR=\"$HOME/B\"");
    EXPECT_EQ(folder(), home_ / "B");
    writeDirs("XDG_MUSIC_DIR=\"$HOME/\"\n");
    EXPECT_EQ(folder(), home_.path());
}

TEST_F(MusicFolderTest, whatIsNoFolderIsPassedOver) {
    for (const char* const text :
         {"XDG_MUSIC_DIR=\"Music\"\n", "XDG_MUSIC_DIR=\"\"\n", "XDG_MUSIC_DIR=/srv/music\n",
          "XDG_MUSIC_DIR=\"$HOMELESS/x\"\n", "XDG_MUSIC_DIR=\"\\\n", "\0\xFF"}) {
        writeDirs(text);
        EXPECT_EQ(folder(), home_ / "Music") << text;
    }
}

TEST_F(MusicFolderTest, theConfigurationFolderMayBeElsewhere) {
    home_.write("conf/user-dirs.dirs", "XDG_MUSIC_DIR=\"$HOME/There\"\n");
    EXPECT_EQ(musicFolder(home_.path(), home_ / "conf"), home_ / "There");
    EXPECT_EQ(musicFolder(home_.path(), "conf"), home_ / "Music");
}

class FirstFillTest : public test::SettingsFixture {
protected:
    void SetUp() override {
        writeSettings("<ROP/><IROP></IROP><CFLD/><MI>0</MI>");
        host_.folder.write("firstrun.ini", "[Firstrun]\r\nLNG=English\r\n");
    }

    void fill() const { firstFill(host_.paths, "/music & more", "#EXTM3U\r\n"); }

    [[nodiscard]] std::string list() const { return host_.folder.read("db/autosave.m3u"); }
};

TEST_F(FirstFillTest, fillsTheFoldersAndTheList) {
    fill();
    for (const char* const key : {"ROP", "IROP", "CFLD"}) {
        EXPECT_EQ(settings_.getSetting(key), "/music & more") << key;
    }
    EXPECT_EQ(settings_.getSetting("MI"), "0");
    EXPECT_EQ(list(), "#EXTM3U\r\n");
}

TEST_F(FirstFillTest, keepsWhatIsThere) {
    writeSettings("<ROP>/mine</ROP><CFLD/>");
    host_.folder.write("db/autosave.m3u", "mine");
    fill();
    fill();
    EXPECT_EQ(file(), "<?xml version=\"1.0\"?>\n<Settings><ROP>/mine</ROP>"
                      "<CFLD>/music &amp; more</CFLD></Settings>\n");
    EXPECT_EQ(list(), "mine");
}

TEST_F(FirstFillTest, afterTheFirstStartNothingIsDone) {
    fs::remove(host_.folder / "firstrun.ini");
    const std::string before = file();
    fill();
    EXPECT_EQ(file(), before);
    EXPECT_FALSE(fs::exists(host_.folder / "db/autosave.m3u"));
}

TEST_F(FirstFillTest, withoutAPieceThereIsNoList) {
    firstFill(host_.paths, "/music", "");
    EXPECT_FALSE(fs::exists(host_.folder / "db/autosave.m3u"));
    EXPECT_EQ(settings_.getSetting("ROP"), "/music");
}

TEST_F(FirstFillTest, damagedOrMissingSettingsStayAsTheyAre) {
    writeFile("<Settings><ROP/>");
    fill();
    EXPECT_EQ(file(), "<Settings><ROP/>");
    fs::remove(path());
    fill();
    EXPECT_FALSE(fs::exists(path()));
    EXPECT_EQ(list(), "#EXTM3U\r\n");
}

TEST_F(FirstFillTest, aFailedWriteIsRaised) {
    fs::remove_all(host_.folder / "db");
    EXPECT_EQ(test::raisedNumber([&] { fill(); }), 76);
}

} // namespace
} // namespace tovik::config
