// SPDX-License-Identifier: GPL-3.0-or-later
// What is left of a copy from one picture to another once both have cut off what lies outside
// them. Any thread.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tovik::ui {

struct CopyBox {
    int x = 0; ///< in the target
    int y = 0;
    int width = 0;
    int height = 0;
    int sourceX = 0;
    int sourceY = 0;
};

struct PictureSize {
    int width = 0;
    int height = 0;
};

namespace clipping {

struct Span {
    int place = 0;
    int length = 0;
    int source = 0;
};

/// One direction; lengths of nothing are 0. Any numbers.
[[nodiscard]] constexpr Span clipped(Span span, int targetLength, int sourceLength) noexcept {
    const std::int64_t place = span.place;
    const std::int64_t source = span.source;
    const std::int64_t skipped = std::max({std::int64_t{0}, -place, -source});
    const std::int64_t end =
        std::min({std::int64_t{span.length}, targetLength - place, sourceLength - source});
    if (end <= skipped) {
        return {};
    }
    return {static_cast<int>(place + skipped), static_cast<int>(end - skipped),
            static_cast<int>(source + skipped)};
}

} // namespace clipping

[[nodiscard]] constexpr CopyBox clipped(const CopyBox& box, PictureSize target,
                                        PictureSize source) noexcept {
    const clipping::Span across =
        clipping::clipped({box.x, box.width, box.sourceX}, target.width, source.width);
    const clipping::Span down =
        clipping::clipped({box.y, box.height, box.sourceY}, target.height, source.height);
    return {across.place, down.place, across.length, down.length, across.source, down.source};
}

} // namespace tovik::ui
