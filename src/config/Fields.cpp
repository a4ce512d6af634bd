// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Fields.h"

#include "base/RuntimeError.h"

namespace tovik::config {

Fields::Fields(std::string_view text, char separator) {
    if (text.empty()) {
        return;
    }
    for (std::size_t end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator)) {
        fields_.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    fields_.emplace_back(text);
}

const std::string& Fields::at(std::size_t index) const {
    if (index >= fields_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return fields_[index];
}

} // namespace tovik::config
