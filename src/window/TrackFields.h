// SPDX-License-Identifier: GPL-3.0-or-later
// What every window shows of the playing track in the same way: its format, the digits of its time,
// the words for the volume. Interface thread.
#pragma once

#include "player/NowPlaying.h"
#include "window/TextFields.h"

namespace tovik::window {

/// The elements of one window that show it. Of `timed` the number 0 is the minus sign and 3 the
/// colon; `digits` keeps the pictures of 0 to 9.
struct TrackPlaces {
    ui::ElementAddress info;
    ui::ElementAddress mono;
    ui::ElementAddress stereo;
    ui::ElementAddress volume;
    ui::ElementAddress timed;
    ui::ElementAddress digits;
};

class TrackFields {
public:
    /// Both outlive the object.
    TrackFields(ui::ElementStore& elements, TextFields& fields, const TrackPlaces& places)
        : elements_(elements), fields_(fields), places_(places) {}

    /// Of the two words for the channels the one that applies is bright.
    void showFormat(const player::NowPlaying& playing);

    /// The four digits; the minus sign is whose business it is.
    void showTime(const player::NowPlaying& playing);

    void showVolume(const player::NowPlaying& playing);

private:
    void showDigit(std::uint16_t place, char digit);

    ui::ElementStore& elements_;
    TextFields& fields_;
    TrackPlaces places_;
};

} // namespace tovik::window
