// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that asks which of several discs it is that a server knows by one number, as logic.
// Interface thread.
#pragma once

#include "discs/CddbAnswer.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tovik::cd {

class frmDiscMatch {
public:
    /// Opens the dialog, which is closed on return. Not set: nobody can be asked.
    std::function<void()> open;

    /// Holds up the caller until one was chosen; nothing for none.
    [[nodiscard]] std::optional<std::size_t> ask(const std::vector<discs::Match>& matches) {
        rows_.clear();
        for (const discs::Match& match : matches) {
            rows_.push_back(match.title + " (" + match.category + ")");
        }
        chosen_.reset();
        if (open) {
            open();
        }
        return std::exchange(chosen_, std::nullopt);
    }

    /// What is to be chosen from.
    [[nodiscard]] const std::vector<std::string>& List1() const noexcept { return rows_; }

    /// A row was chosen, counted from 0; one that is not there counts as none.
    void choose(int row) {
        const auto index = static_cast<std::size_t>(row);
        chosen_ = row >= 0 && index < rows_.size() ? std::optional(index) : std::nullopt;
    }

private:
    std::vector<std::string> rows_;
    std::optional<std::size_t> chosen_;
};

} // namespace tovik::cd
