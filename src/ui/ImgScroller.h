// SPDX-License-Identifier: GPL-3.0-or-later
// A title that moves through its field from right to left, one character at a time, round and
// round. Interface thread.
#pragma once

#include "host/TimerFactory.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tovik::ui {

class ImgScroller {
public:
    /// Between two moves.
    static constexpr int kIntervalMs = 200;

    /// What stands between the end of the title and its beginning.
    static constexpr std::u32string_view kSeparator = U"***";

    /// Draws the characters, of which only the first ones fit; whichever window shows titles now.
    using Draw = std::function<void(std::u32string_view characters)>;

    ImgScroller(host::TimerFactory& timers, Draw draw);

    /// Shows a text from its beginning and starts to move it a full interval later; bytes, valid
    /// UTF-8 or else Windows-1252.
    void setText(std::string_view text);

    /// The text stands still, as far as it has moved, until the next one.
    void hold() { timer_->setEnabled(false); }

    /// What is drawn: the text, rotated.
    [[nodiscard]] std::u32string shown() const;

private:
    void tick();

    Draw draw_;
    std::unique_ptr<host::Timer> timer_;
    std::u32string text_;
    std::size_t start_ = 0;
};

} // namespace tovik::ui
