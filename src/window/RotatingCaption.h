// SPDX-License-Identifier: GPL-3.0-or-later
// The caption of the window runs round on the task bar. Interface thread.
#pragma once

#include "player/Core.h"

#include <memory>
#include <string>

namespace tovik::window {

class RotatingCaption : private player::NowPlayingView {
public:
    /// `core` outlives the object. `Timer5` ticks at once; without a button on the task bar it
    /// rests until there is another caption to take away, and while titles are held.
    explicit RotatingCaption(const player::Core& core);
    ~RotatingCaption() override;
    RotatingCaption(const RotatingCaption&) = delete;
    RotatingCaption& operator=(const RotatingCaption&) = delete;

    static constexpr int kTimer5Ms = 180;

    /// Moves the first character of the caption behind the last: of the mini window's in mini mode,
    /// else of the main window's. A window without a button on the task bar has no caption. The
    /// window is told only of a change.
    void Timer5();

    /// The timer does not tick.
    [[nodiscard]] bool rests() const { return !Timer5_->enabled(); }

private:
    void showTitles(const player::NowPlaying& /*playing*/) override {
        held_ = false;
        stir();
    }

    void holdTitles() override { held_ = true; }

    void showCaptions(const player::NowPlaying& /*playing*/) override { stir(); }

    void stir();

    const player::Core& core_;
    std::unique_ptr<host::Timer> Timer5_;
    bool held_ = false; ///< nothing plays yet: the caption is there, and stands still
};

/// The text with its first character behind the last one; a text of one character or none stays.
/// Never in the middle of a character of UTF-8.
[[nodiscard]] std::string rotatedLeft(const std::string& text);

} // namespace tovik::window
