// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PlatformChoice.h"

#include <gtest/gtest.h>

namespace tovik::app {
namespace {

/// What such a session of a Wayland desktop offers.
WindowSystems both() {
    return {.chosen = "",
            .x11 = ":0",
            .wayland = "wayland-0",
            .session = "wayland",
            .speaksWayland = true};
}

TEST(PlatformChoice, aWaylandDesktopGetsWaylandAndX11IfThatFails) {
    WindowSystems systems = both();
    EXPECT_EQ(platformFor(systems), "wayland;xcb");
    systems.session = "";
    EXPECT_EQ(platformFor(systems), "wayland;xcb") << "not every session tells what it is";
}

TEST(PlatformChoice, elsewhereItIsX11) {
    WindowSystems systems = both();
    systems.speaksWayland = false;
    EXPECT_EQ(platformFor(systems), "xcb");
    systems = both();
    systems.session = "x11"; // a compositor in a window
    EXPECT_EQ(platformFor(systems), "xcb");
    systems = both();
    systems.wayland = "";
    EXPECT_EQ(platformFor(systems), "xcb");
}

TEST(PlatformChoice, whatTheUserChoseStays) {
    WindowSystems systems = both();
    systems.chosen = "xcb";
    EXPECT_EQ(platformFor(systems), std::nullopt);
    systems.wayland = "";
    systems.chosen = "offscreen";
    EXPECT_EQ(platformFor(systems), std::nullopt);
}

TEST(PlatformChoice, withoutX11QtFindsWhatIsThere) {
    WindowSystems systems = both();
    systems.x11 = "";
    EXPECT_EQ(platformFor(systems), std::nullopt);
    systems.wayland = "";
    EXPECT_EQ(platformFor(systems), std::nullopt);
}

} // namespace
} // namespace tovik::app
