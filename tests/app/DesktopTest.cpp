// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop round the player gets: file types, and what plays.
#include "app/AppRig.h"
#include "base/RegularFile.h"
#include "desktop/MessengerText.h"

namespace tovik::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class DesktopWing : public AppRig {
protected:
    DesktopWing() {
        options_.program = "/opt/tovik/tovik";
        options_.typePlaces = {.store = host_.folder / "db/classes.ini",
                               .applications = host_.folder / "applications",
                               .defaults = host_.folder / "config/mimeapps.list"};
    }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::string bytes;
        return base::readWholeFile(host_.folder / name, bytes) ? "(none)" : bytes;
    }

    void associate(const std::vector<std::string>& extensions) {
        player().choices().preferences.hooks.associate(extensions);
    }
};

TEST_F(DesktopWing, typesOfFilesAreClaimed) {
    start();
    associate({"mp3"});
    EXPECT_THAT(read("db/classes.ini"),
                HasSubstr("[Tovik\\DefaultIcon]\r\n@=/opt/tovik\\tkstart.exe,1\r\n"));
    EXPECT_THAT(read("applications/tovik.desktop"),
                HasSubstr("\nExec=\"/opt/tovik/tovik\" /Play %f\n"));
    EXPECT_THAT(read("config/mimeapps.list"), HasSubstr("\naudio/mpeg=tovik.desktop;\n"));
    ASSERT_FALSE(host_.programs.starts.empty());
    EXPECT_EQ(host_.programs.starts.back().name, "update-desktop-database");
}

TEST_F(DesktopWing, aFailureIsRaised) {
    host_.folder.write("applications", "a file where the folder should be");
    start();
    EXPECT_THROW(associate({"mp3"}), base::RuntimeError);
}

TEST_F(DesktopWing, aStartThatNobodyWatchesLeavesTheDesktopAlone) {
    options_.program.clear();
    start();
    EXPECT_FALSE(player().choices().preferences.canAssociate());
}

TEST_F(DesktopWing, aRemoteControlOpensFilesThatAreThere) {
    start();
    const std::string path = track("song.mp3");
    EXPECT_FALSE(player().desktop().remote.OpenUri("file://" + (host_.folder / "none.mp3")));
    EXPECT_EQ(player().stdSS().ListCount(), 0);
    EXPECT_TRUE(player().desktop().remote.OpenUri("file://" + path));
    EXPECT_EQ(player().stdSS().ListCount(), 1);
}

TEST_F(DesktopWing, messengersHearOfTracksAndOfTheEnd) {
    set("MSN", "1");
    options_.commandLine = "\"" + track("song.mp3") + "\"";
    start();
    ASSERT_THAT(host_.messengers.sent, testing::Not(IsEmpty()));
    EXPECT_EQ(host_.messengers.sent.back(),
              desktop::messengerRecord({.enabled = true, .format = "{0}", .value1 = "song.mp3"}));
    player().kill_me();
    EXPECT_EQ(host_.messengers.sent.back(), desktop::messengerRecord({}));
}

} // namespace
} // namespace tovik::test
