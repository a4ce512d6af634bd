// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for the file of the stations: it is read, and what was read is written and read
// again. A list that was read comes back as it was from the second writing on.
#include "radio/StationFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace {

using namespace tovik::radio;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Enough to see a count go wrong, few enough to be quick.
constexpr std::int32_t kMostRead = 100;

std::string written(const StationFile& file, std::int32_t count) {
    std::string text;
    appendStationHead(text);
    for (std::int32_t number = 1; number <= count; ++number) {
        appendStation(text, number, file.value(addressKey(number)), file.value(nameKey(number)));
    }
    appendStationTail(text, count);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const StationFile file(std::string(data, data + size));
    const std::optional<std::int32_t> count = file.count();
    demand(!count || (*count >= 0 && *count <= kMostStations));
    const std::int32_t read = std::min(count.value_or(kMostRead), kMostRead);
    for (std::int32_t number = 1; number <= read; ++number) {
        demand(file.value(addressKey(number)).size() <= 254);
    }
    // A value may bear quotes within quotes, of which each reading takes one pair.
    std::string text = written(file, read);
    for (std::size_t turn = 0; turn <= size; ++turn) {
        std::string again = written(StationFile(text), read);
        if (again == text) {
            return 0;
        }
        demand(again.size() < text.size());
        text = std::move(again);
    }
    demand(false);
    return 0;
}
