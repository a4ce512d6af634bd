// SPDX-License-Identifier: GPL-3.0-or-later
// A skin made by a test: each file has the size that the layout gives its element, and a colour
// of its own.
#pragma once

#include "support/skin/Bitmaps.h"
#include "window/MainBindings.h"
#include "window/MiniSkin.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace tovik::test {

/// The colour (0xRRGGBB) of the skin's file number `number`, counted over all bindings.
constexpr std::uint32_t testSkinColour(std::size_t number) {
    return 0x102030 + static_cast<std::uint32_t>(number);
}

/// Likewise of the mini window's files, which follow the others.
constexpr std::uint32_t miniSkinColour(std::size_t number) {
    return 0x400000 + static_cast<std::uint32_t>(number);
}

/// Writes every file into the skin's folder of that data folder.
inline void writeTestSkin(const std::string& dataFolder) {
    const std::filesystem::path folder =
        std::filesystem::path(dataFolder) / "skins" / "CurrentSkin";
    std::filesystem::create_directories(folder);
    const window::MainElements layout(window::mainLayout());
    const auto side = [](double length) {
        return length < 1 ? 1 : static_cast<std::int32_t>(length);
    };
    std::size_t number = 0;
    for (const window::Binding& binding : window::mainBindings()) {
        if (!binding.file.empty()) {
            const ui::Box box = layout.get(binding.to.name, binding.to.index).box();
            std::ofstream(folder / (std::string(binding.file) + ".bmp"), std::ios::binary)
                << skin::plainBitmap(side(box.width), side(box.height), testSkinColour(number));
        }
        ++number;
    }
    const window::MiniElements mini(window::miniLayout());
    for (std::size_t i = 0; i < window::miniBindings().size(); ++i) {
        const window::MiniPicture& row = window::miniBindings()[i];
        const ui::Box box = mini.get(row.element, row.index).box();
        std::ofstream(folder / (std::string(row.name) + ".bmp"), std::ios::binary)
            << skin::plainBitmap(side(box.width), side(box.height), miniSkinColour(i));
    }
}

/// The file (without ".bmp") that an opaque pixel of the test's skin comes from.
inline std::string fileOfColour(std::uint32_t pixel) {
    const auto bindings = window::mainBindings();
    const std::size_t number = (pixel & 0xFFFFFF) - testSkinColour(0);
    return number < bindings.size() ? std::string(bindings[number].file) : "another";
}

} // namespace tovik::test
