// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of comfort in a settings document.
#include "player/ComfortSettings.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using base::ComfortChoices;
using testing::HasSubstr;
using testing::Not;

class ComfortSettings : public PlayerRig {
protected:
    static constexpr const char* kFile = "db/settings.xml";

    ComfortChoices readFrom(const std::string& keys) {
        host_.folder.write(kFile, "<Settings><MI>0</MI>" + keys + "</Settings>");
        return player::readComfort(settings_);
    }

    std::string written(const ComfortChoices& choices) {
        settings_.withSettings([&](config::clsXML& xml) { player::putComfort(xml, choices); });
        return host_.folder.read(kFile);
    }
};

TEST_F(ComfortSettings, theMasterIsOnForOneAlone) {
    EXPECT_EQ(readFrom(""), ComfortChoices());
    for (const char* const text : {"0", "", "2", "on", "11"}) {
        EXPECT_EQ(readFrom("<CMF>" + std::string(text) + "</CMF>"), ComfortChoices()) << text;
    }
    EXPECT_EQ(readFrom("<CMF>1</CMF>"), ComfortChoices{.master = true});
}

TEST_F(ComfortSettings, aSwitchOverrulesWithOneAndZeroAlone) {
    ComfortChoices expected{.master = true};
    expected.own.at(6) = false;
    expected.own.at(21) = true;
    EXPECT_EQ(readFrom("<CMF>1</CMF><CMF07>0</CMF07><CMF22>1</CMF22><CMF03/><CMF04>x</CMF04>"),
              expected);
}

TEST_F(ComfortSettings, theKeysOfOldCountUntilThereIsANewOne) {
    ComfortChoices expected;
    expected.own.at(1) = true;
    expected.own.at(4) = false;
    EXPECT_EQ(readFrom("<KEEPPAN>1</KEEPPAN><PICKROW>0</PICKROW>"), expected);
    expected.own.at(4) = true;
    EXPECT_EQ(readFrom("<KEEPPAN>1</KEEPPAN><PICKROW>0</PICKROW><CMF05>1</CMF05>"), expected);
    const std::string file = written(expected);
    EXPECT_THAT(file, HasSubstr("<CMF02>1</CMF02>"));
    EXPECT_THAT(file, Not(HasSubstr("KEEPPAN")));
    EXPECT_THAT(file, Not(HasSubstr("PICKROW")));
}

TEST_F(ComfortSettings, aMissingOrDamagedDocumentSaysNothingAndStaysAsItIs) {
    host_.folder.write(kFile, "<Settings><CMF>1</CMF>");
    EXPECT_EQ(player::readComfort(settings_), ComfortChoices());
    EXPECT_EQ(host_.folder.read(kFile), "<Settings><CMF>1</CMF>");
    std::filesystem::remove(host_.folder / kFile);
    EXPECT_EQ(player::readComfort(settings_), ComfortChoices());
    EXPECT_FALSE(std::filesystem::exists(host_.folder / kFile));
}

TEST_F(ComfortSettings, readingWritesNothing) {
    readFrom("<CMF>1</CMF>");
    const auto file = std::filesystem::path(host_.folder / kFile);
    const auto before = std::filesystem::last_write_time(file) - std::chrono::hours(1);
    std::filesystem::last_write_time(file, before);
    static_cast<void>(player::readComfort(settings_));
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
}

TEST_F(ComfortSettings, whatIsWrittenIsReadBack) {
    readFrom("<CMF05>0</CMF05>");
    ComfortChoices choices{.master = true};
    for (const std::optional<bool> own :
         {std::optional(true), std::optional(false), std::optional<bool>()}) {
        choices.own.fill(own);
        const std::string file = written(choices);
        EXPECT_EQ(player::readComfort(settings_), choices);
        EXPECT_EQ(file.find("CMF05") != file.npos, own.has_value());
    }
}

} // namespace
} // namespace tovik::test
