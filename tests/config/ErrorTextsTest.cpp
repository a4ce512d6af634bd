// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ErrorTexts.h"

#include "support/host/RecordingDialogs.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace tovik::config {
namespace {

const std::map<std::int32_t, std::string_view> kTexts{
    {-1, "Some Other Mystery Error"},
    {0, "All is OK"},
    {1, "Memory Error"},
    {2, "Can't Open the File"},
    {3, "Can't Find a Free Sound Driver"},
    {4, "The Sample Buffer Was Lost - Please Report This!"},
    {5, "Invalid Handle"},
    {6, "Unsupported Format"},
    {7, "Invalid Playback Position"},
    {8, "BASS_Init Has Not Been Successfully Called"},
    {9, "BASS_Start Has Not Been Successfully Called"},
    {12, "No CD in drive"},
    {13, "Can't Play the Selected CD Track"},
    {14, "Already Initialized"},
    {16, "Not Paused"},
    {17, "Not An Audio Track"},
    {18, "Can't Get a Free Channel"},
    {19, "An Illegal Type Was Specified"},
    {20, "An Illegal Parameter Was Specified"},
    {21, "No 3D Support"},
    {22, "No EAX Support"},
    {23, "Illegal Device Number"},
    {24, "Not Playing"},
    {25, "Illegal Sample Rate"},
    {27, "The Stream is Not a File Stream (WAV/MP3)"},
    {29, "No Hardware Voices Available"},
    {31, "The MOD music has no sequence data"},
    {32, "No Internet connection could be opened"},
    {33, "Couldn't create the file"},
    {34, "Effects are not enabled"},
    {35, "The channel is playing"},
    {37, "The requested data is not available"},
    {38, "The channel is a 'decoding channel'"},
};

TEST(BassErrorText, everyCodeAndEveryHole) {
    constexpr std::int32_t kBeyond = 300;
    for (std::int32_t code = -kBeyond; code <= kBeyond; ++code) {
        const auto row = kTexts.find(code);
        EXPECT_EQ(BassErrorText(code), row == kTexts.end() ? "" : row->second) << code;
    }
    EXPECT_EQ(BassErrorText(std::numeric_limits<std::int32_t>::max()), "");
    EXPECT_EQ(BassErrorText(std::numeric_limits<std::int32_t>::min()), "");
}

TEST(ShowErrorBox, aCodeStandsBelowTheText) {
    test::RecordingDialogs dialogs;
    ShowErrorBox(dialogs, "Unable to Create CD Stream!", 12);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    const host::MessageBox& box = dialogs.boxes.front();
    EXPECT_EQ(box.text, "Unable to Create CD Stream!\r\n\r\nError Code : 12");
    EXPECT_EQ(box.title, "Error");
    EXPECT_EQ(box.icon, host::MessageIcon::Critical);
    EXPECT_EQ(box.buttons, host::MessageButtons::Ok);
}

TEST(ShowErrorBox, zeroIsACodeAndMinusOneIsNone) {
    test::RecordingDialogs dialogs;
    ShowErrorBox(dialogs, "Text", 0);
    ShowErrorBox(dialogs, "Text", -1);
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_EQ(dialogs.boxes[0].text, "Text\r\n\r\nError Code : 0");
    EXPECT_EQ(dialogs.boxes[1].text, "Text");
}

} // namespace
} // namespace tovik::config
