// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SkinPalette.h"

#include <array>

namespace tovik::ui {

namespace {

struct Row {
    QPalette::ColorRole role;
    QRgb usual;
    QRgb disabled;
};

constexpr auto kRows = std::to_array<Row>({
    {QPalette::Window, 0xFFCED4E7, 0xFFCED4E7},
    {QPalette::WindowText, 0xFF212152, 0xFF7A80A8},
    {QPalette::Base, 0xFFE6EAF5, 0xFFD8DDED},
    {QPalette::AlternateBase, 0xFFD9DEEE, 0xFFD3D9EB},
    {QPalette::Text, 0xFF14143C, 0xFF7A80A8},
    {QPalette::PlaceholderText, 0xFF565C88, 0xFF7A80A8},
    {QPalette::Button, 0xFFC0C7E0, 0xFFC6CCE2},
    {QPalette::ButtonText, 0xFF212152, 0xFF7A80A8},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::ToolTipBase, 0xFF212152, 0xFF212152},
    {QPalette::ToolTipText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Highlight, 0xFF484E9A, 0xFF9AA2C6},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFE6EAF5},
    {QPalette::Link, 0xFF3A3F96, 0xFF7A80A8},
    {QPalette::LinkVisited, 0xFF6A3A8C, 0xFF7A80A8},
    {QPalette::Light, 0xFFF2F4FA, 0xFFF2F4FA},
    {QPalette::Midlight, 0xFFDDE2F0, 0xFFDDE2F0},
    {QPalette::Mid, 0xFF949CC4, 0xFF949CC4},
    {QPalette::Dark, 0xFF7880AC, 0xFF7880AC},
    {QPalette::Shadow, 0xFF212152, 0xFF212152},
});

} // namespace

QPalette skinPalette() {
    QPalette palette;
    for (const Row& row : kRows) {
        palette.setColor(QPalette::Active, row.role, QColor::fromRgb(row.usual));
        palette.setColor(QPalette::Inactive, row.role, QColor::fromRgb(row.usual));
        palette.setColor(QPalette::Disabled, row.role, QColor::fromRgb(row.disabled));
    }
    return palette;
}

} // namespace tovik::ui
