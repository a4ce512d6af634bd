// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/CommandLine.h"

#include <gmock/gmock.h>

namespace tovik::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::variant<CommandLine, UsageError> parse(const std::vector<std::string>& words) {
    return parseCommandLine(words, "/music");
}

CommandLine parsed(const std::vector<std::string>& words) {
    auto result = parse(words);
    if (const auto* const error = std::get_if<UsageError>(&result)) {
        ADD_FAILURE() << error->text;
        return {};
    }
    return std::get<CommandLine>(result);
}

std::string errorOf(const std::vector<std::string>& words) {
    const auto result = parse(words);
    const auto* const error = std::get_if<UsageError>(&result);
    return error == nullptr ? "none" : error->text;
}

TEST(CommandLine, nothing) {
    const CommandLine line = parsed({});
    EXPECT_FALSE(line.help || line.version || line.dataFolder || line.device || line.renderFile ||
                 line.renderSeconds || line.screenshotFile);
    EXPECT_EQ(line.player.text, "");
}

TEST(CommandLine, everyOptionWithItsValueBehindOrAttached) {
    for (const auto& words : {
             std::vector<std::string>{"--help", "--version", "--data", "d", "--device", "list",
                                      "--render", "/r.wav", "--seconds", "2.5", "--screenshot",
                                      "s.png"},
             std::vector<std::string>{"--data=d", "--device=list", "--render=/r.wav",
                                      "--seconds=2.5", "--screenshot=s.png", "--help", "--version"},
         }) {
        const CommandLine line = parsed(words);
        EXPECT_TRUE(line.help);
        EXPECT_TRUE(line.version);
        EXPECT_EQ(line.dataFolder, "/music/d");
        EXPECT_EQ(line.device, kListDevices);
        EXPECT_EQ(line.renderFile, "/r.wav");
        EXPECT_EQ(line.renderSeconds, 2.5);
        EXPECT_EQ(line.screenshotFile, "/music/s.png");
        EXPECT_EQ(line.player.text, "");
    }
}

TEST(CommandLine, imagesOfDiscsMayBeMany) {
    EXPECT_TRUE(parsed({}).discImages.empty());
    EXPECT_THAT(parsed({"--cd", "a.cue", "b.mp3", "--cd=/x/b.toc"}).discImages,
                ElementsAre("/music/a.cue", "/x/b.toc"));
    EXPECT_EQ(errorOf({"--cd"}), "--cd FILE.cue: the value is missing; see tovik --help");
    EXPECT_EQ(parsed(std::vector<std::string>(23, "--cd=a.cue")).discImages.size(), 23U);
    EXPECT_EQ(errorOf(std::vector<std::string>(24, "--cd=a.cue")),
              "--cd FILE.cue: there are letters for 23 drives; see tovik --help");
}

TEST(CommandLine, comfortIsOnOrOff) {
    EXPECT_FALSE(parsed({}).comfort.has_value());
    EXPECT_EQ(parsed({"--comfort", "on"}).comfort, true);
    EXPECT_EQ(parsed({"--comfort=off"}).comfort, false);
    EXPECT_EQ(errorOf({"--comfort=1"}),
              "--comfort on|off: not a value for it: 1; see tovik --help");
}

TEST(CommandLine, optionsAndFilesMix) {
    const CommandLine line = parsed({"/Play", "a.mp3", "--device", "silent", "b=c.mp3"});
    EXPECT_EQ(line.device, kSilentDevice);
    EXPECT_EQ(line.player.text, "/Play \"/music/a.mp3\" \"/music/b=c.mp3\"");
    EXPECT_THAT(line.player.files, ElementsAre("/music/a.mp3", "/music/b=c.mp3"));
}

TEST(CommandLine, aBareDoubleDashEndsTheOptions) {
    const CommandLine line = parsed({"--", "--help", "--", "-x"});
    EXPECT_FALSE(line.help);
    EXPECT_THAT(line.player.files, ElementsAre("/music/--help", "/music/--", "/music/-x"));
}

TEST(CommandLine, aSessionManagerNamesTheProgram) {
    const CommandLine line = parsed({"--data", "d", "-session", "10a_1", "/Play", "a.mp3"});
    EXPECT_EQ(line.session, "10a_1");
    EXPECT_THAT(line.player.files, ElementsAre("/music/a.mp3"));
    EXPECT_FALSE(parsed({"--", "-session", "x"}).session);
    EXPECT_THAT(parsed({"-session"}).player.files, ElementsAre("/music/-session"));
}

TEST(CommandLine, theLastOfTwoCounts) {
    EXPECT_EQ(parsed({"--device=a", "--device", "b"}).device, "b");
    EXPECT_EQ(parsed({"--device==x"}).device, "=x");
}

TEST(CommandLine, valuesAreBytes) {
    EXPECT_EQ(parsed({"--data", "caf\xE9 \""}).dataFolder, "/music/caf\xE9 \"");
}

TEST(CommandLine, unknownOptions) {
    EXPECT_EQ(errorOf({"--loud"}), "unknown option --loud; see tovik --help");
    EXPECT_EQ(errorOf({"--loud=1", "--help"}), "unknown option --loud; see tovik --help");
    EXPECT_THAT(errorOf({"--Help"}), HasSubstr("--Help"));
    EXPECT_THAT(errorOf({"--="}), HasSubstr("unknown option"));
    EXPECT_THAT(errorOf({"--helpme"}), HasSubstr("unknown option"));
}

TEST(CommandLine, missingValues) {
    for (const auto& words : {std::vector<std::string>{"--data"},
                              {"--data="},
                              {"--data", ""},
                              {"--data", "--help"},
                              {"--data", "--"},
                              {"a", "--seconds"}}) {
        EXPECT_THAT(errorOf(words), HasSubstr("the value is missing")) << words.front();
    }
    EXPECT_THAT(errorOf({"--data"}), HasSubstr("--data DIR"));
}

TEST(CommandLine, valuesThatDoNotFit) {
    for (const char* seconds : {"x", "0", "-1", "1s", "1e999", "inf", "1,5"}) {
        EXPECT_THAT(errorOf({"--seconds", seconds}), HasSubstr(seconds));
    }
    EXPECT_THAT(errorOf({"--help=yes"}), HasSubstr("takes no value"));
}

TEST(CommandLine, aLengthWithoutARender) {
    EXPECT_THAT(errorOf({"--seconds", "2"}), HasSubstr("goes with --render"));
}

TEST(CommandLine, theHelpNamesEveryOption) {
    const std::string help = helpText();
    for (const char* option :
         {"--help", "--version", "--forget-types", "--data DIR", "--device NAME",
          "--render FILE.wav", "--seconds N", "--screenshot FILE.png"}) {
        EXPECT_THAT(help, HasSubstr(option));
    }
    EXPECT_TRUE(help.ends_with('\n'));
}

} // namespace
} // namespace tovik::host
