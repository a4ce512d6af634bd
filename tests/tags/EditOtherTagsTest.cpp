// SPDX-License-Identifier: GPL-3.0-or-later
// Editing the tags of what is no MPEG audio.
#include "tags/EditTagsFixture.h"
#include "tags/FileFacts.h"

namespace tovik::tags {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class EditOtherTags : public EditTagsTest {
protected:
    [[nodiscard]] std::error_code remove() const {
        return saveEditTags(path_, {.version1 = {}, .version2 = {.keep = false}});
    }

    /// A text as WMA writes it.
    static std::string wide(std::string_view text) {
        std::string bytes;
        for (const char letter : text) {
            bytes += letter + "\0"s;
        }
        return bytes;
    }
};

TEST_F(EditOtherTags, oggFlacAndWma) {
    for (const auto& [name, kind] : {std::pair{"ogg_44100.ogg", TagKind::xiph},
                                     {"flac_16_44100.flac", TagKind::xiph},
                                     {"flac_in_ogg.ogg", TagKind::xiph},
                                     {"wma_44100.wma", TagKind::windows}}) {
        copy(name);
        const FileFacts before = factsOfFile(path_);
        EXPECT_EQ(readEditTags(path_).kind, kind) << name;
        for (const auto& [field, value] : {std::pair{EditField::title, "T\xC3\xADtle"},
                                           {EditField::artist, "Artist"},
                                           {EditField::album, "Album"},
                                           {EditField::year, "1999"},
                                           {EditField::comment, "Comment"},
                                           {EditField::track, "7"},
                                           {EditField::genre, "Shoegaze"},
                                           {EditField::composer, "Composer"},
                                           {EditField::copyright, "Copyright"},
                                           {EditField::encodedBy, "Encoder"}}) {
            ASSERT_FALSE(change(field, value)) << name;
            EXPECT_EQ(text(field), value) << name;
        }
        FileFacts facts = factsOfFile(path_);
        EXPECT_EQ(facts.title, "T\xC3\xADtle") << name;
        EXPECT_EQ(facts.album, "Album") << name;
        EXPECT_EQ(facts.year, "1999") << name;
        EXPECT_EQ(facts.track, 7) << name;
        EXPECT_EQ(facts.seconds, before.seconds) << name;
        ASSERT_FALSE(change(EditField::title, "")) << name;
        EXPECT_EQ(text(EditField::title), "") << name;
        EXPECT_EQ(text(EditField::artist), "Artist") << name;
        ASSERT_FALSE(remove()) << name;
        EXPECT_EQ(text(EditField::artist), "") << name;
        facts = factsOfFile(path_);
        EXPECT_EQ(facts.album, "") << name;
        EXPECT_EQ(facts.seconds, before.seconds) << name;
    }
}

TEST_F(EditOtherTags, otherFilesHaveNoTagsToEdit) {
    for (const char* const name : {"wav_s16_44100_stereo.wav", "song.xm", "text.mp3"}) {
        copy(name);
        const std::string bytes = file();
        EXPECT_EQ(readEditTags(path_).kind, TagKind::none) << name;
        EXPECT_TRUE(change(EditField::title, "T")) << name;
        EXPECT_TRUE(file() == bytes) << name;
    }
    path_ = folder_.path() + "/missing.mp3";
    EXPECT_EQ(readEditTags(path_).kind, TagKind::none);
    EXPECT_TRUE(change(EditField::title, "T"));
    EXPECT_FALSE(fs::exists(path_));
}

TEST_F(EditOtherTags, aPictureIsAPartOfTheComments) {
    const std::string comment = "METADATA_BLOCK_PICTURE="
                                "AAAAAwAAAAppbWFnZS9qcGVnAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAABeA==";
    write(samples::flac({comment}, "a block of its own"));
    EXPECT_TRUE(readEditTags(path_).version2.there);
    ASSERT_FALSE(change(EditField::title, "T"));
    EXPECT_NE(file().find(comment), std::string::npos) << "it is kept";
    ASSERT_FALSE(remove());
    EXPECT_FALSE(readEditTags(path_).version2.there);
    EXPECT_EQ(file().find("METADATA_BLOCK_PICTURE"), std::string::npos);
    EXPECT_NE(file().find("a block of its own"), std::string::npos);
}

TEST_F(EditOtherTags, whatTellsOfTheSoundStaysInWma) {
    copy("wma_44100.wma");
    ASSERT_FALSE(change(EditField::encodedBy, "sound"));
    std::string bytes = file();
    const std::size_t name = bytes.find(wide("WM/EncodedBy"));
    ASSERT_NE(name, std::string::npos);
    bytes.replace(name, wide("WMFSDKNeeded").size(), wide("WMFSDKNeeded"));
    write(bytes);
    ASSERT_FALSE(change(EditField::composer, "C"));
    ASSERT_FALSE(remove());
    EXPECT_NE(file().find(wide("WMFSDKNeeded")), std::string::npos);
    EXPECT_EQ(file().find(wide("WM/Composer")), std::string::npos);
    EXPECT_FALSE(readEditTags(path_).version2.there);
}

} // namespace
} // namespace tovik::tags
