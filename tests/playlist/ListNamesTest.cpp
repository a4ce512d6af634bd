// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListNames.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace tovik::playlist {
namespace {

TEST(ListNames, relativeNamesCountFromTheFolder) {
    for (const auto& [name, file] : std::to_array<std::pair<std::string_view, std::string_view>>({
             {"a.mp3", "/l/a.mp3"},
             {"./a.mp3", "/l/a.mp3"},
             {"sub/b c.mp3", "/l/sub/b c.mp3"},
             {"../up/a.mp3", "/l/../up/a.mp3"},
             {R"(sub\deep\a.mp3)", "/l/sub/deep/a.mp3"},
             {R"(..\a.mp3)", "/l/../a.mp3"},
             {R"(.\a.mp3)", "/l/a.mp3"},
             {R"(Music/Sub\a.mp3)", "/l/Music/Sub/a.mp3"},
             {R"(../Music\Sub/a.mp3)", "/l/../Music/Sub/a.mp3"},
             {R"(./sub/AC\DC.mp3)", R"(/l/sub/AC\DC.mp3)"},
             {"100%25.mp3", "/l/100%25.mp3"},
         })) {
        EXPECT_EQ(resolvedName(name, "/l"), file) << name;
    }
    EXPECT_EQ(resolvedName("a.mp3", "/"), "/a.mp3");
}

TEST(ListNames, othersStayAsTheyAre) {
    for (const char* name : {"", "/m/a.mp3", R"(/m/AC\DC.mp3)", "http://x/a.mp3", "HTTPS://x",
                             "mms://x", R"(C:\Music\a.mp3)", "d:/a.mp3", R"(\\server\a.mp3)",
                             R"(D:\Track01.cda)", "Track02.CDA", "file://other/a.mp3"}) {
        EXPECT_EQ(resolvedName(name, "/l"), name);
    }
    EXPECT_EQ(resolvedName("file:///m/a%20b.mp3", "/l"), "/m/a b.mp3");
    EXPECT_EQ(resolvedName(R"(\m\a.mp3)", "/l"), "/m/a.mp3");
}

TEST(ListNames, filesBelowTheListAreNamedFromThere) {
    for (const auto& [file, name] : std::to_array<std::pair<std::string_view, std::string_view>>({
             {"/l/a.mp3", "a.mp3"},
             {"/l/sub/b c.mp3", "sub/b c.mp3"},
             {"/l/# 1.mp3", "./# 1.mp3"},
             {"/l/ a.mp3", "./ a.mp3"},
             {R"(/l/AC\DC.mp3)", R"(./AC\DC.mp3)"},
             {R"(/l/sub/AC\DC.mp3)", R"(./sub/AC\DC.mp3)"},
             {R"(/l/\\x/y.mp3)", R"(./\\x/y.mp3)"},
             {"/l/c:/a.mp3", "./c:/a.mp3"},
             {"/l/a://b.mp3", "./a://b.mp3"},
             {"/l//a.mp3", ".//a.mp3"},
         })) {
        EXPECT_EQ(nameInList(file, "/l"), name);
    }
    for (const char* file : {"/k/a.mp3", "/list/a.mp3", "/l", "/l/", "/l/./a.mp3",
                             "http://x/l/a.mp3", "a.mp3", "", R"(D:\Track01.cda)"}) {
        EXPECT_EQ(nameInList(file, "/l"), file);
    }
    EXPECT_EQ(nameInList("/a.mp3", "/"), "a.mp3");
}

TEST(ListNames, aNameInAListComesBack) {
    for (const char* file : {"/l/a.mp3",         "/l/sub/b c.mp3",  "/l/# 1.mp3",
                             "/l/ a.mp3",        R"(/l/AC\DC.mp3)", R"(/l/sub/AC\DC.mp3)",
                             R"(/l/\\x/y.mp3)",  "/l/c:/a.mp3",     "/l/a://b.mp3",
                             "/l//a.mp3",        "/l/./a.mp3",      "/k/a.mp3",
                             "http://x/a?b=%20", "/l/x.cda",        "/l/100%.mp3",
                             "/l/100%25.mp3",    "/l/\xFF\xC4.mp3", R"(C:\a.mp3)",
                             "/l/file:/a",       "/l/a?b#c",        "/l/a ",
                             "/l/\ta",           "/k/a\r\nb",       "/l/ "}) {
        EXPECT_EQ(resolvedName(nameInList(file, "/l"), "/l"), file);
        EXPECT_EQ(resolvedReference(referenceInList(file, "/l"), "/l"), file);
        EXPECT_EQ(resolvedReference(referenceInList(file, ""), "/l"), file);
    }
}

TEST(ListNames, references) {
    EXPECT_EQ(referenceInList("/l/b c.mp3", "/l"), "b%20c.mp3");
    EXPECT_EQ(referenceInList("/k/\xC4\x8D.mp3", "/l"), "file:///k/%C4%8D.mp3");
    EXPECT_EQ(referenceInList("http://x/a?b=1&c", "/l"), "http://x/a?b=1&c");
    EXPECT_EQ(resolvedReference("sub/a%20b.mp3", "/l"), "/l/sub/a b.mp3");
    EXPECT_EQ(resolvedReference(R"(sub\a b.mp3)", "/l"), "/l/sub/a b.mp3");
    EXPECT_EQ(resolvedReference(R"(Music/Sub\a%20b.mp3)", "/l"), "/l/Music/Sub/a b.mp3");
    EXPECT_EQ(resolvedReference("100%.mp3", "/l"), "/l/100%.mp3") << "an escape that is none";
    EXPECT_EQ(resolvedReference("/m/a%20b.mp3", "/l"), "/m/a b.mp3");
    EXPECT_EQ(resolvedReference("file:///m/a%20b.mp3", "/l"), "/m/a b.mp3");
    EXPECT_EQ(resolvedReference("https://x/%20", "/l"), "https://x/%20");
}

} // namespace
} // namespace tovik::playlist
