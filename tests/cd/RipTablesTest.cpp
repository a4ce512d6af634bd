// SPDX-License-Identifier: GPL-3.0-or-later
// Formats, commands and names of a rip.
#include "cd/EncoderLine.h"
#include "cd/RipFormat.h"
#include "cd/RipNames.h"

#include "base/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using testing::ElementsAre;

std::string typeOf(std::string_view dof) {
    const auto format = ripFormat(dof);
    return format ? std::string(format->type) : "none";
}

int errorOf(std::string_view dob, std::size_t element) {
    try {
        static_cast<void>(ripRate(dob, element));
        return 0;
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
}

} // namespace

TEST(RipFormat, IsFoundByItsTextInAnyCase) {
    EXPECT_EQ(typeOf("MP3 CBR"), "MP3C");
    EXPECT_EQ(typeOf("mp3 vbr"), "MP3V");
    EXPECT_EQ(typeOf("OGG Vorbis CBR"), "OGGC");
    EXPECT_EQ(typeOf("Ogg Vorbis Vbr"), "OGGV");
    EXPECT_EQ(typeOf("WAV"), "WAV");
    EXPECT_EQ(typeOf("wav (no loss)"), "WAV");
    EXPECT_EQ(typeOf("WMA 9"), "WMA");
    EXPECT_EQ(typeOf("MP3 CBR "), "none");
    EXPECT_EQ(typeOf("MP3"), "none");
    EXPECT_EQ(typeOf(""), "none");
}

TEST(RipFormat, HasItsPlaceInTheRates) {
    constexpr std::string_view kRates = "1411,1,2,3,4,5";
    for (const auto& [dof, rate] :
         {std::pair("MP3 CBR", 1), std::pair("MP3 VBR", 2), std::pair("OGG VORBIS CBR", 3),
          std::pair("OGG VORBIS VBR", 4), std::pair("WMA", 5)}) {
        EXPECT_EQ(ripRate(kRates, ripFormat(dof)->rate.value()), rate) << dof;
    }
    EXPECT_FALSE(ripFormat("WAV")->rate.has_value());
    EXPECT_EQ(ripRate(" 96 ", 0), 96);
    EXPECT_EQ(errorOf("1411,128", 2), 9);
    EXPECT_EQ(errorOf("", 1), 9);
    EXPECT_EQ(errorOf("1411,,128", 1), 13);
    EXPECT_EQ(errorOf("1411,fast", 1), 13);
    EXPECT_EQ(errorOf("1411,3000000000", 1), 6);
}

TEST(RipFormat, HasTwoKindsOfEndings) {
    EXPECT_EQ(ripFormat("MP3 VBR")->extension, ".mp3");
    EXPECT_EQ(ripFormat("Ogg Vorbis CBR")->extension, ".ogg");
    EXPECT_EQ(shortExtension(*ripFormat("MP3 VBR")), ".MP3");
    EXPECT_EQ(shortExtension(*ripFormat("Ogg Vorbis CBR")), ".OGG");
}

TEST(EncoderLine, TellsTheWholeCommand) {
    const auto text = [](std::string_view type) {
        return encoderLine(type, 192, 3, "/home/a b/tovik", "/music/x y.mp3").value().text;
    };
    EXPECT_EQ(text("MP3C"), "/home/a b/tovik\\lame.exe -b  192 --priority 3  - \"/music/x y.mp3\"");
    EXPECT_EQ(text("MP3V"),
              "/home/a b/tovik\\lame.exe --abr  192 --priority 3  - \"/music/x y.mp3\"");
    EXPECT_EQ(text("OGGC"), "oggenc.exe --managed -b 192 -  -o \"/music/x y.mp3\"");
    EXPECT_EQ(text("OGGV"), "oggenc.exe -b 192 -  -o \"/music/x y.mp3\"");
    EXPECT_FALSE(encoderLine("WAV", 192, 3, "/home", "/x").has_value());
}

TEST(EncoderLine, IsRunAsWords) {
    const std::string odd = "/m/-b 5 \"q\" $(x) --version";
    const auto lame = encoderLine("MP3C", 192, 0, "/home", odd).value();
    EXPECT_EQ(lame.program, "lame.exe");
    EXPECT_EQ(lame.package, "lame");
    EXPECT_THAT(lame.arguments, ElementsAre("-b", "192", "-", odd));
    const auto abr = encoderLine("MP3V", 96, 1, "/home", odd).value();
    EXPECT_THAT(abr.arguments, ElementsAre("--abr", "96", "-", odd));
    const auto managed = encoderLine("OGGC", 128, 0, "/home", odd).value();
    EXPECT_EQ(managed.program, "oggenc.exe");
    EXPECT_EQ(managed.package, "vorbis-tools");
    EXPECT_THAT(managed.arguments, ElementsAre("--managed", "-b", "128", "-", "-o", odd));
    const auto free = encoderLine("OGGV", 128, 0, "/home", odd).value();
    EXPECT_THAT(free.arguments, ElementsAre("-b", "128", "-", "-o", odd));
}

TEST(EncoderLine, TurnsThePriorityIntoNiceness) {
    const auto niceness = [](std::string_view type, std::int32_t priority) {
        return encoderLine(type, 128, priority, "/home", "/x").value().niceness;
    };
    EXPECT_EQ(niceness("MP3C", 0), 19);
    EXPECT_EQ(niceness("MP3V", 1), 10);
    for (const std::int32_t other : {2, 3, 4, -1, 100}) {
        EXPECT_EQ(niceness("MP3C", other), 0) << other;
    }
    EXPECT_EQ(niceness("OGGC", 0), 0); // its command has no word for it
}

TEST(RipNames, NeverLeaveTheirFolder) {
    EXPECT_EQ(ripName("AC/DC \"Live\": ?"), "AC-DC \"Live\": ?");
    EXPECT_EQ(ripName(std::string("a\0b", 3)), "a-b");
    EXPECT_EQ(ripName("."), "._");
    EXPECT_EQ(ripName(".."), ".._");
    EXPECT_EQ(ripName("../.."), "..-..");
    EXPECT_EQ(ripName("..."), "...");
    EXPECT_EQ(ripName("/etc/passwd"), "-etc-passwd");
}

TEST(RipNames, NameTheAlbum) {
    DiscForm form;
    EXPECT_EQ(albumName(form), "");
    form.Text1[0] = "Album";
    EXPECT_EQ(albumName(form), "-Album");
    form.Text2[0] = "Artist";
    EXPECT_EQ(albumName(form), "Artist-Album");
    EXPECT_EQ(
        unnamedAlbum("Unnamed",
                     {.year = 2026, .month = 3, .day = 9, .hour = 7, .minute = 5, .second = 1}),
        "Unnamed (2026-03-09 07-05-01)");
}

TEST(RipNames, NameTheTracks) {
    DiscForm form;
    form.List1 = {"One", ""};
    EXPECT_EQ(trackTitle(form, 0), "One");
    EXPECT_EQ(trackTitle(form, 1), "Track 2");
    EXPECT_EQ(trackTitle(form, 9), "Track 10");
}

TEST(RipNames, KnowAFolderOfAnotherSystem) {
    const host::Paths paths("/data");
    EXPECT_EQ(ripFolder(paths, "/home/u/Music"), "/home/u/Music");
    EXPECT_EQ(ripFolder(paths, "c:\\My Music"), "/data/drive_c/My Music");
}

} // namespace tovik::cd
