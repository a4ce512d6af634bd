// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Controls.h"

namespace tovik::base {

std::string withoutControls(std::string_view text) {
    std::string kept;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : '\0');
        if (byte == 0xC2 && next >= 0x80 && next <= 0x9F) { // C1 in UTF-8
            ++i;
        } else if (byte >= 0x20 && byte != 0x7F) {
            kept += text[i];
        }
    }
    return kept;
}

} // namespace tovik::base
