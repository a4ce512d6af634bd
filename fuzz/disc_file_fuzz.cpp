// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for the file that is kept of a disc. What was read is written so that it is read
// again, but for what the form of the file cannot hold.
#include "base/RuntimeError.h"
#include "cd/DiscFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovik::cd;
    const std::string_view bytes(static_cast<const char*>(static_cast<const void*>(data)), size);
    DiscForm form;
    try {
        readDiscFile(bytes, form);
    } catch (const tovik::base::RuntimeError&) {
        // A line without "=": what stands before it was taken.
    }
    const std::string text = discFileText("06012c02", form);
    std::size_t lines = 0;
    for (const char sign : text) {
        lines += sign == '\n' ? 1U : 0U;
    }
    constexpr std::size_t kFields = 5;
    if (lines != kFields + form.List1.size()) {
        std::abort();
    }
    DiscForm again;
    readDiscFile(text, again); // raises nothing: each line has its "="
    return 0;
}
