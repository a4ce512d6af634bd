// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Region.h"

#include <algorithm>

namespace tovik::ui {

namespace {

using Edges = std::vector<std::int32_t>;

/// An edge that meets another one of its place vanishes with it.
void toggle(Edges& edges, std::int32_t place) {
    const auto found = std::ranges::lower_bound(edges, place);
    if (found != edges.end() && *found == place) {
        edges.erase(found);
    } else {
        edges.insert(found, place);
    }
}

bool isOdd(std::ptrdiff_t number) {
    return number % 2 != 0;
}

void cover(Edges& edges, std::int32_t left, std::int32_t right) {
    // Edges at the very ends go as well, so that neighbours grow together.
    const auto first = std::ranges::lower_bound(edges, left);
    const auto last = std::ranges::upper_bound(edges, right);
    const bool insideBefore = isOdd(first - edges.begin());
    const bool insideBehind = isOdd(last - edges.begin());
    auto place = edges.erase(first, last);
    if (!insideBehind) {
        place = edges.insert(place, right);
    }
    if (!insideBefore) {
        edges.insert(place, left);
    }
}

} // namespace

std::size_t Region::entriesUpTo(std::int32_t y) const noexcept {
    const auto behind = std::ranges::upper_bound(rows_, y, {}, &Rows::top);
    return static_cast<std::size_t>(behind - rows_.begin());
}

std::size_t Region::entryAt(std::int32_t y) {
    const std::size_t count = entriesUpTo(y);
    if (count > 0 && rows_[count - 1].top == y) {
        return count - 1;
    }
    Rows rows{.top = y, .edges = count > 0 ? rows_[count - 1].edges : Edges()};
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(count), std::move(rows));
    return count;
}

void Region::exclusiveOr(const RegionRectangle& rectangle) {
    if (rectangle.empty()) {
        return;
    }
    const std::size_t first = entryAt(rectangle.top);
    const std::size_t end = entryAt(rectangle.bottom);
    for (std::size_t entry = first; entry < end; ++entry) {
        toggle(rows_[entry].edges, rectangle.left);
        toggle(rows_[entry].edges, rectangle.right);
    }
}

void Region::unite(const RegionRectangle& rectangle) {
    if (rectangle.empty()) {
        return;
    }
    const std::size_t first = entryAt(rectangle.top);
    const std::size_t end = entryAt(rectangle.bottom);
    for (std::size_t entry = first; entry < end; ++entry) {
        cover(rows_[entry].edges, rectangle.left, rectangle.right);
    }
}

bool Region::contains(std::int32_t x, std::int32_t y) const noexcept {
    const std::size_t count = entriesUpTo(y);
    if (count == 0) {
        return false;
    }
    const Edges& edges = rows_[count - 1].edges;
    return isOdd(std::ranges::upper_bound(edges, x) - edges.begin());
}

std::vector<RegionRectangle> Region::rectangles() const {
    std::vector<RegionRectangle> all;
    for (std::size_t entry = 0; entry < rows_.size();) {
        const Edges& edges = rows_[entry].edges;
        const std::int32_t top = rows_[entry].top;
        while (++entry < rows_.size() && rows_[entry].edges == edges) {
        }
        for (std::size_t edge = 0; edge + 1 < edges.size(); edge += 2) {
            all.push_back({edges[edge], top, edges[edge + 1], rows_[entry].top});
        }
    }
    return all;
}

RegionRectangle Region::bounds() const {
    const std::vector<RegionRectangle> all = rectangles();
    if (all.empty()) {
        return {};
    }
    RegionRectangle round = all.front();
    for (const RegionRectangle& one : all) {
        round = {std::min(round.left, one.left), std::min(round.top, one.top),
                 std::max(round.right, one.right), std::max(round.bottom, one.bottom)};
    }
    return round;
}

std::size_t Region::costOfEntryAt(std::int32_t y) const noexcept {
    const std::size_t count = entriesUpTo(y);
    return count > 0 && rows_[count - 1].top != y ? rows_[count - 1].edges.size() : 0;
}

std::size_t Region::costOf(const RegionRectangle& rectangle) const noexcept {
    std::size_t cost = 1 + costOfEntryAt(rectangle.top) + costOfEntryAt(rectangle.bottom);
    // The entry that holds the top is met as well.
    const std::size_t count = entriesUpTo(rectangle.top);
    for (std::size_t entry = count > 0 ? count - 1 : 0;
         entry < rows_.size() && rows_[entry].top < rectangle.bottom; ++entry) {
        const Edges& edges = rows_[entry].edges;
        cost += 1 + static_cast<std::size_t>(edges.end() -
                                             std::ranges::lower_bound(edges, rectangle.left));
    }
    return cost;
}

} // namespace tovik::ui
