// SPDX-License-Identifier: GPL-3.0-or-later
// The group of keys that is read at the start.
#include "config/StartSettings.h"

#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"

#include <map>

namespace tovik::config {
namespace {

using test::raisedNumber;
using Values = std::map<std::string, std::string>;

class StartSettingsTest : public test::SettingsFixture {
protected:
    static Values usual() {
        return {{"MI", "1"},   {"AP", "1"},         {"SHI", "10"}, {"CVL", "77"},  {"CFD", "1"},
                {"SLD", "1"},  {"SHF", "1"},        {"EQ", "1"},   {"BLV", "-25"}, {"RPT", "1"},
                {"CVP", "-1"}, {"CLNG", "Čeština"}, {"ASOT", "2"}, {"AFS", "3"},   {"CHKU", "4"}};
    }

    StartSettings read(const Values& values) {
        std::string elements;
        for (const auto& [key, value] : values) {
            elements.append("<").append(key).append(">").append(value);
            elements.append("</").append(key).append(">");
        }
        writeSettings(elements);
        StartSettings state;
        settings_.getSettings(state);
        return state;
    }

    StartSettings readWith(const std::string& key, const std::string& value) {
        Values values = usual();
        values[key] = value;
        return read(values);
    }
};

TEST_F(StartSettingsTest, everyKeyGoesToItsPlace) {
    const StartSettings expected{.allowMultipleInstances = 1,
                                 .autoPlay = true,
                                 .showInTaskbar = 1,
                                 .volume = 77,
                                 .crossfadeOn = true,
                                 .silenceDetectionOn = true,
                                 .shuffleOn = true,
                                 .equalizerOn = true,
                                 .balance = -25,
                                 .repeatOn = true,
                                 .visualisation = -1,
                                 .language = "Čeština",
                                 .alwaysOnTop = 2,
                                 .associateFileTypes = 3,
                                 .checkForUpdates = 4};
    EXPECT_EQ(read(usual()), expected);
}

TEST_F(StartSettingsTest, eachFlagIsReadFromItsOwnKey) {
    const std::map<std::string, bool StartSettings::*> flags{
        {"AP", &StartSettings::autoPlay},
        {"CFD", &StartSettings::crossfadeOn},
        {"SLD", &StartSettings::silenceDetectionOn},
        {"SHF", &StartSettings::shuffleOn},
        {"EQ", &StartSettings::equalizerOn},
        {"RPT", &StartSettings::repeatOn}};
    const StartSettings all = read(usual());
    for (const auto& [key, member] : flags) {
        for (const char* const off : {"0", "2", "-1", "1.5"}) {
            StartSettings expected = all;
            expected.*member = false;
            EXPECT_EQ(readWith(key, off), expected) << key << off;
        }
    }
}

TEST_F(StartSettingsTest, ofTheTwoDigitsOneTellsTheTaskbar) {
    EXPECT_EQ(readWith("SHI", "10").showInTaskbar, 1);
    EXPECT_EQ(readWith("SHI", "11").showInTaskbar, 1);
    EXPECT_EQ(readWith("SHI", "1").showInTaskbar, 1);
    EXPECT_EQ(readWith("SHI", "01").showInTaskbar, 0);
}

TEST_F(StartSettingsTest, fractionsAreRoundedToEven) {
    EXPECT_EQ(readWith("CVL", "2.5").volume, 2);
    EXPECT_EQ(readWith("CVL", "3.5").volume, 4);
    EXPECT_EQ(readWith("BLV", "-74.6").balance, -75);
}

TEST_F(StartSettingsTest, aTextThatDoesNotConvertIsAnError) {
    for (const auto& [key, value] : usual()) {
        if (key == "CLNG") {
            EXPECT_EQ(readWith(key, "").language, "");
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

TEST_F(StartSettingsTest, anyMissingKeyIsTheUseOfANull) {
    for (const auto& [key, value] : usual()) {
        Values values = usual();
        values.erase(key);
        EXPECT_EQ(raisedNumber([&] { read(values); }), 94) << key;
    }
}

TEST_F(StartSettingsTest, whatCameBeforeTheErrorIsKept) {
    writeSettings("<MI>1</MI><AP>1</AP><SHI>1</SHI><CVL>33</CVL><CFD>x</CFD><SLD>1</SLD>");
    const std::string before = file();
    StartSettings state;
    EXPECT_EQ(raisedNumber([&] { settings_.getSettings(state); }), 13);
    EXPECT_EQ(
        state,
        (StartSettings{
            .allowMultipleInstances = 1, .autoPlay = true, .showInTaskbar = 1, .volume = 33}));
    EXPECT_EQ(file(), before);
}

} // namespace
} // namespace tovik::config
