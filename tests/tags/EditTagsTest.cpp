// SPDX-License-Identifier: GPL-3.0-or-later
// Editing keeps what it does not change.
#include "tags/EditTags.h"

#include "support/host/FullDisk.h"
#include "support/host/Unprivileged.h"
#include "tags/EditTagsFixture.h"
#include "tags/FileFacts.h"
#include "tags/Samples.h"

#include <chrono>

namespace tovik::tags {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

std::string utf16(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char letter : text) {
        bytes += letter + "\0"s;
    }
    return bytes;
}

std::string newFrame(std::string_view id, const std::string& content) {
    return std::string(id) + samples::sevenBits(static_cast<std::uint32_t>(content.size())) +
           "\0\0"s + content;
}

std::string oldFrame(std::string_view id, const std::string& content) {
    return std::string(id) +
           samples::bigEndian(static_cast<std::uint32_t>(content.size())).substr(1) + content;
}

std::string tagOf(const std::string& frames, std::size_t padding = 0, char version = 3) {
    return samples::head(samples::sevenBits(static_cast<std::uint32_t>(frames.size() + padding)),
                         version) +
           frames + std::string(padding, '\0');
}

const std::string kPicture =
    std::string("\0image/png\0\3\0", 13) + "\x89PNG\r\n\x1A\n" + std::string(300, '\xFB');
const std::string kForeign = samples::frame("PRIV", "owner\0\1\2\3"s) +
                             samples::frame("TIT2", "\1"s + utf16("Wide title") + "\0\0"s) +
                             samples::frame("APIC", kPicture) +
                             samples::frame("TXXX", "\1"s + utf16("key") + "\0\0"s + utf16("v")) +
                             samples::frame("COMM", "\0engdescribed\0kept"s);

TEST_F(EditTagsTest, foreignFramesKeepTheirBytes) {
    const std::string title = samples::frame("TPE1", "\0Old artist"s);
    write(tagOf(kForeign + title, 50) + sound_);
    ASSERT_FALSE(change(EditField::artist, "New"));
    EXPECT_TRUE(file() == tagOf(kForeign + samples::frame("TPE1", "\0New"s), 57) + sound_)
        << "in its place, with the room as it was";
    EXPECT_EQ(text(EditField::artist), "New");
    EXPECT_EQ(text(EditField::title), "Wide title");
}

TEST_F(EditTagsTest, aTagThatGrowsTellsItsTrueSize) {
    write(tagOf(kForeign) + sound_);
    ASSERT_FALSE(change(EditField::album, std::string(500, 'a')));
    const std::string bytes = file();
    EXPECT_EQ(bytes.substr(10, kForeign.size()), kForeign);
    EXPECT_EQ(bytes.substr(toldEnd()), sound_);
    EXPECT_EQ(text(EditField::album), std::string(500, 'a'));
    ASSERT_FALSE(change(EditField::album, ""));
    EXPECT_EQ(file().size(), bytes.size()) << "the room stays";
    EXPECT_EQ(text(EditField::album), "");
    EXPECT_EQ(file().substr(toldEnd()), sound_);
}

TEST_F(EditTagsTest, aNewTagHoldsWhatIsTyped) {
    write(sound_);
    const std::array<std::pair<EditField, std::string>, 12> fields{{
        {EditField::title, "Title"},
        {EditField::artist, "Bj\xC3\xB6rk"},
        {EditField::album, "\xE2\x82\xAC \xD0\x9C\xD0\xB8\xD1\x80"},
        {EditField::year, "1999"},
        {EditField::comment, "\xE2\x80\x9CQuoted\xE2\x80\x9D"},
        {EditField::track, "4/12"},
        {EditField::genre, "Shoegaze"},
        {EditField::composer, "C"},
        {EditField::originalArtist, "O"},
        {EditField::copyright, "(c)"},
        {EditField::artistUrl, "http://a/b"},
        {EditField::encodedBy, "E"},
    }};
    TagChanges changes;
    for (const auto& [field, value] : fields) {
        changes.version2.texts.at(static_cast<std::size_t>(field)) = value;
    }
    ASSERT_FALSE(saveEditTags(path_, changes));
    for (const auto& [field, value] : fields) {
        EXPECT_EQ(text(field), value);
    }
    EXPECT_EQ(file().substr(toldEnd()), sound_);
    const FileFacts facts = factsOfFile(path_);
    EXPECT_EQ(facts.artist, "Bj\xC3\xB6rk");
    EXPECT_EQ(facts.track, 4);
    EXPECT_EQ(facts.genre, "Shoegaze");
    EXPECT_FALSE(readEditTags(path_).version1.there);
}

TEST_F(EditTagsTest, tagsOfOtherVersionsStayWhatTheyAre) {
    const std::string long24 = newFrame("TXXX", "\3key\0"s + std::string(200, 'x'));
    write(tagOf(long24 + newFrame("TDRC", "\0002001"s), 10, 4) + sound_);
    EXPECT_EQ(text(EditField::year), "2001");
    ASSERT_FALSE(change(EditField::title, "\xC3\xA9"));
    EXPECT_EQ(file().substr(10, long24.size()), long24);
    EXPECT_EQ(file()[3], '\4');
    EXPECT_EQ(text(EditField::title), "\xC3\xA9");
    const std::string long22 = oldFrame("TXX", "\0key\0"s + std::string(200, 'x'));
    write(tagOf(long22 + oldFrame("TP1", "\0Band"s), 10, 2) + sound_);
    EXPECT_EQ(text(EditField::artist), "Band");
    ASSERT_FALSE(change(EditField::title, "\xC3\xA9"));
    EXPECT_EQ(file().substr(10, long22.size()), long22);
    EXPECT_EQ(file()[3], '\2');
    EXPECT_EQ(text(EditField::title), "\xC3\xA9");
    EXPECT_EQ(text(EditField::artist), "Band");
}

TEST_F(EditTagsTest, theCommentThatIsShownIsTheOneThatChanges) {
    const std::string described = samples::frame("COMM", "\0engdescribed\0kept"s);
    write(tagOf(described + samples::frame("COMM", "\0eng\0shown"s)) + sound_);
    EXPECT_EQ(text(EditField::comment), "shown");
    ASSERT_FALSE(change(EditField::comment, "other"));
    EXPECT_EQ(text(EditField::comment), "other");
    EXPECT_NE(file().find(described), std::string::npos);
    EXPECT_EQ(file().find("shown"), std::string::npos);
}

TEST_F(EditTagsTest, genresAreReadWhole) {
    for (const auto& [written, read] : {std::pair{"(17)"s, "17"s}, {"17", "17"}, {"Dub", "Dub"}}) {
        write(tagOf(samples::frame("TCON", "\0"s + written)) + sound_);
        EXPECT_EQ(text(EditField::genre), read);
    }
}

TEST_F(EditTagsTest, whatChangesNothingWritesNothing) {
    write(tagOf(kForeign) + sound_);
    const auto before = fs::last_write_time(path_) - std::chrono::hours(1);
    fs::last_write_time(path_, before);
    const std::string bytes = file();
    EXPECT_FALSE(saveEditTags(path_, {}));
    EXPECT_FALSE(saveEditTags(path_, {.version1 = {.keep = false}, .version2 = {}}))
        << "a tag that is not there";
    EXPECT_TRUE(file() == bytes);
    EXPECT_EQ(fs::last_write_time(path_), before);
}

TEST_F(EditTagsTest, removingCutsTheFile) {
    const std::string last = "TAG" + std::string(124, ' ') + '\1';
    write(tagOf(kForeign, 30) + sound_ + last);
    ASSERT_FALSE(saveEditTags(path_, {.version1 = {.keep = false}, .version2 = {}}));
    EXPECT_TRUE(file() == tagOf(kForeign, 30) + sound_);
    ASSERT_FALSE(saveEditTags(path_, {.version1 = {}, .version2 = {.keep = false}}));
    EXPECT_TRUE(file() == sound_);
}

TEST_F(EditTagsTest, version1ChangesFieldByField) {
    const std::string last = "TAG" + samples::field("Title", 30, '\0') +
                             samples::field("Artist", 30) + samples::field("Album", 30) + "1999" +
                             samples::field("A comment of all thirty signs!", 30) + '\x11';
    write(sound_ + last);
    const EditTag tag = readEditTags(path_).version1;
    EXPECT_TRUE(tag.there);
    EXPECT_EQ(tag.text(EditField::title), "Title");
    EXPECT_EQ(tag.text(EditField::comment), "A comment of all thirty signs!");
    EXPECT_EQ(tag.text(EditField::track), "");
    EXPECT_EQ(tag.text(EditField::genre), "17");
    ASSERT_FALSE(
        saveEditTags(path_, {.version1 = set(EditField::album, "Caf\xC3\xA9"), .version2 = {}}));
    std::string expected = last;
    expected.replace(63, 30, samples::field("Caf\xE9", 30, '\0'));
    EXPECT_TRUE(file() == sound_ + expected);
    ASSERT_FALSE(saveEditTags(path_, {.version1 = set(EditField::track, "9"), .version2 = {}}));
    EXPECT_EQ(readEditTags(path_).version1.text(EditField::track), "9");
    EXPECT_EQ(readEditTags(path_).version1.text(EditField::comment),
              "A comment of all thirty sign");
    ASSERT_FALSE(saveEditTags(
        path_, {.version1 = set(EditField::comment, std::string(40, 'c')), .version2 = {}}));
    EXPECT_EQ(readEditTags(path_).version1.text(EditField::track), "9");
    EXPECT_EQ(readEditTags(path_).version1.text(EditField::comment), std::string(28, 'c'));
}

TEST_F(EditTagsTest, aNewVersion1HasNoGenre) {
    write(sound_);
    ASSERT_FALSE(saveEditTags(path_, {.version1 = set(EditField::title, "T"), .version2 = {}}));
    EXPECT_EQ(file().size(), sound_.size() + 128);
    EXPECT_EQ(readEditTags(path_).version1.text(EditField::genre), "255");
    EXPECT_EQ(readEditTags(path_).version1.text(EditField::title), "T");
}

TEST_F(EditTagsTest, plainSizesOfOldSavesAreTakenForWhatTheyAre) {
    // As this program writes a tag by the letter: the size is plain, and covers padding.
    std::string frames =
        samples::textFrame("TIT2", "Old") + samples::frame("TALB", "\0"s + std::string(3000, 'a'));
    frames.resize(4096 - 10, '\0');
    write(samples::head(samples::bigEndian(4096)) + frames + sound_);
    EXPECT_EQ(text(EditField::title), "Old");
    ASSERT_FALSE(change(EditField::title, "New"));
    EXPECT_EQ(text(EditField::title), "New");
    EXPECT_EQ(file().substr(toldEnd()), sound_);
    EXPECT_NE(file().find(std::string(3000, 'a')), std::string::npos);
}

TEST_F(EditTagsTest, aTagThatIsCutOffIsLeftAlone) {
    const std::string bytes = samples::head(samples::sevenBits(5000)) + "TALB" +
                              samples::bigEndian(9000) + "\0\0"s + sound_;
    write(bytes);
    EXPECT_TRUE(change(EditField::title, "T"));
    EXPECT_TRUE(file() == bytes);
}

TEST_F(EditTagsTest, whatStandsBehindAnIdThatIsNoneKeepsItsBytes) {
    const std::string title = samples::textFrame("TIT2", "Old");
    for (const std::string& id : {"CM1\0"s, "TP1 "s, "priv"s}) {
        const std::string behind = samples::frame(id, "\0words"s) +
                                   samples::frame("PRIV", "owner\0\1\2\3"s) +
                                   samples::frame("APIC", kPicture);
        write(tagOf(title + behind, 40) + sound_);
        ASSERT_FALSE(change(EditField::title, "New")) << id;
        EXPECT_TRUE(file() == tagOf(samples::textFrame("TIT2", "New") + behind, 40) + sound_) << id;
        ASSERT_FALSE(change(EditField::artist, std::string(100, 'a'))) << id;
        EXPECT_NE(file().find(behind), std::string::npos) << id;
        EXPECT_EQ(file().substr(toldEnd()), sound_) << id;
        EXPECT_EQ(text(EditField::title), "New") << id;
        EXPECT_EQ(text(EditField::artist), std::string(100, 'a')) << id << ": before the odd one";
    }
}

TEST_F(EditTagsTest, whatIsNoFrameIsKeptFromATagWithExtraZeros) {
    // Unsynchronised as a whole: the zeros behind FF go, with the mark that tells of them.
    const std::string title = samples::textFrame("TIT2", "Old");
    const std::string stored = samples::frame("cust", "\xFF\0\xE0 kept"s);
    write(
        samples::head(samples::sevenBits(static_cast<std::uint32_t>(title.size() + stored.size())),
                      3, '\x80') +
        title + stored + sound_);
    ASSERT_FALSE(change(EditField::title, "New"));
    EXPECT_NE(file().find("\xFF\xE0 kept"), std::string::npos);
    EXPECT_EQ(file()[5], '\0');
    EXPECT_EQ(file().substr(toldEnd()), sound_);
}

TEST_F(EditTagsTest, aFullDiskLosesNothing) {
    write(tagOf(kForeign) + sound_);
    const std::string bytes = file();
    {
        const test::FullDisk full(bytes.size() - 100);
        EXPECT_TRUE(change(EditField::title, "T"));
    }
    EXPECT_TRUE(file() == bytes);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 1) << "nothing is left";
}

TEST_F(EditTagsTest, modeAndLinksStay) {
    write(tagOf(kForeign) + sound_);
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(path_, mode);
    const std::string link = folder_.path() + "/link.mp3";
    fs::create_symlink(path_, link);
    ASSERT_FALSE(saveEditTags(link, {.version1 = {}, .version2 = set(EditField::title, "T")}));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(path_).permissions(), mode);
    EXPECT_EQ(text(EditField::title), "T");
}

TEST_F(EditTagsTest, aFileThatMayNotBeWrittenIsNotReplaced) {
    write(tagOf(kForeign) + sound_);
    const std::string bytes = file();
    fs::permissions(folder_.path(), fs::perms::all);
    fs::permissions(path_, fs::perms::owner_read | fs::perms::others_read);
    {
        const test::Unprivileged guard;
        EXPECT_EQ(change(EditField::title, "T"), std::errc::permission_denied);
    }
    EXPECT_TRUE(file() == bytes);
}

} // namespace
} // namespace tovik::tags
