// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/DesktopEntry.h"

#include "desktop/FileTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tovik::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

KeyStore claiming(const std::vector<std::string>& extensions) {
    KeyStore store;
    associate(store, extensions, "/usr/bin/tovik", "/usr/bin\\tkstart.exe,1");
    return store;
}

TEST(DesktopEntry, typesAndActions) {
    EXPECT_EQ(desktopEntry(claiming({"mp3", "wma"})),
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Version=1.4\n"
              "Name=Tovik\n"
              "GenericName=Audio Player\n"
              "GenericName[sl]=Predvajalnik zvoka\n"
              "Icon=tovik\n"
              "Terminal=false\n"
              "StartupNotify=true\n"
              "Categories=AudioVideo;Audio;Player;\n"
              "Comment=Tovik Media File\n"
              "Exec=\"/usr/bin/tovik\" %f\n"
              "MimeType=audio/mpeg;audio/x-ms-wma;\n"
              "X-Tovik-FileTypes=true\n"
              "Actions=play;add;\n"
              "\n[Desktop Action play]\n"
              "Name=Play File\n"
              "Exec=\"/usr/bin/tovik\" /Play %f\n"
              "\n[Desktop Action add]\n"
              "Name=Add to Tovik playlist\n"
              "Exec=\"/usr/bin/tovik\" /ADD %f\n");
}

TEST(DesktopEntry, aTypeOfTwoExtensionsIsNamedOnce) {
    EXPECT_THAT(claimedTypes(claiming({"fla", "flac", "mod", "mtm"})),
                ElementsAre("audio/flac", "audio/x-mod"));
}

TEST(DesktopEntry, extensionsOfOthersAreTheirs) {
    KeyStore store = claiming({"ogg"});
    store.WriteDefault(kClassesRoot, ".mp3", "", "Other");
    EXPECT_THAT(claimedExtensions(store), ElementsAre("ogg"));
}

TEST(DesktopEntry, noVerbsNoActions) {
    KeyStore store;
    RegisterExtension(store, "mp3", "/t", kProgId, "d", "");
    EXPECT_THAT(desktopEntry(store), Not(HasSubstr("Action")));
    EXPECT_THAT(claimedTypes(KeyStore()), IsEmpty());
}

TEST(DesktopEntry, aProgramWithSpecialCharacters) {
    EXPECT_EQ(execOf(R"("/a b/100%/$x`\t" %1)"), R"("/a b/100%%/\\$x\\`\\\\t" %f)");
    EXPECT_EQ(execOf("\"/never ends"), "\"/never ends\"");
    EXPECT_EQ(execOf("tovik /ADD \"%1\""), "tovik /ADD %f");
    EXPECT_EQ(execOf(""), "");
}

} // namespace
} // namespace tovik::desktop
