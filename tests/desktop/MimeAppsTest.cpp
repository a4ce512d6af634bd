// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MimeApps.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tovik::desktop {
namespace {

const std::vector<std::string> kTypes = {"audio/mpeg", "audio/flac"};
constexpr const char* kId = "tovik.desktop";

TEST(MimeApps, aFileBeginsWithIt) {
    EXPECT_EQ(withDefaults("", kTypes, kId), "[Default Applications]\n"
                                             "audio/mpeg=tovik.desktop;\n"
                                             "audio/flac=tovik.desktop;\n"
                                             "[Added Associations]\n"
                                             "audio/mpeg=tovik.desktop;\n"
                                             "audio/flac=tovik.desktop;\n");
}

TEST(MimeApps, otherLinesStay) {
    const std::string before = "# by hand\n"
                               "\n"
                               "[Added Associations]\n"
                               "audio/mpeg=one.desktop;two.desktop\n"
                               "text/plain = editor.desktop\n"
                               "\n"
                               "[Default Applications]\n"
                               "text/html=browser.desktop\n"
                               "audio/flac=two.desktop;tovik.desktop;\n"
                               "\n"
                               "[Removed Associations]\n"
                               "audio/mpeg=tovik.desktop;three.desktop;\n"
                               "audio/flac=tovik.desktop;\n"
                               "video/mp4=tovik.desktop;\n"
                               "[Foreign]\n"
                               "audio/mpeg=tovik.desktop;\n";
    const std::string after = "# by hand\n"
                              "\n"
                              "[Added Associations]\n"
                              "audio/mpeg=tovik.desktop;one.desktop;two.desktop;\n"
                              "text/plain = editor.desktop\n"
                              "audio/flac=tovik.desktop;\n"
                              "\n"
                              "[Default Applications]\n"
                              "text/html=browser.desktop\n"
                              "audio/flac=tovik.desktop;two.desktop;\n"
                              "audio/mpeg=tovik.desktop;\n"
                              "\n"
                              "[Removed Associations]\n"
                              "audio/mpeg=three.desktop;\n"
                              "video/mp4=tovik.desktop;\n"
                              "[Foreign]\n"
                              "audio/mpeg=tovik.desktop;\n";
    EXPECT_EQ(withDefaults(before, kTypes, kId), after);
    EXPECT_EQ(withDefaults(after, kTypes, kId), after) << "twice is once";
}

TEST(MimeApps, withoutTheProgramEveryOtherIsAsBefore) {
    const std::string before = "[Default Applications]\n"
                               "audio/mpeg=one.desktop;\n"
                               "text/html=browser.desktop\n"
                               "[Removed Associations]\n"
                               "video/mp4=tovik.desktop;\n";
    EXPECT_EQ(withoutProgram(withDefaults(before, kTypes, kId), kId), before);
    EXPECT_EQ(withoutProgram(withDefaults("", kTypes, kId), kId), "");
    EXPECT_EQ(withoutProgram("", kId), "");
}

TEST(MimeApps, whatTheUserTookFromItIsSoAgain) {
    const std::string before = "[Removed Associations]\n"
                               "audio/flac=one.desktop;tovik.desktop;\n"
                               "audio/mpeg=tovik.desktop;\n";
    const std::vector<std::string> refused = refusedTypes(before, kTypes, kId);
    EXPECT_EQ(refused, kTypes);
    const std::string claimed = withDefaults(before, kTypes, kId);
    EXPECT_TRUE(refusedTypes(claimed, kTypes, kId).empty());
    EXPECT_EQ(withoutProgram(claimed, kId, refused), before);
    EXPECT_EQ(withoutProgram(before, kId, refused), before);
    EXPECT_EQ(withoutProgram("", kId, std::vector<std::string>{"a/b"}),
              "[Removed Associations]\na/b=tovik.desktop;\n");
}

TEST(MimeApps, aSectionWithSomethingElseStays) {
    const std::string before = "[Default Applications]\n# mine\n";
    EXPECT_EQ(withoutProgram(withDefaults(before, kTypes, kId), kId), before);
    const std::string empty = "[Added Associations]\n\n[Default Applications]\n";
    EXPECT_EQ(withoutProgram(empty, kId), empty) << "not its own";
}

TEST(MimeApps, aLastLineWithoutAnEnd) {
    EXPECT_EQ(withDefaults("[Default Applications]\ntext/html=b.desktop",
                           std::vector<std::string>{"audio/mpeg"}, kId),
              "[Default Applications]\ntext/html=b.desktop\naudio/mpeg=tovik.desktop;\n"
              "[Added Associations]\naudio/mpeg=tovik.desktop;\n");
    EXPECT_EQ(withDefaults("x=y", {}, kId), "x=y");
    EXPECT_EQ(withoutProgram("x=y", kId), "x=y");
}

} // namespace
} // namespace tovik::desktop
