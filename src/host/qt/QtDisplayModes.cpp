// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtDisplayModes.h"

#include <algorithm>
#include <cmath>
#include <QGuiApplication>
#include <QScreen>

namespace tovik::host {

namespace {

DisplayMode modeOf(const QScreen& screen) {
    const double dense = screen.devicePixelRatio();
    return {.width = static_cast<int>(std::lround(screen.size().width() * dense)),
            .height = static_cast<int>(std::lround(screen.size().height() * dense)),
            .bitsPerPixel = screen.depth(),
            .hertz = static_cast<int>(std::lround(screen.refreshRate()))};
}

} // namespace

std::vector<DisplayMode> QtDisplayModes::all() const {
    std::vector<DisplayMode> modes;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (const DisplayMode mode = modeOf(*screen);
            std::ranges::find(modes, mode) == modes.end()) {
            modes.push_back(mode);
        }
    }
    return modes;
}

DisplayMode QtDisplayModes::current() const {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? DisplayMode{} : modeOf(*screen);
}

} // namespace tovik::host
