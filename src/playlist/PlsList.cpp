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

/// The number of the last entry by the count of the file.
std::int32_t lastNumber(const PlsKeys& keys) {
    return std::min(numberIn(keys.numberOfEntries()).value_or(0),
                    std::max(keys.highestNumber(), kMostEmptyEntries));
}

/// The number of the entry behind this one, where `last` is that of the last.
std::optional<std::int32_t> numberBehind(std::int32_t number, const PlsKeys& keys,
                                         std::int32_t last, const ListManner& manner) {
    if (manner.comfort.readsAllOfPls) {
        return keys.nextNumber();
    }
    return number < last ? std::optional(number + 1) : std::nullopt;
}

/// Of an entry behind one of that length.
std::int32_t secondsOf(const PlsEntry& entry, std::int32_t before, const ListManner& manner) {
    return manner.comfort.forgetsLengths ? knownSeconds(entry.length.value_or(""))
                                         : numberIn(entry.length).value_or(before);
}

} // namespace

ReadEnd appendPls(std::string_view text, stdSS& list, host::MessagePump& pump,
                  const ListManner& manner) {
    PlsKeys keys(text);
    const std::int32_t last = lastNumber(keys);
    std::int32_t number = 0;
    std::int32_t seconds = 0;
    std::string timeText = base::lastFive(seconds);
    if (!pump.Step()) {
        return ReadEnd::ProgramEnding;
    }
    while (const auto next = numberBehind(number, keys, last, manner)) {
        if (!pump.Step()) {
            return ReadEnd::ProgramEnding;
        }
        number = *next;
        const PlsEntry entry = keys.entry(number);
        if (const std::int32_t length = secondsOf(entry, seconds, manner); length != seconds) {
            seconds = length;
            timeText = base::lastFive(seconds);
        }
        if (manner.comfort.readsAllOfPls && entry.file.value_or("").empty()) {
            continue;
        }
        const std::string file = fileOfEntry(entry.file.value_or(""), manner);
        list.AddItem({}, file, titleOfEntry(entry.title.value_or(""), file, manner), timeText,
                     seconds);
    }
    return ReadEnd::Complete;
}

std::string plsText(const stdSS& list, const ListManner& manner) {
    std::string text;
    appendPlsHead(text);
    for (Row row = 1; row <= list.ListCount(); ++row) {
        appendPlsEntry(text, row, list.seconds(row), list.text(row, RowText::Title),
                       nameForList(list.text(row, RowText::FileName), manner));
    }
    appendPlsTail(text, list.ListCount());
    return text;
}

} // namespace tovik::playlist
