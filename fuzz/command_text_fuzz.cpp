// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a command-line text, and for the text of a time.
#include "base/CommandText.h"
#include "base/RuntimeError.h"
#include "base/TimeText.h"

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
    const std::string text(data, data + size);
    const bool quoted = text.find('"') != std::string::npos;
    const std::vector<std::string> pieces = tovik::base::commandArguments(text);
    const std::string path = tovik::base::handedOverPath(text);
    demand(pieces.size() >= 2);
    demand(quoted ? path == pieces[1] : pieces[1] == text);
    demand(path.find(quoted ? '"' : '/') == std::string::npos);
    for (const std::string& file : tovik::base::commandWords(text).files) {
        demand(!file.empty() && file.size() <= size);
        demand(file.find('"') == std::string::npos);
    }
    try {
        static_cast<void>(tovik::base::GetTime(tovik::base::GetSeconds(text)));
    } catch (const tovik::base::RuntimeError& error) {
        demand(error.number() == 13 || error.number() == 6);
    }
    return 0;
}
