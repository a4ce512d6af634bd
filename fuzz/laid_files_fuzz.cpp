// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a data folder's memory of what was laid in it. Whatever is read of it comes
// back the same when it is written and read again.
#include "host/LaidFiles.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using tovik::host::LaidFiles;
    const auto read =
        LaidFiles::fromText(std::string_view(reinterpret_cast<const char*>(data), size));
    if (read) {
        const auto again = LaidFiles::fromText(read->text());
        if (!again || again->version != read->version || again->digests != read->digests) {
            std::abort();
        }
        static_cast<void>(tovik::host::isNewer(read->version, "0.1.0"));
    }
    return 0;
}
