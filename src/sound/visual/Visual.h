// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in that draws in a process of its own, as the player sees it: it is asked for one picture
// at a time, and the last one that was done is there to be shown. Nothing here waits for it.
// Interface thread only.
#pragma once

#include "sound/api/VisualOperations.h"
#include "sound/visual/HelperProcess.h"
#include "sound/visual/PictureMemory.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::sound {

class Visual {
public:
    /// Begins a plug-in in pictures of that size; `program` is the one that runs it. What does not
    /// begin has ended.
    Visual(const std::string& program, std::string_view plugin, std::string_view settings,
           int width, int height);

    /// Asks for the next picture. False while one is being drawn, and at the end.
    bool ask(const HeardSound& heard);

    /// Whether it could be asked.
    [[nodiscard]] bool free() const noexcept { return !ended_ && !asked_; }

    /// Whether it was told something that it has not done yet: to begin, to draw, another size, a
    /// click.
    [[nodiscard]] bool busy() const noexcept {
        return !ended_ && (asked_ || lost_ > 0 || owed_ > 0);
    }

    /// Takes in what came: a picture if one was finished, else the end if it has ended.
    [[nodiscard]] VisualNews take();

    /// Copies the last picture, if one is finished, none is being drawn and the surface has its
    /// size. Returns whether it was copied.
    [[nodiscard]] bool show(const VisualSurface& surface) const;

    /// The next pictures have another size. One that is being drawn is lost; the next may be asked
    /// for at once. False for a size out of bounds, where there is no memory, when it cannot be
    /// told now, and at the end: then it shows nothing until it gets a size.
    bool resize(int width, int height);

    /// False when it cannot be told now, and at the end.
    bool click(int x, int y);

    /// Readable when there is news; -1 after the end.
    [[nodiscard]] int descriptor() const noexcept { return helper_.descriptor(); }

    /// What it calls itself; empty as long as it has not said so.
    [[nodiscard]] const std::string& name() const noexcept { return name_; }

private:
    bool tell(const HelperOrder& order, int descriptor);
    void end();

    HelperProcess helper_;
    PictureMemory picture_;
    std::uint32_t number_ = 0; ///< of the size, so that an answer to an older one is known
    bool asked_ = false;       ///< a picture of that size is being drawn
    int lost_ = 0;             ///< pictures of older sizes that are still being drawn
    int owed_ = 0;             ///< sizes and clicks that are not taken yet
    bool named_ = false;
    bool finished_ = false; ///< there is one
    bool ended_ = false;
    std::string name_;
};

} // namespace tovik::sound
