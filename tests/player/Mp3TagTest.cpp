// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor as logic.
#include "player/TagEditorRig.h"
#include "support/host/Unprivileged.h"

namespace tovik::test {
namespace {

using namespace tags::samples;
using Button = player::frmMp3Tag::Button;
using Copy = player::frmMp3Tag::Copy;
using testing::IsEmpty;
using testing::SizeIs;

class Mp3Tag : public TagEditorRig {
protected:
    /// What is read of version 2 in the file now.
    [[nodiscard]] tags::cMP3ID3v2 version2() {
        tags::cMP3ID3v2 tag(tagWarning_);
        tag.MP3File(path_);
        return tag;
    }

    std::vector<host::MessageBox>& boxes() { return host_.dialogs.boxes; }
};

TEST_F(Mp3Tag, bothListsOfGenresBeginWithAnEmptyEntry) {
    const std::vector<std::string> genres = player::frmMp3Tag::genres();
    ASSERT_THAT(genres, SizeIs(149));
    EXPECT_EQ(genres[0], "");
    EXPECT_EQ(genres[1], "Blues");
    EXPECT_EQ(genres[148], "Synth Pop");
}

TEST_F(Mp3Tag, showsWhatBothTagsHold) {
    load(tag(textFrame("TIT2", " Title 2 ") + textFrame("TPE1", "Artist 2") +
             textFrame("TYER", "2001") + textFrame("COMM", "Comment 2") +
             textFrame("TCOM", "Composer") + textFrame("TOPE", "Original") +
             textFrame("TCOP", "Copyright") + textFrame("WOAR", "URL") +
             textFrame("TENC", "Encoder") + textFrame("TALB", "Album 2") + textFrame("TRCK", "9") +
             textFrame("TCON", "(25)Mine")) +
         mp3_ + lastTag());
    EXPECT_EQ(form().Text1, path_);
    EXPECT_TRUE(form().Check1);
    EXPECT_TRUE(form().Check2);
    const std::array<std::string, 5> first{"Title", "Artist", "Album", "1999", "Comment"};
    for (std::size_t index = 0; index < first.size(); ++index) {
        EXPECT_EQ(form().Text2.at(index).text(), first.at(index));
    }
    EXPECT_EQ(form().Text5.text(), "7");
    EXPECT_EQ(form().genre, 18);
    const std::array<std::string, 10> second{"Title 2",  "Artist 2", "2001",      "Comment 2",
                                             "Composer", "Original", "Copyright", "URL",
                                             "Encoder",  "Album 2"};
    for (std::size_t index = 0; index < second.size(); ++index) {
        EXPECT_EQ(form().Text4.at(index).text(), second.at(index));
    }
    EXPECT_EQ(form().Text3.text(), "9");
    EXPECT_EQ(form().Genre2, 18); // that of version 1
    EXPECT_TRUE(form().mayWrite);
    EXPECT_EQ(dialog_.reason(), "");
}

TEST_F(Mp3Tag, blanksRoundAPathDoNotCount) {
    load(mp3_ + lastTag());
    list_.AddFileName2(1, "  " + path_ + " ");
    dialog_.Form_Load();
    EXPECT_EQ(form().Text1, path_);
    EXPECT_TRUE(form().Check1);
}

TEST_F(Mp3Tag, withoutTagsEverythingIsEmpty) {
    load(mp3_ + lastTag());
    load(mp3_);
    EXPECT_FALSE(form().Check1);
    EXPECT_FALSE(form().Check2);
    EXPECT_EQ(form().Text2[0].text() + form().Text4[0].text() + form().Text5.text(), "");
    EXPECT_EQ(form().genre, 0);
    EXPECT_EQ(form().Genre2, 0);
    EXPECT_FALSE(form().albumEnabled);
}

TEST_F(Mp3Tag, genresThatHaveNoEntry) {
    for (const auto& [byte, entry] :
         {std::pair{'\0', 1}, {'\x92', 147}, {'\x93', 0}, {'\xFF', 0}}) {
        load(mp3_ + lastTag(byte));
        EXPECT_EQ(form().genre, entry);
    }
    load(tag(textFrame("TCON", "(25)Mine")) + mp3_);
    EXPECT_EQ(form().Genre2, 1); // number 0 of a version 1 that is not there
}

TEST_F(Mp3Tag, savesBothTags) {
    load(mp3_);
    dialog_.Check1_Click(true);
    dialog_.Check2_Click(true);
    form().Text2[0].type(" New \xC3\xA4 ");
    form().Text5.type("12");
    form().genre = 18;
    form().Text4[0].type("\xE2\x82\xAC\xE2\x99\xA5");
    form().Text4[9].type("Album");
    form().Text3.type("3");
    form().Genre2 = 0;
    EXPECT_TRUE(dialog_.Command1_Click(Button::save));
    const std::string saved = file();
    EXPECT_EQ(saved.substr(saved.size() - 128),
              "TAG" + field("New \xE4", 30) + field("", 92) + "\0\x0C\x11"s);
    EXPECT_EQ(saved.substr(2048, mp3_.size()), mp3_);
    EXPECT_EQ(version2().Title(), "\xE2\x82\xAC\xE2\x99\xA5"); // not all fits Windows-1252
    EXPECT_EQ(version2().Album(), "Album");
    EXPECT_EQ(version2().track(), "3");
    EXPECT_EQ(version2().TagText("TCON", 1), "(255)");
    EXPECT_TRUE(dialog_.TagSaving());
    // The false alarm, once a save: the frames were not there before.
    ASSERT_THAT(boxes(), SizeIs(1));
    EXPECT_EQ(boxes()[0].text, "Can't modify tags , file is read only");
    EXPECT_EQ(boxes()[0].title, "Tovik");
}

TEST_F(Mp3Tag, fieldsThatNobodyEditedKeepTheirBytes) {
    const std::string mixed = "\xC3\xA4 and \xE4";
    load(tag(textFrame("TIT2", mixed) + textFrame("TALB", "\xC3\xA4")) + mp3_ + "TAG" +
         field(mixed, 30) + field("\xC3\xA4", 92) + "\0\1\1"s);
    dialog_.Command1_Click(Button::save);
    EXPECT_EQ(version2().Title(), mixed);
    EXPECT_EQ(version2().Album(), "\xC3\xA4");
    EXPECT_EQ(file().substr(file().size() - 125, 60), field(mixed, 30) + field("\xC3\xA4", 30));
}

TEST_F(Mp3Tag, withoutItsTickVersion1IsRemovedAndVersion2IsOnlyNotSet) {
    load(tag(textFrame("TIT2", "Title")) + std::string(500, '\0') + mp3_ + lastTag());
    dialog_.Check1_Click(false);
    dialog_.Check2_Click(false);
    EXPECT_EQ(form().Text2[0].text() + form().Text5.text(), "");
    EXPECT_EQ(form().genre, 0);
    EXPECT_EQ(form().Text4[0].text() + form().Text3.text(), "");
    EXPECT_TRUE(dialog_.Command1_Click(Button::save));
    EXPECT_EQ(version2().Title(), "Title");
    EXPECT_EQ(file().substr(file().size() - 128), "\1\0\0\0"s + lastTag().substr(4));
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(Mp3Tag, theAlbumIsNotTouchedByTheTick) {
    load(tag(textFrame("TALB", "Album")) + mp3_);
    dialog_.Check2_Click(false);
    EXPECT_EQ(form().Text4[9].text(), "Album");
    EXPECT_TRUE(form().albumEnabled);
    load(mp3_);
    dialog_.Check2_Click(true);
    EXPECT_FALSE(form().albumEnabled);
}

TEST_F(Mp3Tag, copiesBetweenTheTags) {
    load(mp3_ + lastTag());
    dialog_.Command2_Click(Copy::toVersion2);
    EXPECT_TRUE(form().Check2);
    EXPECT_EQ(form().Text4[0].text(), "Title");
    EXPECT_EQ(form().Text4[1].text(), "Artist");
    EXPECT_EQ(form().Text4[2].text(), "1999");
    EXPECT_EQ(form().Text4[3].text(), "Comment");
    EXPECT_EQ(form().Text4[9].text(), "Album");
    EXPECT_EQ(form().Text3.text(), "7");
    EXPECT_EQ(form().Genre2, 18);
    dialog_.Check1_Click(false);
    dialog_.Command2_Click(Copy::toVersion1);
    EXPECT_TRUE(form().Check1);
    const std::array<std::string, 5> first{"Title", "Artist", "Album", "1999", "Comment"};
    for (std::size_t index = 0; index < first.size(); ++index) {
        EXPECT_EQ(form().Text2.at(index).text(), first.at(index));
    }
    EXPECT_EQ(form().Text5.text(), "7");
    EXPECT_EQ(form().genre, 18);
}

TEST_F(Mp3Tag, tracksThatAreNoNumbersAreEmptied) {
    load(mp3_ + lastTag());
    dialog_.Check2_Click(true);
    form().Text5.type("seven");
    form().Text3.type("3/12");
    EXPECT_TRUE(dialog_.Command1_Click(Button::save));
    EXPECT_EQ(file()[file().size() - 2], 7); // as it was read
    EXPECT_EQ(version2().TagsInFrame("TRCK"), 0);
    load(mp3_ + lastTag());
    form().Text5.type("300");
    EXPECT_THROW(dialog_.Command1_Click(Button::save), base::RuntimeError);
    EXPECT_EQ(file(), mp3_ + lastTag());
    EXPECT_FALSE(dialog_.busy());
}

TEST_F(Mp3Tag, whatASaveDropsIsToldOnceAFile) {
    load(tag(frame("APIC", "\0image/png\0\3\0\x89PNG"s) + textFrame("TIT2", "Title") +
             frame("TXXX", "\0a\0b"s) + frame("TXXX", "\0c\0d"s)) +
         std::string(2000, '\0') + mp3_ + lastTag());
    const std::string before = file();
    EXPECT_FALSE(dialog_.Command1_Click(Button::save));
    ASSERT_THAT(boxes(), SizeIs(1));
    EXPECT_EQ(boxes()[0].text, "These parts of the ID3v2 tag will be lost: APIC, TXXX");
    EXPECT_EQ(boxes()[0].okCaption, "Save all the same");
    EXPECT_EQ(boxes()[0].cancelCaption, "Cancel");
    EXPECT_TRUE(file() == before);
    host_.dialogs.answers.push_back(host::MessageAnswer::Ok);
    EXPECT_TRUE(dialog_.Command1_Click(Button::save));
    EXPECT_FALSE(file() == before);
    const std::size_t told = boxes().size();
    dialog_.Form_Load();
    EXPECT_TRUE(dialog_.Command1_Click(Button::save));
    EXPECT_EQ(boxes().size(), told);
}

TEST_F(Mp3Tag, whatIsNoMpegAudioIsOnlyShown) {
    load("RIFF" + mp3_ + lastTag());
    EXPECT_TRUE(form().Check1);
    EXPECT_FALSE(form().mayWrite);
    EXPECT_EQ(dialog_.reason(), "This file is no MPEG audio: its tags cannot be changed.");
    dialog_.Command2_Click(Copy::toVersion2);
    EXPECT_FALSE(form().Check2);
    EXPECT_FALSE(dialog_.Command1_Click(Button::save));
    dialog_.Check1_Click(false);
    EXPECT_FALSE(dialog_.Command1_Click(Button::save));
    EXPECT_EQ(file(), "RIFF" + mp3_ + lastTag());
}

TEST_F(Mp3Tag, aFileThatBecameAnotherIsLookedAtAgain) {
    load(mp3_ + lastTag());
    host_.folder.write("song.mp3", "RIFF" + mp3_);
    dialog_.Check1_Click(false);
    EXPECT_FALSE(dialog_.Command1_Click(Button::save));
    EXPECT_FALSE(form().mayWrite);
    EXPECT_EQ(file(), "RIFF" + mp3_);

    load(mp3_ + lastTag());
    const std::string pictured = tag(frame("APIC", "\0image/png\0\3\0\x89PNG"s)) + mp3_ + lastTag();
    host_.folder.write("song.mp3", pictured);
    EXPECT_FALSE(dialog_.Command1_Click(Button::save));
    ASSERT_THAT(boxes(), SizeIs(1));
    EXPECT_EQ(boxes()[0].text, "These parts of the ID3v2 tag will be lost: APIC");
    EXPECT_TRUE(file() == pictured);
}

TEST_F(Mp3Tag, aMissingFileIsOnlyShown) {
    list_.AddItem("/none.mp3", "/none.mp3", "None", "00:01", 1);
    list_.SelectIndex(1);
    dialog_.Form_Load();
    EXPECT_EQ(form().Text1, "/none.mp3");
    EXPECT_FALSE(form().mayWrite);
    EXPECT_EQ(
        dialog_.Label4({.sizeTemplate = "[x] bytes", .yes = "Yes", .no = "No", .labels = {}})[0],
        "0 bytes");
}

TEST_F(Mp3Tag, aReadOnlyFileStaysAndTheDialogToo) {
    load(mp3_ + lastTag());
    std::filesystem::permissions(host_.folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(path_, std::filesystem::perms(0444));
    {
        const Unprivileged guard;
        EXPECT_FALSE(dialog_.Command1_Click(Button::save));
    }
    EXPECT_THAT(boxes(), SizeIs(1));
    EXPECT_EQ(file(), mp3_ + lastTag());
}

TEST_F(Mp3Tag, reloadBringsBackWhatTheFileHolds) {
    load(mp3_ + lastTag());
    form().Text2[0].type("typed");
    tagWarning_.TagWarned = true;
    EXPECT_FALSE(dialog_.Command1_Click(Button::reload));
    EXPECT_EQ(form().Text2[0].text(), "Title");
    EXPECT_FALSE(dialog_.TagWarned());
    form().Text2[0].type("typed");
    EXPECT_TRUE(dialog_.Command1_Click(Button::close));
    EXPECT_EQ(file(), mp3_ + lastTag());
}

TEST_F(Mp3Tag, theTechnicalPageTakesTemplates) {
    load(mp3_);
    player::TagWords words{.sizeTemplate = "[x] bytes", .yes = "Yes", .no = "No", .labels = {}};
    auto values = dialog_.Label4(words);
    EXPECT_EQ(values[0], std::to_string(mp3_.size()) + " bytes");
    EXPECT_EQ(values[1] + values[2] + values[3] + values[4] + values[5], ""); // nothing plays
    EXPECT_EQ(values[6], "1.0");
    EXPECT_EQ(values[7], "3");
    EXPECT_EQ(values[8], "No");
    EXPECT_EQ(values[9], "Yes");
    EXPECT_EQ(values[10], "Yes");
    words.labels[7] = "Layer [x] of three";
    EXPECT_EQ(dialog_.Label4(words)[7], "Layer 3 of three");
}

TEST_F(Mp3Tag, theFactsOfTheSoundAreThoseOfWhatPlays) {
    load(mp3_);
    ASSERT_TRUE(burn(track("other.mp3", {.seconds = 65})));
    dialog_.Form_Load();
    player::TagWords words;
    const auto values = dialog_.Label4(words);
    EXPECT_EQ(values[1], "44100 Hz");
    EXPECT_EQ(values[2], "16 bit, Stereo");
    EXPECT_EQ(values[3], "176400");
    EXPECT_EQ(values[5], "00:01:05");
    words.labels[1] = "at [x] Hertz";
    EXPECT_EQ(dialog_.Label4(words)[1], "at 44100 Hertz");
}

} // namespace
} // namespace tovik::test
