// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/DiscFile.h"

#include "base/LineReader.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "config/Fields.h"

#include <algorithm>
#include <array>

namespace tovik::cd {

namespace {

constexpr char kEquals = '=';
constexpr std::string_view kLineEnd = "\r\n";

/// A field of the form that a line keeps.
struct Field {
    std::string_view key;  ///< as it is written
    std::string_view sign; ///< what tells a line that is read
    bool inText1;          ///< else in `Text2`
    std::size_t index;
};

/// In the order in which they are written.
constexpr std::array kFields{
    Field{"DTITLE", "dtitle", true, 0},
    Field{"DARTIST", "dartist", false, 0},
    Field{"DYEAR", "dyear", true, 1},
    Field{"DGENRE", "dgenre", false, 2},
};

template <typename Form>
auto& textOf(Form& form, const Field& field) {
    return field.inText1 ? form.Text1.at(field.index) : form.Text2.at(field.index);
}

/// The first of them that stands in a line wins.
constexpr std::array<std::size_t, kFields.size()> kReadOrder{0, 2, 1, 3};

constexpr std::string_view kTrackKey = "TTITLE";
constexpr std::string_view kTrackSign = "ttitle";

void appendLine(std::string& text, std::string_view key, std::string value) {
    std::ranges::replace_if(
        value, [](char sign) { return sign == '\r' || sign == '\n' || sign == '\0'; }, ' ');
    text += key;
    text += kEquals;
    text += value;
    text += kLineEnd;
}

/// A deliberate oddity: a second "=" ends the text.
std::string valueOf(std::string_view line) {
    return base::displayText(config::Fields(line, kEquals).at(1));
}

/// A line whose key is known, by that key alone.
void takeLine(std::string_view line, DiscForm& form) {
    const std::size_t equals = line.find(kEquals);
    if (equals == std::string_view::npos) {
        return;
    }
    const std::string_view key = base::trimmed(line.substr(0, equals));
    const std::string text = base::displayText(line.substr(equals + 1));
    const auto* const field = std::ranges::find_if(
        kFields, [key](const Field& row) { return base::equalsIgnoringCase(row.key, key); });
    if (field != kFields.end()) {
        textOf(form, *field) = text;
    } else if (base::equalsIgnoringCase(key.substr(0, kTrackKey.size()), kTrackKey)) {
        form.List1.push_back(text);
    }
}

} // namespace

std::string discFileText(std::string_view discId, const DiscForm& form) {
    std::string text;
    appendLine(text, "DISCID", std::string(discId));
    for (const Field& field : kFields) {
        appendLine(text, field.key, textOf(form, field));
    }
    for (std::size_t track = 0; track < form.List1.size(); ++track) {
        appendLine(text, std::string(kTrackKey) + std::to_string(track), form.List1[track]);
    }
    return text;
}

void readDiscFile(std::string_view bytes, DiscForm& form, DiscKeys keys) {
    form.List1.clear();
    base::LineReader lines(bytes);
    for (auto line = lines.next(); line; line = lines.next()) {
        if (keys == DiscKeys::inFront) {
            takeLine(*line, form);
            continue;
        }
        // A deliberate oddity: the whole line is looked at, not its key.
        const std::string signs = base::toLowerAscii(*line);
        const auto* const told = std::ranges::find_if(kReadOrder, [&signs](std::size_t field) {
            return signs.find(kFields.at(field).sign) != std::string::npos;
        });
        if (told != kReadOrder.end()) {
            textOf(form, kFields.at(*told)) = valueOf(*line);
        } else if (signs.find(kTrackSign) != std::string::npos) {
            form.List1.push_back(valueOf(*line));
        }
    }
}

} // namespace tovik::cd
