// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that hold several values in one text, such as "1,2,3". Any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::config {

/// The pieces between separators; none for an empty text.
class Fields {
public:
    Fields(std::string_view text, char separator);

    /// A piece, counted from 0. Raises 9 for one that is not there.
    [[nodiscard]] const std::string& at(std::size_t index) const;

    [[nodiscard]] const std::vector<std::string>& all() const& { return fields_; }

private:
    std::vector<std::string> fields_;
};

} // namespace tovik::config
