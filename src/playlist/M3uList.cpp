// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/M3uList.h"

#include "base/LineReader.h"
#include "base/Numbers.h"
#include "base/TimeText.h"
#include "playlist/M3uFormat.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <optional>

namespace tovik::playlist {

namespace {

/// The values that an entry takes from the lines ahead of it.
struct Facts {
    std::string_view title{};
    std::int32_t seconds = 0;
    std::string timeText{};

    void setSeconds(std::int32_t value) {
        seconds = value;
        timeText = base::lastFive(value);
    }
};

/// Takes an "#EXTINF" line; an answer ends the read.
std::optional<ReadEnd> takeInfo(std::string_view line, Facts& facts, host::MessagePump& pump,
                                const bool& stop) {
    if (stop) {
        return ReadEnd::Stopped;
    }
    const std::optional<M3uInfo> info = parseM3uInfo(line);
    if (!info) {
        return std::nullopt;
    }
    facts.title = info->title;
    if (!pump.Step()) {
        return ReadEnd::ProgramEnding;
    }
    if (stop) {
        return ReadEnd::Stopped;
    }
    if (info->seconds) {
        facts.setSeconds(base::toInt32(base::textToNumber(*info->seconds)));
    }
    return pump.Step() ? std::nullopt : std::optional(ReadEnd::ProgramEnding);
}

} // namespace

ReadEnd appendM3u(std::string_view text, stdSS& list, host::MessagePump& pump, const bool& stop) {
    base::LineReader lines(text);
    Facts facts;
    facts.setSeconds(0);
    while (const std::optional<std::string_view> line = lines.next()) {
        if (!line->starts_with(kM3uDirective)) {
            list.AddItem({}, m3uFileName(*line), facts.title, facts.timeText, facts.seconds);
        } else if (line->starts_with(kM3uInfo)) {
            if (const std::optional<ReadEnd> end = takeInfo(*line, facts, pump, stop)) {
                return *end;
            }
        }
    }
    return ReadEnd::Complete;
}

std::string m3uText(const stdSS& list) {
    std::string text;
    appendM3uHead(text);
    for (Row row = 1; row <= list.ListCount(); ++row) {
        appendM3uEntry(text, list.seconds(row), list.text(row, RowText::Title),
                       list.text(row, RowText::FileName));
    }
    return text;
}

} // namespace tovik::playlist
