// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/CueSheet.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tovik::playlist {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kFirstSound = "01"; ///< the index at which a track begins

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    const std::size_t end = text.find_last_not_of(kBlanks);
    return text.substr(begin, end == std::string_view::npos ? 0 : end + 1 - begin);
}

/// The next word of a line, without the quotes that may enclose it.
std::string_view nextWord(std::string_view& line) {
    line = withoutBlanks(line);
    if (line.starts_with('"')) {
        line.remove_prefix(1);
        const std::size_t end = std::min(line.find('"'), line.size());
        const std::string_view word = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
        return word;
    }
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    return word;
}

/// A text to the end of the line, in quotes or without.
std::string_view restOf(std::string_view line) {
    line = withoutBlanks(line);
    return line.starts_with('"') ? nextWord(line) : line;
}

/// The name of a file: without quotes it may hold blanks, and the kind of the file stands behind
/// it.
std::string_view fileName(std::string_view line) {
    line = withoutBlanks(line);
    if (line.starts_with('"')) {
        return nextWord(line);
    }
    const std::size_t end = line.find_last_of(kBlanks);
    return end == std::string_view::npos ? line : withoutBlanks(line.substr(0, end));
}

/// "mm:ss:ff"; 0 for anything else.
std::int32_t framesIn(std::string_view text) {
    constexpr std::array kWorth{60 * 75, 75, 1};
    constexpr int kMostMinutes = 100'000;
    std::int32_t frames = 0;
    for (const int worth : kWorth) {
        int number = 0;
        const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (failure != std::errc() || number < 0 || number > kMostMinutes) {
            return 0;
        }
        frames += number * worth;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        text.remove_prefix(text.starts_with(':') ? 1 : 0);
    }
    return frames;
}

class Reader {
public:
    void take(std::string_view line) {
        const std::string command = base::toLowerAscii(nextWord(line));
        if (command == "file") {
            sheet_.files.push_back({.name = std::string(fileName(line))});
            track_ = nullptr;
        } else if (command == "track") {
            beginTrack();
        } else if (command == "title") {
            (track_ != nullptr ? track_->title : sheet_.title) = restOf(line);
        } else if (command == "performer") {
            (track_ != nullptr ? track_->performer : sheet_.performer) = restOf(line);
        } else if (command == "index" && track_ != nullptr && nextWord(line) == kFirstSound) {
            track_->startFrames = framesIn(withoutBlanks(line));
        }
    }

    [[nodiscard]] bool full() const {
        return tracks_ >= kMostCueTracks || sheet_.files.size() >= kMostCueTracks;
    }

    [[nodiscard]] CueSheet sheet() && { return std::move(sheet_); }

private:
    void beginTrack() {
        track_ = nullptr;
        if (!sheet_.files.empty()) {
            track_ = &sheet_.files.back().tracks.emplace_back();
            ++tracks_;
        }
    }

    CueSheet sheet_;
    CueTrack* track_ = nullptr; ///< the one that is read; none: texts are the disc's
    std::size_t tracks_ = 0;
};

} // namespace

CueSheet readCueSheet(std::string_view text) {
    Reader reader;
    while (!text.empty() && !reader.full()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        reader.take(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(reader).sheet();
}

std::string cueTitle(const CueSheet& sheet, const CueFile& file) {
    const bool single = file.tracks.size() == 1 && !file.tracks.front().title.empty();
    const std::string& title = single ? file.tracks.front().title : sheet.title;
    const std::string& own = single ? file.tracks.front().performer : sheet.performer;
    const std::string& performer = own.empty() ? sheet.performer : own;
    return title.empty() || performer.empty() ? title : performer + " - " + title;
}

} // namespace tovik::playlist
