// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TypeExport.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "support/host/RecordingPrograms.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tovik::desktop {
namespace {

using testing::HasSubstr;

class TypeExport : public testing::Test {
protected:
    static std::string read(const std::string& path) {
        std::string bytes;
        return base::readWholeFile(path, bytes) ? "(none)" : bytes;
    }

    static void write(const std::string& path, const std::string& bytes) {
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        ASSERT_FALSE(base::replaceFile(path, bytes, base::Flush::No));
    }

    std::error_code claim(const std::vector<std::string>& extensions) {
        return claimTypes(places_, extensions, "/usr/bin/tovik", "/usr/bin\\tkstart.exe,1");
    }

    test::TemporaryFolder folder_;
    host::Environment environment_{.home = folder_.path(),
                                   .dataHome = "",
                                   .locale = "",
                                   .searchPath = "",
                                   .workingFolder = "",
                                   .executableFolder = ""};
    TypePlaces places_ = TypePlaces::of(environment_, folder_.path() + "/data");
    std::string entry_ = folder_.path() + "/.local/share/applications/tovik.desktop";
};

TEST_F(TypeExport, placesOfTheUser) {
    EXPECT_EQ(places_.store, folder_.path() + "/data/db/classes.ini");
    EXPECT_EQ(places_.applications, folder_.path() + "/.local/share/applications");
    EXPECT_EQ(places_.defaults, folder_.path() + "/.config/mimeapps.list");
    environment_.dataHome = "/d";
    environment_.configHome = "/c";
    const TypePlaces other = TypePlaces::of(environment_, "/x");
    EXPECT_EQ(other.applications, "/d/applications");
    EXPECT_EQ(other.defaults, "/c/mimeapps.list");
    environment_.dataHome = "d";
    environment_.configHome = "./c";
    const TypePlaces ignored = TypePlaces::of(environment_, "/x");
    EXPECT_EQ(ignored.applications, places_.applications) << "relative ones are ignored";
    EXPECT_EQ(ignored.defaults, places_.defaults);
}

TEST_F(TypeExport, claimsAndForgets) {
    write(places_.defaults, "[Default Applications]\naudio/mpeg=one.desktop;\n");
    EXPECT_FALSE(claim({"mp3"}));
    EXPECT_FALSE(claim({"ogg"}));
    EXPECT_THAT(read(entry_), HasSubstr("MimeType=audio/mpeg;audio/x-vorbis+ogg;audio/ogg;\n"));
    EXPECT_THAT(read(places_.store), HasSubstr("[.mp3]"));
    EXPECT_THAT(read(places_.defaults), HasSubstr("\naudio/mpeg=tovik.desktop;one.desktop;\n"));

    EXPECT_FALSE(forgetTypes(places_));
    EXPECT_EQ(read(entry_), "(none)");
    EXPECT_EQ(read(places_.store), "(none)");
    EXPECT_EQ(read(places_.defaults), "[Default Applications]\naudio/mpeg=one.desktop;\n");
    EXPECT_FALSE(forgetTypes(places_)) << "there is nothing left to do";
}

TEST_F(TypeExport, whatOnlyItWroteGoes) {
    EXPECT_FALSE(claim({"mp3"}));
    EXPECT_FALSE(forgetTypes(places_));
    EXPECT_EQ(read(places_.defaults), "(none)");
    const std::string refused = "[Removed Associations]\naudio/mpeg=tovik.desktop;\n";
    write(places_.defaults, refused);
    EXPECT_FALSE(claim({"mp3", "ogg"}));
    EXPECT_FALSE(claim({"mp3"}));
    EXPECT_FALSE(forgetTypes(places_));
    EXPECT_EQ(read(places_.defaults), refused);
}

TEST_F(TypeExport, aLinkInPlaceOfTheDefaultsStays) {
    const std::string target = folder_.path() + "/elsewhere";
    write(target, "");
    std::filesystem::create_directories(folder_.path() + "/.config");
    std::filesystem::create_symlink(target, places_.defaults);
    EXPECT_FALSE(claim({"mp3"}));
    EXPECT_NE(read(target), "");
    EXPECT_FALSE(forgetTypes(places_));
    EXPECT_EQ(read(target), "");
    EXPECT_TRUE(std::filesystem::is_symlink(places_.defaults));
}

TEST_F(TypeExport, theDesktopLooksAnewOnlyWhereItHasLooked) {
    test::RecordingPrograms programs;
    tellOfForgotten(programs, places_);
    EXPECT_TRUE(programs.starts.empty());
    write(places_.applications + "/mimeinfo.cache", "");
    tellOfForgotten(programs, places_);
    ASSERT_EQ(programs.starts.size(), 1U);
    EXPECT_EQ(programs.starts[0].name, "update-desktop-database");
    EXPECT_EQ(programs.starts[0].arguments, std::vector{places_.applications});
}

TEST_F(TypeExport, noneTickedTouchesNothing) {
    EXPECT_FALSE(claim({}));
    EXPECT_EQ(read(entry_), "(none)");
    EXPECT_EQ(read(places_.defaults), "(none)");
}

TEST_F(TypeExport, anEntryOfSomebodyElseStays) {
    write(entry_, "[Desktop Entry]\nName=Mine\n");
    EXPECT_FALSE(claim({"mp3"}));
    EXPECT_FALSE(forgetTypes(places_));
    EXPECT_EQ(read(entry_), "[Desktop Entry]\nName=Mine\n");
}

TEST_F(TypeExport, aFailureIsToldAndNothingLost) {
    write(places_.defaults, "[Default Applications]\n");
    std::filesystem::create_directories(entry_); // a folder stands where the file should
    EXPECT_TRUE(claim({"mp3"}));
    EXPECT_EQ(read(places_.defaults), "[Default Applications]\n");
    EXPECT_TRUE(forgetTypes(places_));
    EXPECT_EQ(read(places_.store), "(none)") << "what can be taken back is";
}

} // namespace
} // namespace tovik::desktop
