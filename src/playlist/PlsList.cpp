// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlsList.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/TimeText.h"
#include "playlist/PlsFormat.h"
#include "playlist/stdSS.h"

#include <algorithm>
#include <optional>

namespace tovik::playlist {

namespace {

std::optional<std::int32_t> numberIn(std::optional<std::string_view> value) {
    if (!value) {
        return std::nullopt;
    }
    try {
        return base::toInt32(base::textToNumber(*value));
    } catch (const base::RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace

ReadEnd appendPls(std::string_view text, stdSS& list, host::MessagePump& pump) {
    PlsKeys keys(text);
    const std::int32_t count = std::min(numberIn(keys.numberOfEntries()).value_or(0),
                                        std::max(keys.highestNumber(), kMostEmptyEntries));
    std::int32_t seconds = 0;
    std::string timeText = base::lastFive(seconds);
    if (!pump.Step()) {
        return ReadEnd::ProgramEnding;
    }
    for (std::int32_t number = 1; number <= count; ++number) {
        if (!pump.Step()) {
            return ReadEnd::ProgramEnding;
        }
        const PlsEntry entry = keys.entry(number);
        if (const auto length = numberIn(entry.length); length && *length != seconds) {
            seconds = *length;
            timeText = base::lastFive(seconds);
        }
        list.AddItem({}, entry.file.value_or(""), entry.title.value_or(""), timeText, seconds);
    }
    return ReadEnd::Complete;
}

std::string plsText(const stdSS& list) {
    std::string text;
    appendPlsHead(text);
    for (Row row = 1; row <= list.ListCount(); ++row) {
        appendPlsEntry(text, row, list.seconds(row), list.text(row, RowText::Title),
                       list.text(row, RowText::FileName));
    }
    appendPlsTail(text, list.ListCount());
    return text;
}

} // namespace tovik::playlist
