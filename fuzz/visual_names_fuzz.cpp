// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for the file of known names of plug-ins. Whatever it is, what is read of it is
// bounded and comes back the same when it is written and read again.
#include "sound/visual/NameCache.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using tovik::sound::NameCache;
    const NameCache read(std::string_view(reinterpret_cast<const char*>(data), size));
    if (read.rows() > NameCache::kMostRows || NameCache(read.bytes()) != read) {
        std::abort();
    }
    return 0;
}
