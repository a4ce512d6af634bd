// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorStream.h"

#include <cstdio>

namespace tovik::base {

void tell(std::string_view text) noexcept {
    // Where even this fails there is nobody left to tell.
    static_cast<void>(
        std::fprintf(stderr, "tovik: %.*s\n", static_cast<int>(text.size()), text.data()));
}

} // namespace tovik::base
