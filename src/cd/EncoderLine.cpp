// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/EncoderLine.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tovik::cd {

namespace {

struct Row {
    std::string_view type;
    std::string_view program;
    std::string_view package;
    bool inDataFolder; ///< its text names the folder
    std::string_view options;
};

constexpr std::string_view kOggProgram = "oggenc.exe";

constexpr std::array<Row, 4> kRows{{
    {"MP3C", "lame.exe", "lame", true, " -b  %bitrate --priority %prio  - "},
    {"MP3V", "lame.exe", "lame", true, " --abr  %bitrate --priority %prio  - "},
    {"OGGC", kOggProgram, "vorbis-tools", false, " --managed -b %bitrate -  -o "},
    {"OGGV", kOggProgram, "vorbis-tools", false, " -b %bitrate -  -o "},
}};

constexpr std::string_view kPriority = "--priority";

/// Very low, low, and what is not below the player.
constexpr std::array<int, 2> kNiceness{19, 10};

int nicenessOf(std::int32_t priority) {
    const auto place = static_cast<std::size_t>(priority);
    return priority >= 0 && place < kNiceness.size() ? kNiceness.at(place) : 0;
}

/// The words between blanks; double quotes hold words together.
std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    bool quoted = false;
    bool inWord = false;
    for (const char c : text) {
        if (c == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord) {
            words.emplace_back();
            inWord = true;
        }
        if (c == '"') {
            quoted = !quoted;
        } else {
            words.back() += c;
        }
    }
    return words;
}

} // namespace

std::optional<EncoderLine> encoderLine(std::string_view type, std::int32_t bitrate,
                                       std::int32_t priority, std::string_view dataFolder,
                                       const std::string& path) {
    const auto* const row = std::ranges::find(kRows, type, &Row::type);
    if (row == kRows.end()) {
        return std::nullopt;
    }
    std::string options = base::replaceAll(row->options, "%bitrate", std::to_string(bitrate));
    options = base::replaceAll(options, "%prio", std::to_string(priority));
    EncoderLine line{.program = std::string(row->program),
                     .package = std::string(row->package),
                     .arguments = wordsOf(options)};
    if (row->inDataFolder) {
        line.text = std::string(dataFolder) + "\\";
    }
    line.text += line.program + options + "\"" + path + "\"";
    const auto word = std::ranges::find(line.arguments, kPriority);
    if (word != line.arguments.end()) {
        // The program knows the option on other systems only.
        line.arguments.erase(word, word + 2);
        line.niceness = nicenessOf(priority);
    }
    line.arguments.push_back(path);
    return line;
}

void addTags(EncoderLine& line, const tags::FreshTags& tags) {
    if (line.program != kOggProgram) {
        return;
    }
    const std::string track = tags.track > 0 ? std::to_string(tags.track) : std::string();
    const std::array<std::pair<std::string_view, const std::string&>, 6> rows{{
        {"-t", tags.title},
        {"-a", tags.artist},
        {"-l", tags.album},
        {"-d", tags.year},
        {"-G", tags.genre},
        {"-N", track},
    }};
    std::vector<std::string> words{"--utf8"};
    for (const auto& [option, text] : rows) {
        if (!text.empty()) {
            words.emplace_back(option);
            words.push_back(text);
        }
    }
    line.arguments.insert(line.arguments.begin(), words.begin(), words.end());
}

} // namespace tovik::cd
