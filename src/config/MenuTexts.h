// SPDX-License-Identifier: GPL-3.0-or-later
// The captions of all menu entries, kept until menus ask for them. Interface thread.
#pragma once

#include "config/TextTargets.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tovik::config {

class MenuTexts final : public TextTargets {
public:
    void setText(std::string_view element, int index, TextKind /*kind*/,
                 std::string_view text) override {
        captions_.insert_or_assign({std::string(element), index}, std::string(text));
    }

    /// Whether a language has said what the entry is called, be it by an empty text.
    [[nodiscard]] bool has(std::string_view entry, int index = 0) const {
        return captions_.contains({std::string(entry), index});
    }

    /// What an entry is called; empty where no language has said so.
    [[nodiscard]] std::string caption(std::string_view entry, int index = 0) const {
        const auto found = captions_.find({std::string(entry), index});
        return found == captions_.end() ? "" : found->second;
    }

private:
    std::map<std::pair<std::string, int>, std::string> captions_;
};

} // namespace tovik::config
