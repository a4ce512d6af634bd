// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of a language on the main window's elements. Interface thread.
#pragma once

#include "config/TextTargets.h"
#include "window/MainElements.h"

#include <string>
#include <string_view>

namespace tovik::window {

/// Writes captions and tooltips into the records.
class MainTexts final : public config::TextTargets {
public:
    /// Kept by reference.
    explicit MainTexts(MainElements& elements) : elements_(elements) {}

    void setText(std::string_view element, int index, config::TextKind kind,
                 std::string_view text) override;

    /// The text that the window keeps without showing it.
    [[nodiscard]] const std::string& publicText() const { return publicText_; }

private:
    MainElements& elements_;
    std::string publicText_;
};

} // namespace tovik::window
