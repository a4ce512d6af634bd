// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/M3uList.h"

#include "base/LineReader.h"
#include "base/Numbers.h"
#include "base/TimeText.h"
#include "base/Windows1252.h"
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
                                const bool& stop, const ListManner& manner) {
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
        facts.setSeconds(manner.comfort.takesBadLengths
                             ? knownSeconds(*info->seconds)
                             : base::toInt32(base::textToNumber(*info->seconds)));
    }
    return pump.Step() ? std::nullopt : std::optional(ReadEnd::ProgramEnding);
}

bool isEntry(std::string_view line, const ListManner& manner) {
    if (!manner.comfort.resetsTitles) {
        return !line.starts_with(kM3uDirective);
    }
    return !line.starts_with('#') && line.find_first_not_of(" \t") != std::string_view::npos;
}

template <typename Shown>
std::string textOf(const stdSS& list, const ListManner& manner, Shown shown) {
    std::string text;
    appendM3uHead(text);
    for (Row row = 1; row <= list.ListCount(); ++row) {
        appendM3uEntry(text, list.seconds(row), shown(list.text(row, RowText::Title)),
                       nameForList(list.text(row, RowText::FileName), manner));
    }
    return text;
}

} // namespace

ReadEnd appendM3u(std::string_view text, stdSS& list, host::MessagePump& pump, const bool& stop,
                  const ListManner& manner) {
    base::LineReader lines(text);
    Facts facts;
    facts.setSeconds(0);
    while (const std::optional<std::string_view> line = lines.next()) {
        if (isEntry(*line, manner)) {
            const std::string file = fileOfEntry(m3uFileName(*line), manner);
            list.AddItem({}, file, titleOfEntry(facts.title, file, manner), facts.timeText,
                         facts.seconds);
            if (manner.comfort.resetsTitles) {
                facts.title = {};
                facts.setSeconds(0);
            }
        } else if (line->starts_with(kM3uInfo)) {
            if (const std::optional<ReadEnd> end = takeInfo(*line, facts, pump, stop, manner)) {
                return *end;
            }
        }
    }
    return ReadEnd::Complete;
}

std::string m3uText(const stdSS& list, const ListManner& manner) {
    return textOf(list, manner, [](std::string_view title) { return title; });
}

std::string m3u8Text(const stdSS& list, const ListManner& manner) {
    return textOf(list, manner, base::displayText);
}

} // namespace tovik::playlist
