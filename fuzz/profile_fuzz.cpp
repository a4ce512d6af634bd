// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a file of sections and keys.
#include "config/Profile.h"

#include <cstdint>
#include <cstdlib>

namespace {

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using tovik::config::profileValue;
    const std::string bytes(data, data + size);
    const std::string value = profileValue(bytes, "Firstrun", "LNG");
    demand(value.size() <= tovik::config::kProfileValueWidth);
    demand(value.find_first_of("\r\n") == std::string::npos);
    demand(bytes.find(value) != std::string::npos);
    demand(profileValue(bytes, "FIRSTRUN", "lng") == value);
    // Sections that follow never change what was found; a section ahead of all hides the rest.
    demand(profileValue(bytes + "\n[other]\nLNG=other", "Firstrun", "LNG") == value);
    demand(profileValue("[Firstrun]\nLNG=own\n" + bytes, "Firstrun", "LNG") == "own");
    return 0;
}
