// SPDX-License-Identifier: GPL-3.0-or-later
// Tags that common programs write and read. They are among the packages of the checks.
#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>

namespace tovik::tags {
namespace {

using namespace samples;
using testing::HasSubstr;

/// What a command prints; its failure is one of the test.
std::string run(const std::string& command) {
    FILE* const pipe = ::popen((command + " 2>&1").c_str(), "r");
    std::string printed;
    std::array<char, 4096> piece{};
    for (std::size_t got = 1; got > 0;) {
        got = std::fread(piece.data(), 1, piece.size(), pipe);
        printed.append(piece.data(), got);
    }
    EXPECT_EQ(::pclose(pipe), 0) << command << ": " << printed;
    return printed;
}

class Interchange : public testing::Test {
protected:
    Interchange() { path_ = folder_.write("song.mp3", sound_); }

    void load() {
        first_.MP3File(path_);
        second_.MP3File(path_);
    }

    test::TemporaryFolder folder_;
    test::RecordingDialogs dialogs_;
    TagWarning warning_{dialogs_};
    cMP3ID3v1 first_{warning_};
    cMP3ID3v2 second_{warning_};
    const std::string sound_ = sound(60);
    std::string path_;
};

TEST_F(Interchange, id3v2WritesBoth) {
    run("id3v2 -a Artist -A Album -t Title -c Comment -g 17 -y 1999 -T 7 " + path_);
    load();
    EXPECT_EQ(first_.Title(), field("Title", 30, '\0'));
    EXPECT_EQ(first_.Artist(), field("Artist", 30, '\0'));
    EXPECT_EQ(first_.Album(), field("Album", 30, '\0'));
    EXPECT_EQ(first_.Year(), "1999");
    EXPECT_EQ(first_.track(), 7);
    EXPECT_EQ(first_.genre(), 17);
    EXPECT_EQ(second_.Title(), "Title");
    EXPECT_EQ(second_.Artist(), "Artist");
    EXPECT_EQ(second_.Album(), "Album");
    EXPECT_EQ(second_.Year(), "1999");
    EXPECT_EQ(second_.Comment(), "Comment");
    EXPECT_EQ(second_.track(), "7");
    EXPECT_EQ(second_.genre(), 1); // the last digit is cut off
    second_.Title("Ours");
    ASSERT_TRUE(second_.Update());
    EXPECT_NE(folder_.read("song.mp3").find(sound_), std::string::npos);
}

TEST_F(Interchange, mid3v2WritesBoth) {
    run("mid3v2 -a Artist -A Album -t Title -y 1999 -T 7 -g Rock " + path_);
    load();
    // Its texts end in a zero byte, and nothing stands behind it.
    EXPECT_EQ(second_.Title(), "");
    EXPECT_EQ(second_.ID3v2TagVersion(), 4);
    EXPECT_EQ(second_.TagsInFrame("TPE1"), 1);
    second_.Title("Ours");
    ASSERT_TRUE(second_.Update());
    EXPECT_TRUE(folder_.read("song.mp3").find(sound_) != std::string::npos);
    load();
    EXPECT_EQ(second_.Title(), "Ours");
}

TEST_F(Interchange, eyeD3WritesVersions23And24) {
    run("eyeD3 -Q --to-v2.3 --encoding latin1 -a Artist -A Album -t Title -n 7 " + path_);
    load();
    EXPECT_EQ(second_.ID3v2TagVersion(), 3);
    EXPECT_EQ(second_.Title(), "Title");
    EXPECT_EQ(second_.Artist(), "Artist");
    EXPECT_EQ(second_.Album(), "Album");
    EXPECT_EQ(second_.track(), "07");
    run("eyeD3 -Q --to-v2.4 --encoding latin1 -t Another " + path_);
    load();
    EXPECT_EQ(second_.ID3v2TagVersion(), 4);
    EXPECT_EQ(second_.Title(), "Another");
    second_.Title("Ours");
    ASSERT_TRUE(second_.Update());
    EXPECT_TRUE(folder_.read("song.mp3").find(sound_) != std::string::npos);
}

TEST_F(Interchange, othersListWhatWeWrite) {
    load();
    first_.Title("First");
    first_.Artist("Artist");
    first_.Album("Album");
    first_.Year("1999");
    first_.Comment("Comment");
    first_.track(7);
    first_.genre(17);
    first_.Update();
    second_.Title("Second");
    second_.Artist("Artist 2");
    second_.Album("Album 2");
    second_.Comment("Comment 2");
    second_.genre(17);
    second_.track("8");
    ASSERT_TRUE(second_.Update());
    const std::string listed = run("id3v2 -l " + path_);
    EXPECT_THAT(listed, HasSubstr("Title  : First"));
    EXPECT_THAT(listed, HasSubstr("Genre: Rock (17)"));
    EXPECT_THAT(listed, HasSubstr("Track: 7"));
    EXPECT_THAT(listed, HasSubstr("TIT2 (Title/songname/content description): Second"));
    EXPECT_THAT(listed, HasSubstr("TPE1 (Lead performer(s)/Soloist(s)): Artist 2"));
    EXPECT_THAT(listed, HasSubstr("TCON (Content type): Rock (17)"));
    EXPECT_THAT(listed, HasSubstr("TRCK (Track number/Position in set): 8"));
    const std::string others = run("mid3v2 -l " + path_);
    EXPECT_THAT(others, HasSubstr("TIT2=Second"));
    EXPECT_THAT(others, HasSubstr("TALB=Album 2"));
    EXPECT_THAT(others, HasSubstr("Comment 2"));
}

TEST_F(Interchange, version1IsTheSameBothWays) {
    const std::string theirs = folder_.write("theirs.mp3", sound_);
    run("id3v2 -1 -a Artist -A Album -t Title -c Comment -g 17 -y 1999 -T 7 " + theirs);
    load();
    first_.Title("Title");
    first_.Artist("Artist");
    first_.Album("Album");
    first_.Year("1999");
    first_.Comment("Comment");
    first_.track(7);
    first_.genre(17);
    first_.Update();
    cMP3ID3v1 other(warning_);
    other.MP3File(theirs);
    load();
    const auto texts = [](const cMP3ID3v1& tag) {
        std::string all;
        for (std::string text :
             {tag.Title(), tag.Artist(), tag.Album(), tag.Year(), tag.Comment()}) {
            text.erase(text.find_last_not_of(" \0"s) + 1); // blanks here, zero bytes there
            all += text + '|';
        }
        return all + std::to_string(tag.track()) + '|' + std::to_string(tag.genre());
    };
    EXPECT_EQ(texts(first_), "Title|Artist|Album|1999|Comment|7|17");
    EXPECT_EQ(texts(other), texts(first_));
}

} // namespace
} // namespace tovik::tags
