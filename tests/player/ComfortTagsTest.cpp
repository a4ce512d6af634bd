// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor where tags are safe.
#include "base/RuntimeError.h"
#include "player/TagEditorRig.h"
#include "support/host/Unprivileged.h"

namespace tovik::test {
namespace {

using namespace tags::samples;
using Copy = player::frmMp3Tag::Copy;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(SafeTags, whatIsNotTypedStays) {
    const std::string front = trueTag(wide_ + picture_ + frame("TPE1", "\0Band"s));
    load(front + mp3_ + lastTag(17));
    EXPECT_EQ(form().Text4[0].text(), "Wide");
    EXPECT_TRUE(form().mayWrite);
    form().Text4[1].type("Bond");
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() ==
                trueTag(wide_ + picture_ + frame("TPE1", "\0Bond"s)) + mp3_ + lastTag(17));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty()) << "nothing is lost, and nothing is alarming";
}

TEST_F(SafeTags, withoutTheSwitchLossesAreTold) {
    state_.comfort = {};
    load(trueTag(wide_ + picture_) + mp3_);
    EXPECT_EQ(form().Text4[0].text(), "");
    EXPECT_FALSE(save());
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
}

TEST_F(SafeTags, aSaveWithoutAChangeWritesNothing) {
    load(trueTag(wide_ + picture_) + mp3_ + lastTag(17));
    const std::string before = file();
    const auto time = std::filesystem::last_write_time(path_) - std::chrono::hours(1);
    std::filesystem::last_write_time(path_, time);
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() == before);
    EXPECT_EQ(std::filesystem::last_write_time(path_), time);
    state_.comfort.savesOnlyChanges = false;
    dialog_.Form_Load();
    EXPECT_TRUE(save());
    EXPECT_NE(std::filesystem::last_write_time(path_), time);
}

TEST_F(SafeTags, eachTagHasItsOwnGenre) {
    load(trueTag(frame("TCON", "\0(25)"s)) + mp3_ + lastTag('\x93'));
    EXPECT_EQ(form().genre, 148) << "the last one is shown";
    EXPECT_EQ(form().Genre2, 26);
    form().Genre2 = 18;
    EXPECT_TRUE(save());
    dialog_.Form_Load();
    EXPECT_EQ(form().genre, 148);
    EXPECT_EQ(form().Genre2, 18);
    state_.comfort.showsLastGenre = false;
    state_.comfort.showsOwnGenre = false;
    dialog_.Form_Load();
    EXPECT_EQ(form().genre, 0);
    EXPECT_EQ(form().Genre2, 0);
}

TEST_F(SafeTags, aGenreOfItsOwnIsShownAndKept) {
    const std::string front = trueTag(frame("TCON", "\0Shoegaze"s) + frame("TPE1", "\0Band"s));
    load(front + mp3_);
    EXPECT_EQ(form().Genre2, player::kForeignGenre);
    EXPECT_EQ(form().foreignGenre, "Shoegaze");
    form().Text4[1].type("Bond");
    EXPECT_TRUE(save());
    EXPECT_NE(file().find("Shoegaze"), std::string::npos);
    dialog_.Command2_Click(Copy::toVersion1);
    EXPECT_EQ(form().genre, 0);
}

TEST_F(SafeTags, unticksRemove) {
    load(trueTag(wide_ + picture_) + mp3_ + lastTag(17));
    dialog_.Check1_Click(false);
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() == trueTag(wide_ + picture_) + mp3_);
    dialog_.Form_Load();
    dialog_.Check2_Click(false);
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() == mp3_);
    dialog_.Form_Load();
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() == mp3_) << "and nothing comes by itself";
}

TEST_F(SafeTags, aTagThatWasNotShownIsNotTakenAway) {
    load(mp3_);
    const std::string tagged = trueTag(wide_ + picture_) + mp3_ + lastTag(17);
    host_.folder.write(name_, tagged);
    EXPECT_FALSE(form().Check1);
    EXPECT_FALSE(form().Check2);
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() == tagged);
}

TEST_F(SafeTags, filesWithoutCommentsAreNotWrittenForNothing) {
    for (const char* const name : {"ogg_44100.ogg", "flac_16_44100.flac", "wma_44100.wma"}) {
        const std::string path = host_.folder.path() + "/" + name;
        std::filesystem::copy_file(std::getenv("TOVIK_MEDIA") + "/"s + name, path);
        ASSERT_FALSE(tags::saveEditTags(path, {.version1 = {}, .version2 = {.keep = false}}));
        const auto before = std::filesystem::last_write_time(path) - std::chrono::hours(1);
        std::filesystem::last_write_time(path, before);
        show(path);
        EXPECT_FALSE(form().Check2) << name;
        EXPECT_TRUE(save()) << name;
        EXPECT_EQ(std::filesystem::last_write_time(path), before) << name;
    }
}

TEST_F(SafeTags, aSaveGoesTheWayOfTheFilesLoading) {
    state_.comfort = {};
    load(mp3_ + lastTag(17), "other.mp3");
    makeSafe(state_.comfort);
    load(trueTag(wide_ + picture_) + mp3_ + lastTag(17));
    state_.comfort = {};
    dialog_.Check1_Click(false);
    form().Text4[0].type("New");
    EXPECT_TRUE(save());
    EXPECT_NE(file().find(picture_), std::string::npos);
    EXPECT_TRUE(file().ends_with(mp3_)) << "its own tag went";
    EXPECT_TRUE(host_.folder.read("other.mp3") == mp3_ + lastTag(17)) << "no other file's";
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(SafeTags, whatWasKnownOfASavedFileIsForgotten) {
    for (const bool byTheLetter : {false, true}) {
        if (byTheLetter) {
            state_.comfort = {};
        }
        load(mp3_ + lastTag(17));
        desk_.ask(path_, tags::FactsDesk::Urgency::first);
        ASSERT_NE(desk_.known(path_), nullptr);
        form().Text2[0].type("New");
        EXPECT_TRUE(save());
        EXPECT_EQ(desk_.known(path_), nullptr) << byTheLetter;
    }
}

TEST_F(SafeTags, anUntickedTagStaysWithoutThatMember) {
    state_.comfort.leavesUntickedTag = false;
    load(trueTag(wide_) + mp3_);
    dialog_.Check2_Click(false);
    EXPECT_TRUE(save());
    EXPECT_TRUE(file() == trueTag(wide_) + mp3_);
}

TEST_F(SafeTags, theAlbumIsAFieldLikeAnyOther) {
    load(mp3_);
    dialog_.Check2_Click(true);
    EXPECT_TRUE(form().albumEnabled);
    form().Text4[9].type("Album");
    EXPECT_TRUE(save());
    dialog_.Form_Load();
    EXPECT_EQ(form().Text4[9].text(), "Album");
    dialog_.Check2_Click(false);
    EXPECT_EQ(form().Text4[9].text(), "");
    state_.comfort.enablesAlbum = false;
    load(mp3_);
    dialog_.Check2_Click(true);
    EXPECT_FALSE(form().albumEnabled);
}

TEST_F(SafeTags, bothTagsAtOnce) {
    load(mp3_);
    dialog_.Check1_Click(true);
    form().Text2[0].type("T\xC3\xADtle");
    form().Text5.type("9");
    form().genre = 18;
    dialog_.Command2_Click(Copy::toVersion2);
    EXPECT_TRUE(save());
    dialog_.Form_Load();
    EXPECT_EQ(form().Text2[0].text(), "T\xC3\xADtle");
    EXPECT_EQ(form().Text4[0].text(), "T\xC3\xADtle");
    EXPECT_EQ(form().Text5.text(), "9");
    EXPECT_EQ(form().Text3.text(), "9");
    EXPECT_EQ(form().genre, 18);
    EXPECT_EQ(form().Genre2, 18);
}

TEST_F(SafeTags, aTrackBeyondAByteIsToldAndNothingIsWritten) {
    load(mp3_ + lastTag(17));
    form().Text5.type("256");
    EXPECT_THROW(save(), base::RuntimeError);
    EXPECT_TRUE(file() == mp3_ + lastTag(17));
}

TEST_F(SafeTags, aReadOnlyFileIsToldOnceAndStays) {
    load(trueTag(wide_) + mp3_ + lastTag(17));
    std::filesystem::permissions(host_.folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(path_, std::filesystem::perms::owner_read |
                                            std::filesystem::perms::others_read);
    form().Text4[0].type("New");
    {
        const Unprivileged guard;
        EXPECT_FALSE(save());
    }
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Can't modify tags , file is read only");
    EXPECT_TRUE(file() == trueTag(wide_) + mp3_ + lastTag(17));
}

TEST_F(SafeTags, otherFormatsAreEditedToo) {
    for (const char* const name : {"ogg_44100.ogg", "flac_16_44100.flac", "wma_44100.wma"}) {
        const std::string path = host_.folder.path() + "/" + name;
        std::filesystem::copy_file(std::getenv("TOVIK_MEDIA") + "/"s + name, path);
        show(path);
        EXPECT_TRUE(form().mayWrite) << name;
        EXPECT_FALSE(form().editsVersion1) << name;
        EXPECT_EQ(dialog_.reason(), "") << name;
        dialog_.Check2_Click(true);
        form().Text4[0].type("Title");
        EXPECT_TRUE(save()) << name;
        dialog_.Form_Load();
        EXPECT_TRUE(form().Check2) << name;
        EXPECT_EQ(form().Text4[0].text(), "Title") << name;
        dialog_.Command2_Click(Copy::toVersion1);
        EXPECT_FALSE(form().Check1) << name;
        state_.comfort.editsEveryFormat = false;
        dialog_.Form_Load();
        EXPECT_FALSE(form().mayWrite) << name;
        EXPECT_NE(dialog_.reason(), "") << name;
        state_.comfort.editsEveryFormat = true;
    }
}

TEST_F(SafeTags, whatIsNoMusicIsOnlyShown) {
    load("no music at all", "text.mp3");
    EXPECT_FALSE(form().mayWrite);
    EXPECT_FALSE(save());
    EXPECT_EQ(file(), "no music at all");
}

TEST_F(SafeTags, theTechnicalPageIsOfTheFile) {
    state_.comfort.tellsOwnSound = true;
    state_.comfort.findsAllHeaders = true;
    show(std::getenv("TOVIK_MEDIA") + "/layer2.mp2"s);
    const auto values = dialog_.Label4({.yes = "yes", .no = "no", .labels = {}});
    EXPECT_EQ(values[1], "44100 Hz");
    EXPECT_EQ(values[2], "16 bit, Stereo");
    EXPECT_EQ(values[5], "00:00:03");
    EXPECT_EQ(values[6], "1.0");
    EXPECT_EQ(values[7], "2");
    EXPECT_EQ(values[10], "yes");
    show(std::getenv("TOVIK_MEDIA") + "/flac_24_48000.flac"s);
    const auto lossless = dialog_.Label4({.yes = "yes", .no = "no", .labels = {}});
    EXPECT_EQ(lossless[1], "48000 Hz");
    EXPECT_EQ(lossless[2], "24 bit, Stereo");
    EXPECT_EQ(lossless[6], "");
    EXPECT_EQ(lossless[10], "no");
}

} // namespace
} // namespace tovik::test
