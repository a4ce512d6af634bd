// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/modNetRadio.h"

#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string_view>
#include <thread>

namespace tovik::radio {
namespace {

using namespace std::string_literals;

/// A block that a file may begin with, and what it becomes there.
const std::string kFrame = "\xFF\xFB\x90 frame ";
const std::string kBegin = "\xFF\xFB\x90\0"s + kFrame;

class modNetRadioTest : public testing::Test {
protected:
    static void come(modNetRadio& radio, std::string_view block) {
        radio.download(std::as_bytes(std::span(block)));
    }

    void come(std::string_view block) { come(radio_, block); }

    void title(const std::string& title) { radio_.DoMeta("StreamTitle='" + title + "';"); }

    [[nodiscard]] std::size_t files() const {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
            count += entry.is_regular_file() ? 1U : 0U;
        }
        return count;
    }

    test::TemporaryFolder folder_;
    modNetRadio radio_{folder_.path()};
};

TEST_F(modNetRadioTest, withoutTheButtonOrATitleNothingIsSaved) {
    come(kFrame);
    title("Song");
    come(kFrame);
    EXPECT_EQ(radio_.StreamFileName(), folder_ / "Song.mp3");
    EXPECT_EQ(files(), 0U);
    modNetRadio untitled(folder_.path());
    untitled.setStreamRecording(true);
    come(untitled, kFrame);
    EXPECT_EQ(untitled.StreamFileName(), "");
    EXPECT_EQ(files(), 0U);
}

TEST_F(modNetRadioTest, eachTitleHasItsFile) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    come("more");
    title("Two");
    EXPECT_EQ(folder_.read("One.mp3"), kBegin + "more") << "the change counts from the next block";
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Two.mp3"));
    come("dropped: no frame begins in it");
    come(kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin + "more");
    EXPECT_EQ(folder_.read("Two.mp3"), kBegin);
    title("One");
    come(kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin) << "a file of that name is replaced";
}

TEST_F(modNetRadioTest, aTitleThatIsRepeatedGoesOnInItsFile) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    title("One");
    come("more");
    EXPECT_EQ(folder_.read("One.mp3"), kBegin + "more");
}

TEST_F(modNetRadioTest, anEmptyTitleIsAFileWithoutAName) {
    radio_.setStreamRecording(true);
    radio_.DoMeta("StreamTitle='';StreamUrl='';");
    come(kFrame);
    EXPECT_EQ(folder_.read(".mp3"), kBegin);
}

TEST_F(modNetRadioTest, brokenMetadataLeavesTheTitle) {
    title("One");
    radio_.DoMeta("StreamTitle='Two");
    radio_.DoMeta("StreamUrl='x';");
    EXPECT_EQ(radio_.StreamFileName(), folder_ / "One.mp3");
}

TEST_F(modNetRadioTest, theButtonClosesTheFileAtTheNextBlockAndBeginsItAnew) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    radio_.setStreamRecording(false);
    come(kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin);
    radio_.setStreamRecording(true);
    come(kFrame);
    come("x");
    EXPECT_EQ(folder_.read("One.mp3"), kBegin + "x");
}

TEST_F(modNetRadioTest, theEndOfTheStreamClosesTheFile) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    come("");
    come(kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin) << "nothing is written behind the end";
}

TEST_F(modNetRadioTest, aStreamThatCameBackGoesOnInTheFileOfItsSong) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    come("");
    modNetRadio second(radio_);
    EXPECT_FALSE(radio_.StreamRecording());
    EXPECT_TRUE(second.StreamRecording());
    modNetRadio third(second); // it was lost before anything came
    third.DoMeta("StreamTitle='One';");
    come(third, kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin + kBegin);
    third.DoMeta("StreamTitle='Two';");
    come(third, kFrame);
    third.DoMeta("StreamTitle='One';");
    come(third, kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin) << "it was interrupted no more";
}

TEST_F(modNetRadioTest, noTitleLeadsOutOfTheFolder) {
    const test::TemporaryFolder outer;
    std::filesystem::create_directory(outer / "in");
    modNetRadio radio(outer / "in");
    radio.setStreamRecording(true);
    for (const std::string title : {"../x", "..", "/etc/x", "a/../../b", "CON"}) {
        radio.DoMeta("StreamTitle='" + title + "';");
        come(radio, kFrame);
    }
    std::size_t inside = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(outer.path())) {
        if (entry.is_regular_file()) {
            EXPECT_EQ(entry.path().parent_path(), outer / "in");
            ++inside;
        }
    }
    EXPECT_EQ(inside, 5U);
}

TEST_F(modNetRadioTest, aFullDiskEndsTheSavingAndIsToldOnce) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    {
        const test::FullDisk full(kBegin.size());
        come("too much");
        come("too much");
    }
    EXPECT_FALSE(radio_.StreamRecording());
    const auto failure = radio_.takeFailure();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->why, std::errc::file_too_large);
    EXPECT_EQ(failure->path, folder_ / "One.mp3");
    EXPECT_TRUE(failure->ends);
    EXPECT_FALSE(radio_.takeFailure());
}

TEST_F(modNetRadioTest, aFileThatCannotBeMadeIsToldOnceAndTriedAgain) {
    std::filesystem::create_directory(folder_ / "One.mp3");
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    EXPECT_TRUE(radio_.StreamRecording());
    const auto failure = radio_.takeFailure();
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->ends);
    EXPECT_EQ(failure->path, folder_ / "One.mp3");
    come(kFrame);
    EXPECT_FALSE(radio_.takeFailure());
    std::filesystem::remove(folder_ / "One.mp3");
    come(kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin);
}

TEST_F(modNetRadioTest, theSongBehindOneThatCannotBeSavedIs) {
    std::filesystem::create_directory(folder_ / "One.mp3");
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    title("Two");
    come(kFrame);
    EXPECT_EQ(folder_.read("Two.mp3"), kBegin);
}

TEST_F(modNetRadioTest, aTitleWithEachByteMakesFewFiles) {
    radio_.setStreamRecording(true);
    for (int i = 0; i < 2000; ++i) {
        title(std::to_string(i));
        come("x");
    }
    EXPECT_GE(files(), 32U);
    EXPECT_LE(files(), 64U); // in some seconds, on the slowest machine
}

TEST_F(modNetRadioTest, whatWasEndedDoesNotGoOnInAnotherStream) {
    radio_.setStreamRecording(true);
    title("One");
    come(kFrame);
    radio_.setStreamRecording(false);
    modNetRadio next(radio_);
    next.setStreamRecording(true);
    next.DoMeta("StreamTitle='One';");
    come(next, kFrame);
    EXPECT_EQ(folder_.read("One.mp3"), kBegin);
}

TEST_F(modNetRadioTest, theCountOfBlocksStops) {
    for (int i = 0; i < 32767; ++i) {
        come("x");
    }
    EXPECT_EQ(radio_.StreamBlocks(), 32767);
    come("x");
    EXPECT_EQ(radio_.StreamBlocks(), 32767);
}

TEST_F(modNetRadioTest, theButtonMayBePressedWhileBlocksCome) {
    std::thread engine([this] {
        for (int i = 0; i < 500; ++i) {
            title(std::to_string(i % 3));
            come(kFrame);
        }
    });
    for (int i = 0; i < 500; ++i) {
        radio_.setStreamRecording(i % 2 == 0);
        static_cast<void>(radio_.StreamFileName());
    }
    engine.join();
    EXPECT_EQ(radio_.StreamBlocks(), 500);
    EXPECT_LE(files(), 3U);
}

} // namespace
} // namespace tovik::radio
