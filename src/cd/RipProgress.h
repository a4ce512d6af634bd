// SPDX-License-Identifier: GPL-3.0-or-later
// How far a rip is: in the row of the track, and for the whole job. Interface thread.
#pragma once

#include "host/Clock.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tovik::cd {

/// What is shown of a job.
struct RipStatus {
    bool running = false;
    std::int32_t track = 0; ///< of the job, from 1
    std::int32_t tracks = 0;
    double share = 0;                          ///< of all the job's sound, 0 to 1
    std::optional<std::int32_t> secondsLeft{}; ///< once it can be told
};

class RipProgress {
public:
    /// Both outlive the object.
    RipProgress(playlist::stdSS& lstTracks, const host::Clock& clock)
        : lstTracks_(lstTracks), clock_(clock) {}

    /// Who draws. Told at the beginning and the end of a job and of its tracks, and at most ten
    /// times a second in between.
    std::function<void(const RipStatus&)> show;

    /// A job of tracks of so many bytes begins.
    void begin(const std::vector<std::int64_t>& lengths);

    /// The next track of it begins.
    void beginTrack();

    /// One round of the track of a row, counted from 0: sets the row's text, with the percent in
    /// the place of "[x]" of the words, rounded to so many decimals. The list is drawn at most ten
    /// times a second. Does nothing without a length, and for a row below 0.
    void round(std::int32_t row, std::int64_t position, std::int64_t length,
               const std::string& words, int decimals);

    /// The row's last text is drawn.
    void endTrack();

    void end();

private:
    void tell();
    [[nodiscard]] bool due();

    static constexpr std::int64_t kBetweenDrawings = 100; ///< ms

    playlist::stdSS& lstTracks_;
    const host::Clock& clock_;
    RipStatus status_;
    std::vector<std::int64_t> lengths_;
    std::int64_t all_ = 0;
    std::int64_t before_ = 0; ///< bytes of the tracks that are over
    std::int64_t beganMs_ = 0;
    std::int64_t drawnMs_ = 0;
    playlist::Row row_ = 0;
    std::string text_;
};

/// A percentage as text: rounded to so many decimals, without zeros behind a dot.
[[nodiscard]] std::string percentText(double percent, int decimals);

} // namespace tovik::cd
