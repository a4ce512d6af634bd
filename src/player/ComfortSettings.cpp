// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/ComfortSettings.h"

#include <string>

namespace tovik::player {

namespace {

constexpr std::string_view kOn = "1";
constexpr std::string_view kOff = "0";

bool isThere(const config::clsXML& xml, std::string_view key) {
    return !key.empty() && xml.NodeCount(config::Settings::pathOf(key)) > 0;
}

std::optional<bool> choiceIn(const config::clsXML& xml, std::string_view key) {
    const std::string text = xml.ReadNode(config::Settings::pathOf(key));
    return text == kOn || text == kOff ? std::optional(text == kOn) : std::nullopt;
}

} // namespace

base::ComfortChoices comfortIn(const config::clsXML& xml) {
    base::ComfortChoices choices;
    if (isThere(xml, base::kComfortKey)) {
        choices.master = choiceIn(xml, base::kComfortKey).value_or(false);
    }
    for (std::size_t i = 0; i < base::kComfortSwitches.size(); ++i) {
        const base::ComfortSwitch& one = base::kComfortSwitches.at(i);
        for (const std::string_view key : {one.key, one.former}) {
            if (isThere(xml, key)) {
                choices.own.at(i) = choiceIn(xml, key);
                break;
            }
        }
    }
    return choices;
}

void putComfort(config::clsXML& xml, const base::ComfortChoices& choices) {
    const auto textOf = [](bool on) { return std::string(on ? kOn : kOff); };
    config::Settings::makeOrWrite(xml, base::kComfortKey, textOf(choices.master));
    for (std::size_t i = 0; i < base::kComfortSwitches.size(); ++i) {
        const base::ComfortSwitch& one = base::kComfortSwitches.at(i);
        if (const std::optional<bool> own = choices.own.at(i)) {
            config::Settings::makeOrWrite(xml, one.key, textOf(*own));
        } else if (isThere(xml, one.key)) {
            xml.DeleteNode(config::Settings::pathOf(one.key));
        }
        if (isThere(xml, one.former)) {
            xml.DeleteNode(config::Settings::pathOf(one.former));
        }
    }
}

base::ComfortChoices readComfort(config::Settings& settings) {
    base::ComfortChoices choices;
    settings.peek([&](const config::clsXML& xml) { choices = comfortIn(xml); });
    return choices;
}

} // namespace tovik::player
