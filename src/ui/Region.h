// SPDX-License-Identifier: GPL-3.0-or-later
// A set of pixels, told in rectangles: the outline of a window. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tovik::ui {

/// Right and bottom edges lie outside.
struct RegionRectangle {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    [[nodiscard]] constexpr bool empty() const noexcept { return left >= right || top >= bottom; }

    friend constexpr bool operator==(const RegionRectangle&, const RegionRectangle&) = default;
};

/// Two regions are equal when they hold the same pixels, however they came about.
class Region {
public:
    Region() = default;

    explicit Region(const RegionRectangle& rectangle) { unite(rectangle); }

    /// Pixels of the rectangle that were in the region leave it, all others of it come in.
    void exclusiveOr(const RegionRectangle& rectangle);

    /// All pixels of the rectangle come in.
    void unite(const RegionRectangle& rectangle);

    [[nodiscard]] bool contains(std::int32_t x, std::int32_t y) const noexcept;

    /// The region in as few bands as it has different rows: from the top downwards, within a band
    /// from the left, no two rectangles with a pixel in common.
    [[nodiscard]] std::vector<RegionRectangle> rectangles() const;

    /// The smallest rectangle round all pixels; all zeros when there are none.
    [[nodiscard]] RegionRectangle bounds() const;

    /// How much work and memory a further rectangle is: the edges that must be copied or moved for
    /// it. About 1 for one that comes in the order of `rectangles`.
    [[nodiscard]] std::size_t costOf(const RegionRectangle& rectangle) const noexcept;

    friend bool operator==(const Region& left, const Region& right) {
        return left.rectangles() == right.rectangles();
    }

private:
    /// What all pixel rows look like from `top` to the next entry: the places where the inside
    /// begins and ends by turns. The last entry is empty.
    struct Rows {
        std::int32_t top = 0;
        std::vector<std::int32_t> edges;
    };

    /// The number of the entry that begins at `y`, which is made where there is none.
    std::size_t entryAt(std::int32_t y);
    [[nodiscard]] std::size_t entriesUpTo(std::int32_t y) const noexcept;
    [[nodiscard]] std::size_t costOfEntryAt(std::int32_t y) const noexcept;

    std::vector<Rows> rows_;
};

} // namespace tovik::ui
