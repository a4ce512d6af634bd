// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/StoredSettings.h"

#include "base/RegularFile.h"
#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"

#include <gmock/gmock.h>

#include <map>

namespace tovik::test {
namespace {

using player::StoredSettings;
using testing::HasSubstr;
using testing::Not;
using Values = std::map<std::string, std::string>;

class StoredSettingsTest : public SettingsFixture {
protected:
    static Values usual() {
        return {{"MI", "1"},   {"AP", "1"},         {"SHI", "10"}, {"CVL", "77"},  {"CFD", "1"},
                {"SLD", "1"},  {"SHF", "1"},        {"EQ", "1"},   {"BLV", "-25"}, {"RPT", "1"},
                {"CVP", "-1"}, {"CLNG", "Čeština"}, {"ASOT", "2"}, {"AFS", "3"},   {"CHKU", "4"}};
    }

    void write(const Values& values) const {
        std::string elements;
        for (const auto& [key, value] : values) {
            elements.append("<").append(key).append(">").append(value);
            elements.append("</").append(key).append(">");
        }
        writeSettings(elements);
    }

    void read(const Values& values) {
        write(values);
        state_ = {};
        stored_.getSettings();
    }

    void readWith(const std::string& key, const std::string& value) {
        Values values = usual();
        values[key] = value;
        read(values);
    }

    player::PlayerState state_;
    StoredSettings stored_{settings_, state_, host_.clock};
};

TEST_F(StoredSettingsTest, everyKeyGoesToItsPlace) {
    read(usual());
    EXPECT_EQ(state_.MultipleInstances, 1);
    EXPECT_TRUE(state_.ShowSplash);
    EXPECT_EQ(state_.ShowInTaskbar, 1);
    EXPECT_EQ(state_.CurrentVolume, 77);
    EXPECT_EQ(state_.BalanceValue, -25);
    EXPECT_EQ(state_.CurrentVisPlugin, -1);
    EXPECT_EQ(state_.LanguageFile, "Čeština");
    EXPECT_EQ(state_.AlwaysOnTop, 2);
    EXPECT_EQ(state_.AssociateAtStart, 3);
    EXPECT_EQ(state_.CheckUpdates, 4);
}

TEST_F(StoredSettingsTest, theShippedFileHoldsWhatIsRead) {
    std::string shipped;
    ASSERT_FALSE(base::readWholeFile(TOVIK_DATA_DIR "/db/settings.xml", shipped));
    writeFile(shipped);
    state_.ShowSplash = state_.CrossfadeOn = state_.RepeatOn = true;
    stored_.getSettings();
    for (const player::SettingKey key :
         {player::SettingKey("TMD"), player::SettingKey("QPL"), player::SettingKey("MSN"),
          player::SettingKey("X"), player::SettingKey("Y")}) {
        stored_.read(key);
    }
    EXPECT_FALSE(state_.ShowSplash || state_.CrossfadeOn || state_.RepeatOn);
    EXPECT_EQ(state_.ShowInTaskbar, 1);
    EXPECT_EQ(state_.CurrentVolume, 80);
    EXPECT_EQ(state_.LanguageFile, "English");
    stored_.saveAtEnd(); // what is written is what was read, byte by byte
    EXPECT_EQ(file(), shipped);
}

TEST_F(StoredSettingsTest, eachFlagIsReadFromItsOwnKey) {
    using player::PlayerState;
    const std::map<std::string, bool PlayerState::*> flags{
        {"AP", &PlayerState::ShowSplash},     {"CFD", &PlayerState::CrossfadeOn},
        {"SLD", &PlayerState::SilenceSkipOn}, {"SHF", &PlayerState::ShuffleOn},
        {"EQ", &PlayerState::EqualizerOn},    {"RPT", &PlayerState::RepeatOn}};
    for (const auto& [key, member] : flags) {
        for (const char* const off : {"0", "2", "-1", "1.5"}) {
            readWith(key, off);
            for (const auto& [other, flag] : flags) {
                EXPECT_EQ(state_.*flag, other != key) << key << off << other;
            }
        }
    }
}

TEST_F(StoredSettingsTest, ofTheTwoDigitsOneTellsTheTaskbar) {
    for (const auto& [text, shown] : std::map<std::string, int>{{"10", 1}, {"11", 1}, {"01", 0}}) {
        readWith("SHI", text);
        EXPECT_EQ(state_.ShowInTaskbar, shown) << text;
    }
}

TEST_F(StoredSettingsTest, fractionsAreRoundedToEven) {
    readWith("CVL", "2.5");
    EXPECT_EQ(state_.CurrentVolume, 2);
    readWith("CVL", "3.5");
    EXPECT_EQ(state_.CurrentVolume, 4);
    readWith("BLV", "-74.6");
    EXPECT_EQ(state_.BalanceValue, -75);
}

TEST_F(StoredSettingsTest, aTextThatDoesNotConvertIsAnError) {
    for (const auto& [key, value] : usual()) {
        if (key == "CLNG") {
            readWith(key, "");
            EXPECT_EQ(state_.LanguageFile, "");
            continue;
        }
        for (const char* const text : {"", "x", "True"}) {
            EXPECT_EQ(raisedNumber([&, &name = key] { readWith(name, text); }), 13) << key << text;
        }
    }
    for (const char* const key : {"MI", "CVL", "BLV", "CVP", "ASOT", "AFS", "CHKU"}) {
        EXPECT_EQ(raisedNumber([&] { readWith(key, "32768"); }), 6) << key;
    }
}

TEST_F(StoredSettingsTest, anyMissingKeyOfTheFormatIsTheUseOfANull) {
    for (const auto& [key, value] : usual()) {
        Values values = usual();
        values.erase(key);
        EXPECT_EQ(raisedNumber([&] { read(values); }), 94) << key;
    }
    writeFile("<Settings><MI>0</MI>");
    EXPECT_EQ(raisedNumber([&] { stored_.getSettings(); }), 94);
}

TEST_F(StoredSettingsTest, whatCameBeforeTheErrorIsKept) {
    writeSettings("<MI>1</MI><AP>1</AP><SHI>1</SHI><CVL>33</CVL><CFD>x</CFD><SLD>1</SLD>");
    const std::string before = file();
    EXPECT_EQ(raisedNumber([&] { stored_.getSettings(); }), 13);
    EXPECT_EQ(state_.MultipleInstances, 1);
    EXPECT_EQ(state_.CurrentVolume, 33);
    EXPECT_FALSE(state_.SilenceSkipOn);
    EXPECT_EQ(file(), before);
}

TEST_F(StoredSettingsTest, whatWasNotReadIsNotWrittenAtTheEnd) {
    Values values = usual();
    values.insert({{"CFD", "x"}, {"TMD", "1"}, {"QPL", "1"}, {"X", "90000"}, {"Y", "30"}});
    values["CFD"] = "x";
    write(values);
    stored_.saveAtEnd();
    const std::string before = file();
    EXPECT_THAT(before, HasSubstr("<CVL>77</CVL>"));
    EXPECT_EQ(raisedNumber([&] { stored_.getSettings(); }), 13);
    stored_.read("X");
    EXPECT_EQ(state_.WindowLeft, 90000);
    state_.CurrentVolume = 12;
    state_.ShuffleOn = state_.QuickListOpen = true;
    state_.WindowLeft = 100000;
    state_.WindowTop = 5;
    stored_.saveAtEnd();
    std::string expected = before;
    expected.replace(expected.find("77"), 2, "12");
    expected.replace(expected.find("90000"), 5, "100000");
    EXPECT_EQ(file(), expected);
}

TEST_F(StoredSettingsTest, theEndWritesWhatItIsToKeepInTheFormOfEachKey) {
    Values values = usual();
    values.insert({{"TMD", "0"}, {"QPL", "1"}, {"X", "1"}, {"Y", "2"}, {"MSN", "1"}});
    read(values);
    for (const player::SettingKey key : {player::SettingKey("TMD"), player::SettingKey("QPL"),
                                         player::SettingKey("X"), player::SettingKey("Y")}) {
        stored_.read(key);
    }
    EXPECT_TRUE(state_.QuickListOpen);
    state_ = {};
    state_.TimeDisplayMode = 1;
    state_.RepeatOn = true;
    state_.WindowTop = -15;
    stored_.saveAtEnd();
    values.insert_or_assign("TMD", "1");
    values.insert_or_assign("QPL", "2");
    values.insert_or_assign("X", "0");
    values.insert_or_assign("Y", "-15");
    for (const char* const key : {"CVL", "CFD", "SLD", "SHF", "EQ", "BLV"}) {
        values.insert_or_assign(key, "0");
    }
    const std::string written = file();
    write(values);
    EXPECT_EQ(written, file()); // what is kept on demand alone stands as it stood
}

TEST_F(StoredSettingsTest, aKeyOfTheFormatIsNeverMade) {
    writeSettings("<MI>1</MI>");
    const std::string before = file();
    stored_.save("ASOT");
    EXPECT_EQ(file(), before);
}

TEST_F(StoredSettingsTest, aValueThatChangesIsWrittenOnceItRests) {
    read(usual());
    for (std::int16_t volume = 70; volume > 20; volume -= 10) {
        state_.CurrentVolume = volume;
        settings_.changed("CVL");
        host_.clock.advanceTo(host_.clock.monotonicMs() + StoredSettings::kRestMs - 1);
        EXPECT_THAT(file(), HasSubstr("<CVL>77</CVL>")) << volume;
    }
    host_.clock.advanceTo(host_.clock.monotonicMs() + 1);
    EXPECT_THAT(file(), HasSubstr("<CVL>30</CVL>"));
    // It is written once; whoever changes the file afterwards is left alone.
    readWith("CVL", "55");
    host_.clock.advanceTo(host_.clock.monotonicMs() + 10 * StoredSettings::kRestMs);
    EXPECT_THAT(file(), HasSubstr("<CVL>55</CVL>"));
}

TEST_F(StoredSettingsTest, aValueThatIsKeptAtTheEndAloneOrWasNotReadDoesNotRest) {
    write(usual());
    settings_.changed("CVL");
    host_.clock.advanceTo(host_.clock.monotonicMs() + StoredSettings::kRestMs);
    EXPECT_THAT(file(), HasSubstr("<CVL>77</CVL>"));
    stored_.getSettings();
    state_.BalanceValue = 50;
    settings_.changed("BLV");
    host_.clock.advanceTo(host_.clock.monotonicMs() + StoredSettings::kRestMs);
    EXPECT_THAT(file(), HasSubstr("<BLV>-25</BLV>"));
}

TEST_F(StoredSettingsTest, theEndDoesNotWaitForTheRest) {
    read(usual());
    state_.CurrentVolume = 5;
    settings_.changed("CVL");
    stored_.saveAtEnd();
    EXPECT_THAT(file(), HasSubstr("<CVL>5</CVL>"));
}

} // namespace
} // namespace tovik::test
