// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in that is shown: when it is begun, asked for its next picture, and given up. Interface
// thread.
#pragma once

#include "host/Paths.h"
#include "host/Watches.h"
#include "player/Core.h"
#include "ui/MessageWindow.h"
#include "vis/VisualArea.h"

#include <functional>
#include <memory>
#include <string>

namespace tovik::vis {

/// What the timer posts to the hidden list.
inline constexpr std::uint32_t kRenderMessage = 0x2C67;

/// How long a plug-in may take to begin and for each picture, another size or a click; the first
/// picture counts with all that comes before it.
inline constexpr int kPatienceMs = 2000;

/// Switches an input of the mix on, for whoever listens to it.
void sonfix(sound::RecordOperations& sound, int input = 0);

/// It ticks only while there is something to move and someone can see it. The interface never waits
/// for a plug-in: a tick asks for the next picture unless one is being drawn, and a picture is
/// shown when it is told that it is done. One that takes too long for anything is given up, whether
/// someone sees it or not.
class SonVis {
public:
    struct Parts {
        const player::Core& core;
        host::Watches& watches;
        const host::Paths& paths;
        /// The plug-in has crashed, ended itself or taken too long; it is not begun again by
        /// itself.
        std::function<void()> lost;
    };

    /// All of it outlives the object.
    SonVis(Parts parts, VisualArea& area);
    SonVis(const SonVis&) = delete;
    SonVis& operator=(const SonVis&) = delete;

    /// Begins a plug-in in place of the one that runs; with a setting beside it, and the mini
    /// window, it does not. Raises what reading the speed raises, and changes nothing then.
    void StartSonVis(const std::string& path);

    /// Ends the tick and clears the area; the plug-in is kept for `stir`.
    void stopSonVis();

    /// Ends the tick, and nothing else.
    void set_builtin_vis();

    /// Lets the plug-in go.
    void free();

    /// Whether one was begun and is there still.
    [[nodiscard]] bool running() const { return visual_ != sound::kNoHandle; }

    /// The plug-in that was begun last.
    [[nodiscard]] const std::string& path() const { return path_; }

    /// As that of the spectrum. Counts at once.
    void setSpeed(int milliseconds);

    /// Ticks again if something may have to be moved.
    void stir();

    /// No tick comes until it is stirred or started.
    [[nodiscard]] bool rests() const { return !timer_->enabled(); }

    /// The left button went down there, in the area's pixels of density 1.
    void click(int x, int y);

    /// From now on it draws there, which outlives the object; what it drew elsewhere stays.
    void drawIn(VisualArea& area);

    /// The hidden list's window, which gets what the timer posts.
    [[nodiscard]] ui::MessageWindow& window() { return list_; }

private:
    [[nodiscard]] bool needsRoom(const std::string& path) const;

    struct Size {
        int width = 0;
        int height = 0;

        friend bool operator==(const Size&, const Size&) = default;
    };

    [[nodiscard]] Size fitting() const;
    bool fit();
    void render();
    void watchOver();
    bool answered();
    void show();
    void lose();

    Parts p_;
    VisualArea* area_;
    ui::MessageWindow list_;
    std::unique_ptr<host::Timer> timer_;
    std::unique_ptr<host::Timer> patience_; ///< runs while it has something to do
    std::unique_ptr<host::Watch> watch_;
    sound::Handle visual_ = sound::kNoHandle;
    Size size_; ///< of the pictures that it was told to draw
    std::string path_;
    bool started_ = false; ///< and not stopped
};

} // namespace tovik::vis
