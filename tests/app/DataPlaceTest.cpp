// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DataPlace.h"

#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::test {
namespace {

namespace fs = std::filesystem;

/// Sets a variable of the environment for a while.
class EnvironmentGuard {
public:
    EnvironmentGuard(const char* name, const std::string& value) : name_(name) {
        if (const char* const before = std::getenv(name)) {
            before_ = before;
        }
        ::setenv(name, value.c_str(), 1);
    }

    ~EnvironmentGuard() {
        if (before_) {
            ::setenv(name_, before_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }

    EnvironmentGuard(const EnvironmentGuard&) = delete;
    EnvironmentGuard& operator=(const EnvironmentGuard&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

TEST(PrivateCopy, holdsTheFolderAndGoesWithTheObject) {
    const TemporaryFolder data;
    data.write("db/settings.xml", "<Settings/>");
    data.write("db/autosave.m3u", "#EXTM3U\r\n");
    std::string folder;
    {
        const app::PrivateCopy copy(data.path());
        folder = copy.folder();
        ASSERT_FALSE(folder.empty());
        EXPECT_TRUE(copy.complete());
        EXPECT_NE(folder, data.path());
        EXPECT_TRUE(fs::exists(folder + "/db/autosave.m3u"));
        std::ofstream(folder + "/db/settings.xml") << "changed";
    }
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_EQ(data.read("db/settings.xml"), "<Settings/>");
}

TEST(PrivateCopy, leavesOutWhatIsNoFile) {
    const TemporaryFolder data;
    data.write("db/settings.xml", "<Settings/>");
    ASSERT_EQ(::mkfifo((data / "db/err.log").c_str(), 0600), 0);
    const app::PrivateCopy copy(data.path());
    EXPECT_TRUE(copy.complete());
    EXPECT_FALSE(fs::exists(copy.folder() + "/db/err.log"));
}

TEST(PrivateCopy, ofAFolderThatIsNotThereIsEmpty) {
    const TemporaryFolder data;
    const app::PrivateCopy copy(data / "none");
    ASSERT_FALSE(copy.folder().empty());
    EXPECT_TRUE(fs::is_empty(copy.folder()));
    EXPECT_FALSE(copy.complete());
}

TEST(PrivateCopy, thatCannotBeMadeIsNone) {
    const TemporaryFolder data;
    const EnvironmentGuard noRoom("TMPDIR", data / "none");
    const app::PrivateCopy copy(data.path());
    EXPECT_TRUE(copy.folder().empty());
    EXPECT_FALSE(copy.complete());
}

class DataPlace : public testing::Test {
protected:
    DataPlace() {
        home_.write("bin/data/db/settings.xml",
                    "<?xml version=\"1.0\"?>\n<Settings><ROP/><IROP/><CFLD/></Settings>\n");
        line_.dataFolder = home_ / "user";
        environment_.home = home_.path();
        environment_.executableFolder = home_ / "bin";
    }

    TemporaryFolder home_;
    host::CommandLine line_;
    host::Environment environment_;
};

TEST_F(DataPlace, aNewFolderIsFilledAndBeginsWithTheWelcome) {
    const app::DataPlace place = app::prepareDataFolder(line_, environment_);
    EXPECT_EQ(place.folder, home_ / "user");
    EXPECT_EQ(place.shippedFolder, home_ / "bin/data");
    EXPECT_FALSE(place.unkept);
    EXPECT_EQ(place.standIn, nullptr);
    EXPECT_NE(home_.read("user/db/settings.xml").find(home_ / "Music"), std::string::npos);
    EXPECT_TRUE(fs::exists(home_ / "user/firstrun.ini"));
    const std::string list = home_.read("user/db/autosave.m3u");
    EXPECT_TRUE(list.starts_with("#EXTM3U\r\n#EXTINF:")) << list;
    EXPECT_TRUE(list.ends_with("\r\n" + (home_ / "user/music/welcome.ogg") + "\r\n")) << list;
}

TEST_F(DataPlace, aFolderInUseStaysAsItIs) {
    home_.write("user/db/settings.xml", "<Settings/>");
    const app::DataPlace place = app::prepareDataFolder(line_, environment_);
    EXPECT_EQ(place.folder, home_ / "user");
    EXPECT_EQ(place.shippedFolder, home_ / "bin/data");
    EXPECT_FALSE(place.unkept);
    EXPECT_EQ(place.standIn, nullptr);
    EXPECT_EQ(home_.read("user/db/settings.xml"), "<Settings/>");
    EXPECT_FALSE(fs::exists(home_ / "user/firstrun.ini"));
}

TEST_F(DataPlace, whatAFolderInUseLacksIsLaidAnew) {
    home_.write("bin/data/Languages/English.lng", "[x]");
    home_.write("bin/data/music/welcome.ogg", "tune");
    home_.write("user/db/settings.xml", "<Settings/>");
    EXPECT_EQ(app::prepareDataFolder(line_, environment_).folder, home_ / "user");
    EXPECT_EQ(home_.read("user/db/autosave.m3u"), "#EXTM3U\r\n");
    EXPECT_EQ(home_.read("user/Languages/English.lng"), "[x]");
    EXPECT_EQ(home_.read("user/music/welcome.ogg"), "tune");
    fs::remove(home_ / "user/music/welcome.ogg");
    fs::remove(home_ / "user/Languages/English.lng");
    home_.write("user/db/autosave.m3u", "mine");
    EXPECT_EQ(app::prepareDataFolder(line_, environment_).folder, home_ / "user");
    EXPECT_EQ(home_.read("user/db/autosave.m3u"), "mine");
    EXPECT_EQ(home_.read("user/Languages/English.lng"), "[x]");
    // What is not needed is laid once a version.
    EXPECT_FALSE(fs::exists(home_ / "user/music/welcome.ogg"));
}

TEST_F(DataPlace, manyFirstStartsAtOnceAreOne) {
    home_.write("bin/data/skins/base.tsf", std::string(1 << 20, 's'));
    home_.write("bin/data/Languages/English.lng", "[x]");
    testing::internal::CaptureStderr();
    std::vector<pid_t> starts;
    for (int n = 0; n < 8; ++n) {
        starts.push_back(::fork());
        if (starts.back() == 0) {
            bool whole = false;
            {
                const app::PrivateCopy copy(app::prepareDataFolder(line_, environment_).folder);
                whole = copy.complete() && fs::exists(copy.folder() + "/db/autosave.m3u");
            }
            ::_exit(whole ? 0 : 1);
        }
    }
    for (const pid_t start : starts) {
        int status = -1;
        ASSERT_EQ(::waitpid(start, &status, 0), start);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(DataPlace, aFileInThePlaceOfTheFolderBringsAStandIn) {
    home_.write("user", "a file");
    std::string folder;
    {
        const app::DataPlace place = app::prepareDataFolder(line_, environment_);
        folder = place.folder;
        EXPECT_NE(folder, home_ / "user");
        ASSERT_TRUE(place.unkept);
        EXPECT_EQ(place.unkept->description(), "Path not found: " + (home_ / "user"));
        EXPECT_TRUE(fs::exists(folder + "/db/settings.xml"));
        EXPECT_TRUE(fs::exists(folder + "/db/autosave.m3u"));
    }
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_EQ(home_.read("user"), "a file");
}

TEST_F(DataPlace, aFolderThatCannotBeWrittenBringsAStandInWithItsSettings) {
    home_.write("user/db/settings.xml", "<Settings><A>1</A></Settings>");
    fs::permissions(home_.path(), fs::perms(0755));
    fs::permissions(home_ / "user/db", fs::perms(0555));
    const Unprivileged user;
    const app::DataPlace place = app::prepareDataFolder(line_, environment_);
    ASSERT_TRUE(place.unkept);
    EXPECT_EQ(place.unkept->description(), "Permission denied: " + (home_ / "user"));
    ASSERT_NE(place.standIn, nullptr);
    std::ifstream settings(place.folder + "/db/settings.xml");
    std::string text;
    std::getline(settings, text);
    EXPECT_EQ(text, "<Settings><A>1</A></Settings>");
}

TEST_F(DataPlace, theStandInOfAnOlderFolderIsBroughtUpAndTheFolderStays) {
    home_.write("bin/data/db/settings.xml", "<Settings><TKXV>0,2</TKXV></Settings>");
    home_.write("user/db/settings.xml", "<Settings><TKXV>0,1</TKXV></Settings>");
    fs::permissions(home_.path(), fs::perms(0755));
    fs::permissions(home_ / "user/db", fs::perms(0555));
    const Unprivileged user;
    const app::DataPlace place = app::prepareDataFolder(line_, environment_);
    ASSERT_NE(place.standIn, nullptr);
    std::ifstream settings(place.folder + "/db/settings.xml");
    const std::string text(std::istreambuf_iterator<char>(settings), {});
    EXPECT_NE(text.find("<TKXV>0,2</TKXV>"), std::string::npos) << text;
    EXPECT_EQ(home_.read("user/db/settings.xml"), "<Settings><TKXV>0,1</TKXV></Settings>");
    EXPECT_FALSE(fs::exists(home_ / "user/db/laid.txt"));
}

TEST_F(DataPlace, withoutRoomForAStandInTheFolderItselfServes) {
    home_.write("user", "a file");
    const EnvironmentGuard noRoom("TMPDIR", home_ / "none");
    const app::DataPlace place = app::prepareDataFolder(line_, environment_);
    EXPECT_EQ(place.folder, home_ / "user");
    EXPECT_TRUE(place.unkept);
}

} // namespace
} // namespace tovik::test
