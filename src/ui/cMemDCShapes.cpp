// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cMemDC.h"

#include <algorithm>
#include <cstdlib>

namespace tovik::ui {

namespace {

/// The colour at a place of `steps`.
Colour between(Colour from, Colour to, int place, int steps) {
    const auto part = [place, steps](std::uint8_t first, std::uint8_t last) {
        const int change = (int{last} - int{first}) * place;
        return static_cast<std::uint8_t>(first + change / std::max(steps, 1));
    };
    return {part(from.red, to.red), part(from.green, to.green), part(from.blue, to.blue)};
}

} // namespace

void cMemDC::FillGradient(const PixelBox& box, Colour from, Colour to, bool downwards) {
    const int steps = downwards ? box.height() : box.width();
    for (int i = 0; i < steps; ++i) {
        const Colour colour = between(from, to, i, steps - 1);
        if (downwards) {
            FillRect(box.left, box.top + i, box.right, box.top + i + 1, colour);
        } else {
            FillRect(box.left + i, box.top, box.left + i + 1, box.bottom, colour);
        }
    }
}

void cMemDC::FrameRect(const PixelBox& box, Colour colour) {
    FillRect(box.left, box.top, box.right, box.top + 1, colour);
    FillRect(box.left, box.bottom - 1, box.right, box.bottom, colour);
    FillRect(box.left, box.top, box.left + 1, box.bottom, colour);
    FillRect(box.right - 1, box.top, box.right, box.bottom, colour);
}

void cMemDC::Rectangle(const PixelBox& box, Colour fill, Colour line) {
    FillRect(box.left, box.top, box.right, box.bottom, fill);
    FrameRect(box, line);
}

void cMemDC::DrawLine(int x, int y, int endX, int endY, Colour colour) {
    // Bresenham's walk; a line that leaves the surface is cut pixel by pixel.
    const int acrossSteps = std::abs(endX - x);
    const int downSteps = -std::abs(endY - y);
    const int across = x < endX ? 1 : -1;
    const int down = y < endY ? 1 : -1;
    int error = acrossSteps + downSteps;
    while (x != endX || y != endY) {
        SetPixel(x, y, colour);
        const int twice = 2 * error;
        if (twice >= downSteps) {
            error += downSteps;
            x += across;
        }
        if (twice <= acrossSteps) {
            error += acrossSteps;
            y += down;
        }
    }
}

void cMemDC::DrawEdge(const PixelBox& box, unsigned edge, unsigned sides) {
    const auto ring = [&](const PixelBox& at, bool raised) {
        const Colour upper = raised ? Edges.light : Edges.shadow;
        const Colour lower = raised ? Edges.shadow : Edges.light;
        if ((sides & kEdgeLeft) != 0) {
            FillRect(at.left, at.top, at.left + 1, at.bottom, upper);
        }
        if ((sides & kEdgeTop) != 0) {
            FillRect(at.left, at.top, at.right, at.top + 1, upper);
        }
        if ((sides & kEdgeRight) != 0) {
            FillRect(at.right - 1, at.top, at.right, at.bottom, lower);
        }
        if ((sides & kEdgeBottom) != 0) {
            FillRect(at.left, at.bottom - 1, at.right, at.bottom, lower);
        }
    };
    PixelBox inner = box;
    if ((edge & (kRaisedOuter | kSunkenOuter)) != 0) {
        ring(box, (edge & kRaisedOuter) != 0);
        inner = {box.left + 1, box.top + 1, box.right - 1, box.bottom - 1};
    }
    if ((edge & (kRaisedInner | kSunkenInner)) != 0) {
        ring(inner, (edge & kRaisedInner) != 0);
    }
}

void cMemDC::DrawEllipse(const PixelBox& box, Colour fill) {
    const double width = box.width();
    const double height = box.height();
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            const double across = (2 * (x - box.left) + 1 - width) / width;
            const double down = (2 * (y - box.top) + 1 - height) / height;
            if (across * across + down * down <= 1) {
                SetPixel(x, y, fill);
            }
        }
    }
}

Colour cMemDC::TranslateColor(std::int32_t number,
                              const std::function<std::optional<Colour>(int)>& systemColour) {
    const auto bits = static_cast<std::uint32_t>(number);
    if (number < 0) {
        const auto found =
            systemColour ? systemColour(static_cast<int>(bits & 0xFF)) : std::nullopt;
        return found.value_or(Colour{});
    }
    return {static_cast<std::uint8_t>(bits & 0xFF), static_cast<std::uint8_t>(bits >> 8 & 0xFF),
            static_cast<std::uint8_t>(bits >> 16 & 0xFF)};
}

PixelBox cMemDC::NormalizeRect(const PixelBox& box) noexcept {
    return {std::min(box.left, box.right), std::min(box.top, box.bottom),
            std::max(box.left, box.right), std::max(box.top, box.bottom)};
}

} // namespace tovik::ui
