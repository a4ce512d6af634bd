// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a list that a server answered. Whatever it says, only addresses of http and
// https come of it.
#include "sound/net/StationLists.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovik::sound;
    const std::string_view text(static_cast<const char*>(static_cast<const void*>(data)), size);
    static_cast<void>(kindOfAnswer(text.substr(0, size / 2), text.substr(size / 2), true));
    for (const std::string& address : addressesOfList(text, "http://host/a/b?c")) {
        if (!isHttpAddress(address)) {
            std::abort();
        }
    }
    return 0;
}
