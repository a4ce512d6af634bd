// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/CdTexts.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tovik::cd {

namespace {

constexpr std::string_view kTitleKey = "TITLE";
constexpr std::string_view kPerformerKey = "PERFORMER";

/// What stands behind a key, if it is that one: the index of a track and a text.
std::optional<std::pair<std::int32_t, std::string>> fieldOf(std::string_view line,
                                                            std::string_view key) {
    if (base::toUpperAscii(line.substr(0, key.size())) != key) {
        return std::nullopt;
    }
    const std::string_view rest = line.substr(key.size());
    const std::size_t equals = rest.find('=');
    if (equals == std::string_view::npos) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
    return std::pair(base::toInt32(base::textToNumber(rest.substr(0, equals))),
                     base::displayText(rest.substr(equals + 1)));
}

using Field = std::pair<std::int32_t, std::string>;

void put(std::vector<std::string>& texts, Field&& field, bool skipsStray) {
    if (field.first >= 0 && static_cast<std::size_t>(field.first) < texts.size()) {
        texts[static_cast<std::size_t>(field.first)] = std::move(field.second);
    } else if (!skipsStray) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
}

} // namespace

CdTexts::CdTexts(std::string_view text, std::int32_t count, bool skipsStray)
    : titles_(static_cast<std::size_t>(count) + 1), performers_(titles_.size()) {
    while (!text.empty() && text.front() != '\0') {
        const std::string_view line = text.substr(0, text.find('\0'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (auto title = fieldOf(line, kTitleKey)) {
            put(titles_, std::move(*title), skipsStray);
        } else if (auto performer = fieldOf(line, kPerformerKey)) {
            put(performers_, std::move(*performer), skipsStray);
        }
    }
}

} // namespace tovik::cd
