// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SystemColour.h"

#include <algorithm>
#include <array>
#include <QGuiApplication>
#include <QPalette>
#include <utility>

namespace tovik::ui {

namespace {

constexpr auto kRoles = std::to_array<std::pair<int, QPalette::ColorRole>>({
    {4, QPalette::Window},           // menu
    {5, QPalette::Base},             // window
    {7, QPalette::WindowText},       // text of a menu
    {8, QPalette::Text},             // text of a window
    {13, QPalette::Highlight},       // highlight
    {14, QPalette::HighlightedText}, // text on it
    {15, QPalette::Button},          // face of a button
    {16, QPalette::Mid},             // its shadow
    {17, QPalette::PlaceholderText}, // text of what is disabled
    {18, QPalette::ButtonText},      // text of a button
    {20, QPalette::Light},           // light on a button
    {21, QPalette::Shadow},          // dark shadow of a button
});

} // namespace

std::optional<Colour> systemColour(int number) {
    const auto* const found =
        std::ranges::find(kRoles, number, &std::pair<int, QPalette::ColorRole>::first);
    if (found == kRoles.end()) {
        return std::nullopt;
    }
    const QColor colour = QGuiApplication::palette().color(found->second);
    return Colour{static_cast<std::uint8_t>(colour.red()),
                  static_cast<std::uint8_t>(colour.green()),
                  static_cast<std::uint8_t>(colour.blue())};
}

} // namespace tovik::ui
