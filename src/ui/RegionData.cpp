// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/RegionData.h"

#include "base/LittleEndian.h"

namespace tovik::ui {

namespace {

constexpr std::uint32_t kHeaderBytes = 32;
constexpr std::uint32_t kRectangleBytes = 16;
constexpr std::uint32_t kTypeRectangles = 1;

void append(std::string& bytes, const RegionRectangle& rectangle) {
    for (const std::int32_t edge :
         {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}) {
        base::appendLittleEndian(bytes, edge);
    }
}

RegionRectangle rectangleAt(std::span<const std::uint8_t> bytes, std::size_t at) {
    const auto edge = [&](std::size_t number) {
        return base::littleEndian<std::int32_t>(bytes, at + number * sizeof(std::int32_t));
    };
    return {edge(0), edge(1), edge(2), edge(3)};
}

} // namespace

std::string regionData(const Region& region) {
    const std::vector<RegionRectangle> rectangles = region.rectangles();
    const auto count = static_cast<std::uint32_t>(rectangles.size());
    std::string bytes;
    bytes.reserve(kHeaderBytes + std::size_t{count} * kRectangleBytes);
    for (const std::uint32_t field :
         {kHeaderBytes, kTypeRectangles, count, count * kRectangleBytes}) {
        base::appendLittleEndian(bytes, field);
    }
    append(bytes, region.bounds());
    for (const RegionRectangle& rectangle : rectangles) {
        append(bytes, rectangle);
    }
    return bytes;
}

std::optional<Region> regionFromData(std::string_view text) {
    const auto bytes = base::bytesOf(text);
    if (bytes.size() < kHeaderBytes) {
        return std::nullopt;
    }
    const auto header = base::littleEndian<std::uint32_t>(bytes, 0);
    const auto type = base::littleEndian<std::uint32_t>(bytes, 4);
    const auto count = base::littleEndian<std::uint32_t>(bytes, 8);
    if (header != kHeaderBytes || type != kTypeRectangles || count > kMostRegionRectangles ||
        (bytes.size() - kHeaderBytes) / kRectangleBytes < count) {
        return std::nullopt;
    }
    Region region;
    std::size_t work = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const RegionRectangle rectangle = rectangleAt(bytes, kHeaderBytes + i * kRectangleBytes);
        work += region.costOf(rectangle);
        if (work > kMostRegionWork) {
            return std::nullopt;
        }
        region.unite(rectangle);
    }
    return region;
}

} // namespace tovik::ui
