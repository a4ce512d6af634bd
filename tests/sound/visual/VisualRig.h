// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting for a plug-in as an event loop does. One thread.
#pragma once

#include "sound/visual/Visual.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <string>
#include <vector>

namespace tovik::test {

constexpr int kVisualLimitMs = 20'000; ///< after which a test counts as hung

inline std::string faultyVis(const std::string& fault) {
    return std::string(TOVIK_FAULTY_VIS) + "/" + fault + ".svp";
}

/// News other than nothing, once there is some. For a plug-in or a listing.
template <typename Source>
sound::VisualNews awaitNews(Source& source) {
    for (;;) {
        const sound::VisualNews news = source.take();
        if (news != sound::VisualNews::nothing) {
            return news;
        }
        pollfd wait{.fd = source.descriptor(), .events = POLLIN, .revents = 0};
        if (::poll(&wait, 1, kVisualLimitMs) <= 0) {
            ADD_FAILURE() << "no news";
            return sound::VisualNews::nothing;
        }
    }
}

/// The pixels of a picture.
struct Canvas {
    int width;
    int height;
    std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height));

    [[nodiscard]] sound::VisualSurface surface() {
        return {.pixels = pixels, .width = width, .height = height};
    }
};

} // namespace tovik::test
