// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SetOpacity.h"

#include "base/Numbers.h"

namespace tovik::ui {

namespace {

constexpr double kOpaque = 255;

} // namespace

std::optional<int> layerAlpha(int percent) {
    if (percent < 0 || percent > 99) {
        return std::nullopt;
    }
    return base::toInt32(percent * kOpaque / 100);
}

void SetOpacity(QWidget& window, int percent) {
    const auto alpha = layerAlpha(percent);
    window.setWindowOpacity(alpha ? *alpha / kOpaque : 1);
}

} // namespace tovik::ui
