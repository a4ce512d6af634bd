// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/ShownField.h"

#include "base/Text.h"

namespace tovik::tags {

std::string_view shownField(std::string_view field) noexcept {
    return base::trimmed(field.substr(0, field.find('\0')));
}

} // namespace tovik::tags
