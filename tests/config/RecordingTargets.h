// SPDX-License-Identifier: GPL-3.0-or-later
// A window that writes down the texts it gets.
#pragma once

#include "config/TextTargets.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace tovik::test {

class RecordingTargets final : public config::TextTargets {
public:
    using Place = std::tuple<std::string, int, config::TextKind>;

    std::vector<Place> order;
    std::map<Place, std::string> texts;

    void setText(std::string_view element, int index, config::TextKind kind,
                 std::string_view text) override {
        const Place place{element, index, kind};
        order.push_back(place);
        texts[place] = text;
    }

    /// The text of a place; a note that there is none.
    [[nodiscard]] std::string at(const std::string& element, int index = 0,
                                 config::TextKind kind = config::TextKind::Caption) const {
        const auto found = texts.find({element, index, kind});
        return found == texts.end() ? "(nothing set)" : found->second;
    }
};

} // namespace tovik::test
