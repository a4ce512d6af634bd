// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/cMP3ID3v1.h"

#include "base/RuntimeError.h"
#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <csignal>
#include <set>

#include <sys/resource.h>

namespace tovik::tags {
namespace {

using namespace samples;

std::string tagBytes(char filling = ' ') {
    return "TAG" + field("Title", 30, filling) + field("Artist", 30, filling) +
           field("Album", 30, filling) + "1999" + field("Comment", 28, filling) + "\0\x07\x11"s;
}

class Id3v1Test : public testing::Test {
protected:
    [[nodiscard]] std::string path() const { return folder / "song.mp3"; }

    [[nodiscard]] std::string file() const { return folder.read("song.mp3"); }

    void load(const std::string& bytes) { tag.MP3File(folder.write("song.mp3", bytes)); }

    /// The number of the error that saving raises; 0 for none.
    int errorOfUpdate() {
        try {
            tag.Update();
        } catch (const base::RuntimeError& error) {
            description = error.description();
            source = error.source();
            return error.number();
        }
        return 0;
    }

    void expectClean() const {
        EXPECT_FALSE(tag.HasID3v1Tag());
        EXPECT_EQ(tag.Title() + tag.Artist() + tag.Album() + tag.Year() + tag.Comment(), "");
        EXPECT_EQ(tag.genre(), 0);
        EXPECT_EQ(tag.track(), 0);
    }

    test::TemporaryFolder folder;
    test::RecordingDialogs dialogs;
    TagWarning warning{dialogs};
    cMP3ID3v1 tag{warning};
    const std::string sound = std::string(1000, '\xAA');
    std::string description;
    std::string source;
};

TEST_F(Id3v1Test, isCleanBeforeAnyRead) {
    expectClean();
    EXPECT_EQ(tag.MP3File(), "");
}

TEST_F(Id3v1Test, readsAllFieldsWithTheirPadding) {
    load(sound + tagBytes());
    EXPECT_EQ(tag.MP3File(), path());
    EXPECT_TRUE(tag.HasID3v1Tag());
    EXPECT_EQ(tag.Title(), field("Title", 30));
    EXPECT_EQ(tag.Artist(), field("Artist", 30));
    EXPECT_EQ(tag.Album(), field("Album", 30));
    EXPECT_EQ(tag.Year(), "1999");
    EXPECT_EQ(tag.Comment(), field("Comment", 28));
    EXPECT_EQ(tag.track(), 7);
    EXPECT_EQ(tag.genre(), 17);
}

TEST_F(Id3v1Test, neverTrims) {
    load(sound + tagBytes('\0'));
    EXPECT_EQ(tag.Title(), field("Title", 30, '\0'));
}

TEST_F(Id3v1Test, aFileWithoutATagIsClean) {
    load(sound + tagBytes());
    load(sound);
    expectClean();
    load(sound + "tag" + tagBytes().substr(3)); // the mark has capital letters
    expectClean();
    load(sound + tagBytes() + "x"); // not at the end
    expectClean();
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Id3v1Test, a128ByteFileHasNoTagAndIsLeftAlone) {
    for (const std::string& bytes : {tagBytes(), "x"s, std::string(127, 'x')}) {
        load(bytes);
        expectClean();
        tag.Title("New");
        EXPECT_EQ(errorOfUpdate(), 0);
        EXPECT_EQ(file(), bytes);
    }
    load("x" + tagBytes());
    EXPECT_TRUE(tag.HasID3v1Tag());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Id3v1Test, updatingAnUnchangedTagGivesTheSameBytes) {
    for (const char filling : {' ', '\0'}) {
        load(sound + tagBytes(filling));
        tag.Update();
        EXPECT_EQ(file(), sound + tagBytes(filling));
    }
}

TEST_F(Id3v1Test, changesAreWrittenOverTheOldTag) {
    load(sound + tagBytes());
    tag.Title("T");
    tag.Artist("A");
    tag.Album("B");
    tag.Year("20");
    tag.Comment("C");
    tag.track(255);
    tag.genre(0);
    EXPECT_EQ(file(), sound + tagBytes()); // so far in memory only
    tag.Update();
    EXPECT_EQ(file(), sound + "TAG" + field("T", 30) + field("A", 30) + field("B", 30) + "20  " +
                          field("C", 28) + "\0\xFF\0"s);
}

TEST_F(Id3v1Test, aMissingTagIsAppended) {
    load(sound);
    tag.Title("T");
    tag.track(1);
    tag.Update();
    EXPECT_EQ(file(), sound + "TAG" + field("T", 30) + field("", 94 - 30 + 28) + "\0\1\0"s);
    EXPECT_FALSE(tag.HasID3v1Tag()); // known after the next read
    load(file());
    EXPECT_TRUE(tag.HasID3v1Tag());
}

TEST_F(Id3v1Test, longTextsAreCutAtTheirWidth) {
    load(sound);
    tag.Title(std::string(31, 't'));
    tag.Year("20001");
    tag.Comment(std::string(40, 'c'));
    tag.Update();
    load(file());
    EXPECT_EQ(tag.Title(), std::string(30, 't'));
    EXPECT_EQ(tag.Year(), "2000");
    EXPECT_EQ(tag.Comment(), std::string(28, 'c'));
    EXPECT_EQ(tag.Artist(), field("", 30));
}

TEST_F(Id3v1Test, aCutLeavesNoHalfCharacter) {
    load(sound);
    tag.Title(std::string(29, 't') + "\xC3\xA4");
    tag.Update();
    load(file());
    EXPECT_EQ(tag.Title(), std::string(29, 't') + " ");
}

TEST_F(Id3v1Test, theByteBeforeTheTrackIsDropped) {
    std::string bytes = tagBytes();
    bytes[125] = 'x';
    load(sound + bytes);
    EXPECT_EQ(tag.Comment(), field("Comment", 28));
    EXPECT_EQ(tag.track(), 7);
    tag.Update();
    EXPECT_EQ(file(), sound + tagBytes());
}

TEST_F(Id3v1Test, anEmptyFileIsAnError) {
    load("");
    expectClean();
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(errorOfUpdate(), -2147217407);
    EXPECT_EQ(description, path() + " is not a valid MP3 file.");
    EXPECT_EQ(source, "tovik.cMP3ID3v1");
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].text, "Can't modify tags , file is read only");
    EXPECT_EQ(errorOfUpdate(), -2147217407);
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(file(), "");
}

TEST_F(Id3v1Test, aFileThatCannotBeOpenedBringsTheMessageOncePerSave) {
    load(sound + tagBytes());
    tag.MP3File(folder / "none.mp3");
    expectClean();
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(warning.TagWarned);
    tag.Title("kept");
    tag.Update();
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    warning.TagWarned = false; // the next save
    cMP3ID3v1 another(warning);
    another.MP3File(folder / "none.mp3");
    another.Update();
    tag.Update();
    EXPECT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_EQ(tag.Title(), "kept");
    EXPECT_FALSE(std::filesystem::exists(folder / "none.mp3"));
}

TEST_F(Id3v1Test, aReadOnlyFileIsReadButNotWritten) {
    load(sound + tagBytes());
    using std::filesystem::perms;
    std::filesystem::permissions(folder.path(), perms::all);
    std::filesystem::permissions(path(),
                                 perms::owner_read | perms::group_read | perms::others_read);
    {
        const test::Unprivileged guard;
        tag.MP3File(path());
        EXPECT_TRUE(dialogs.boxes.empty());
        tag.Title("New");
        tag.Update();
        EXPECT_FALSE(tag.RemoveTag());
    }
    EXPECT_TRUE(tag.HasID3v1Tag());
    EXPECT_EQ(tag.Title(), "New");
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(file(), sound + tagBytes());
}

TEST_F(Id3v1Test, aFolderIsNoFile) {
    tag.MP3File(folder.path());
    expectClean();
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_FALSE(tag.RemoveTag());
}

/// While it lives, no file grows past this size.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit small{.rlim_cur = bytes, .rlim_max = old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }

    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }

    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    void (*handler_)(int);
    rlimit old_{};
};

TEST_F(Id3v1Test, aFullDiskLeavesTheFileAsItWas) {
    load(sound);
    tag.Title("New");
    int error = 0;
    {
        const SmallDisk disk(sound.size() + 50);
        error = errorOfUpdate();
    }
    EXPECT_EQ(error, 61);
    EXPECT_EQ(file(), sound);
}

TEST_F(Id3v1Test, removingMakesTheMarkUnreadable) {
    load(sound + tagBytes());
    EXPECT_TRUE(tag.RemoveTag());
    EXPECT_EQ(file(), sound + "\1\0\0\0"s + tagBytes().substr(4));
    EXPECT_TRUE(tag.HasID3v1Tag()); // known after the next read
    load(file());
    expectClean();
}

TEST_F(Id3v1Test, removingDoesNotLookForATag) {
    load(sound);
    EXPECT_TRUE(tag.RemoveTag());
    EXPECT_EQ(file(), std::string(872, '\xAA') + "\1\0\0\0"s + std::string(124, '\xAA'));
}

TEST_F(Id3v1Test, removingFailsWhereThereIsNoRoomForATag) {
    load(std::string(127, 'x'));
    EXPECT_FALSE(tag.RemoveTag());
    EXPECT_EQ(file(), std::string(127, 'x'));
    load(std::string(128, 'x'));
    EXPECT_TRUE(tag.RemoveTag());
    EXPECT_EQ(file(), "\1\0\0\0"s + std::string(124, 'x'));
    tag.MP3File(folder / "none.mp3");
    EXPECT_FALSE(tag.RemoveTag());
    EXPECT_FALSE(std::filesystem::exists(folder / "none.mp3"));
}

TEST(Id3v1Genres, namesOfNumbers) {
    EXPECT_EQ(cMP3ID3v1::GenreName(0), "Blues");
    EXPECT_EQ(cMP3ID3v1::GenreName(17), "Rock");
    EXPECT_EQ(cMP3ID3v1::GenreName(78), "Rock 'n'Roll");
    EXPECT_EQ(cMP3ID3v1::GenreName(79), "Hard Rock");
    EXPECT_EQ(cMP3ID3v1::GenreName(122), "Drum Solo");
    EXPECT_EQ(cMP3ID3v1::GenreName(124), "Euro - House");
    EXPECT_EQ(cMP3ID3v1::GenreName(147), "Synth Pop");
}

TEST(Id3v1Genres, allButOneHaveANameOfTheirOwn) {
    std::set<std::string_view> names;
    for (int genre = 0; genre < 148; ++genre) {
        names.insert(cMP3ID3v1::GenreName(genre));
    }
    EXPECT_EQ(names.size(), 148U); // with the empty one
    for (const int genre : {123, 148, 255, -1}) {
        EXPECT_EQ(cMP3ID3v1::GenreName(genre), "");
    }
}

} // namespace
} // namespace tovik::tags
