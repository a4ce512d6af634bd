// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for the data of a region.
#include "ui/RegionData.h"

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
    using namespace tovik::ui;
    const auto region = regionFromData(std::string(data, data + size));
    if (!region) {
        return 0;
    }
    const auto rectangles = region->rectangles();
    for (const RegionRectangle& one : rectangles) {
        demand(!one.empty());
        demand(region->contains(one.left, one.top));
        demand(region->contains(one.right - 1, one.bottom - 1));
    }
    if (rectangles.size() <= kMostRegionRectangles) {
        const auto again = regionFromData(regionData(*region));
        demand(again && *again == *region);
    }
    return 0;
}
