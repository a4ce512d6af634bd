// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/CommandLine.h"

#include "base/Numbers.h"
#include "base/PathText.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tovik::host {

namespace {

/// An option's value, and what is needed to understand it.
struct Value {
    std::string_view text;
    std::string_view workingFolder;

    [[nodiscard]] std::string path() const { return base::absolutePath(text, workingFolder); }
};

/// Applies a value; false when the value is not fit.
using Apply = bool (*)(CommandLine&, const Value&);

struct Option {
    std::string_view name;
    std::string_view valueName; ///< empty: the option takes none
    std::string_view help;
    Apply apply;
};

bool setSeconds(CommandLine& line, const Value& value) {
    try {
        line.renderSeconds = base::textToNumber(value.text);
        return *line.renderSeconds > 0;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

bool setComfort(CommandLine& line, const Value& value) {
    line.comfort = value.text == "on";
    return *line.comfort || value.text == "off";
}

constexpr std::array kOptions{
    Option{"help", "", "print this and end",
           [](CommandLine& line, const Value&) { return line.help = true; }},
    Option{"version", "", "print the version and end",
           [](CommandLine& line, const Value&) { return line.version = true; }},
    Option{"forget-types", "", "be no longer what the desktop opens files with, and end",
           [](CommandLine& line, const Value&) { return line.forgetTypes = true; }},
    Option{"data", "DIR", "keep settings, lists and skins in this folder",
           [](CommandLine& line, const Value& value) {
               line.dataFolder = value.path();
               return true;
           }},
    Option{"device", "NAME", R"(play on this device; "silent": on none; "list": name them all)",
           [](CommandLine& line, const Value& value) {
               line.device = value.text;
               return true;
           }},
    Option{"comfort", "on|off", "be kind in everything, or in nothing, for this run", setComfort},
    Option{"cd", "FILE.cue", "take this image of a disc for a drive with the disc in it",
           [](CommandLine& line, const Value& value) {
               line.discImages.push_back(value.path());
               return true;
           }},
    Option{"render", "FILE.wav", "write the sound to this file, as fast as it goes, and end",
           [](CommandLine& line, const Value& value) {
               line.renderFile = value.path();
               return true;
           }},
    Option{"seconds", "N", "end a render after so many seconds of sound", setSeconds},
    Option{"screenshot", "FILE.png", "save a picture of the window and end",
           [](CommandLine& line, const Value& value) {
               line.screenshotFile = value.path();
               return true;
           }},
};

constexpr std::string_view kOptionStart = "--";

/// Drives have the letters D to Z.
constexpr std::size_t kMostImages = 23;

/// Session managers write it so; nobody else does, so that no help tells it.
constexpr std::string_view kSessionWord = "-session";

std::string synopsis(const Option& option) {
    std::string text = std::string(kOptionStart).append(option.name);
    return option.valueName.empty() ? text : text.append(" ").append(option.valueName);
}

UsageError usageError(std::string_view problem) {
    return {std::string(problem).append("; see tovik --help")};
}

/// The words from left to right.
class Reader {
public:
    Reader(std::span<const std::string> words, std::string_view workingFolder)
        : words_(words), workingFolder_(workingFolder) {}

    std::variant<CommandLine, UsageError> read() {
        std::vector<std::string_view> others;
        bool options = true;
        for (; next_ < words_.size() && !error_; ++next_) {
            const std::string_view word = words_[next_];
            if (options && word == kSessionWord && next_ + 1 < words_.size()) {
                line_.session = words_[++next_];
            } else if (!options || !word.starts_with(kOptionStart)) {
                others.push_back(word);
            } else if (word == kOptionStart) {
                options = false;
            } else {
                readOption(word.substr(kOptionStart.size()));
            }
        }
        if (!error_ && line_.renderSeconds && !line_.renderFile) {
            error_ = usageError("--seconds N goes with --render FILE.wav");
        }
        if (!error_ && line_.discImages.size() > kMostImages) {
            error_ = usageError("--cd FILE.cue: there are letters for 23 drives");
        }
        if (error_) {
            return *error_;
        }
        line_.player = playerArguments(others, workingFolder_);
        return line_;
    }

private:
    void readOption(std::string_view word) {
        const std::string_view name = word.substr(0, word.find('='));
        const auto* const option =
            std::find_if(kOptions.begin(), kOptions.end(),
                         [name](const Option& candidate) { return candidate.name == name; });
        if (option == kOptions.end()) {
            error_ = usageError(std::string("unknown option --").append(name));
        } else if (option->valueName.empty()) {
            if (name.size() < word.size()) {
                error_ = usageError(synopsis(*option) + " takes no value");
            }
            option->apply(line_, {});
        } else {
            readValue(*option, word.substr(std::min(name.size() + 1, word.size())),
                      name.size() < word.size());
        }
    }

    void readValue(const Option& option, std::string_view value, bool attached) {
        // A word that looks like an option is no value: "--data --help" lacks one.
        if (!attached && next_ + 1 < words_.size() &&
            !words_[next_ + 1].starts_with(kOptionStart)) {
            value = words_[++next_];
        }
        if (value.empty()) {
            error_ = usageError(synopsis(option) + ": the value is missing");
        } else if (!option.apply(line_, {value, workingFolder_})) {
            error_ = usageError(synopsis(option) + ": not a value for it: " + std::string(value));
        }
    }

    std::span<const std::string> words_;
    std::string_view workingFolder_;
    std::size_t next_ = 0;
    CommandLine line_;
    std::optional<UsageError> error_;
};

} // namespace

std::variant<CommandLine, UsageError> parseCommandLine(std::span<const std::string> words,
                                                       std::string_view workingFolder) {
    return Reader(words, workingFolder).read();
}

std::string helpText() {
    std::size_t width = 0;
    for (const Option& option : kOptions) {
        width = std::max(width, synopsis(option).size());
    }
    std::string text = "usage: tovik [OPTION]... [/Play | /ADD | /Open] [FILE | URL]...\n\n";
    for (const Option& option : kOptions) {
        std::string left = synopsis(option);
        left.resize(width, ' ');
        text.append("  ").append(left).append("  ").append(option.help).append("\n");
    }
    return text.append("  --").append(width - 2, ' ').append("  what follows is no option\n");
}

} // namespace tovik::host
