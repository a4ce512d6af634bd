// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in spectrum: bars that follow what is heard. Interface thread.
#pragma once

#include "player/Core.h"
#include "vis/SpectrumArea.h"
#include "vis/SpectrumFigure.h"

#include <cstdint>
#include <memory>

namespace tovik::vis {

/// Its timer ticks only while there is something to move and someone can see it.
class modSpectrum {
public:
    /// Both outlive the object. It is stopped at first.
    modSpectrum(const player::Core& core, SpectrumArea& area);
    modSpectrum(const modSpectrum&) = delete;
    modSpectrum& operator=(const modSpectrum&) = delete;

    static constexpr int kFastestMs = 10;
    static constexpr int kSlowestMs = 500;

    /// Milliseconds from one picture to the next: what lies outside the two bounds counts as the
    /// nearer one, 0 stops all movement. Counts at once.
    void setSpeed(int milliseconds);

    /// Draws the area anew and begins to tick, also where it ticked before.
    void StartSpectrum();

    /// Ends the tick and clears the area. Levels and marks stay for the next start.
    void StopSpectrum();

    /// Something may have to be moved again: ticks if it rests and was not stopped.
    void stir();

    /// No tick comes until it is stirred or started.
    [[nodiscard]] bool rests() const { return !timer_->enabled(); }

    [[nodiscard]] const SpectrumData& data() const { return data_; }

private:
    void tick();
    void listen();
    [[nodiscard]] bool mayMove() const;
    [[nodiscard]] sound::Handle channel() const;
    [[nodiscard]] bool settled();

    const player::Core& core_;
    SpectrumArea& area_;
    std::unique_ptr<host::Timer> timer_;
    SpectrumData data_;
    SpectrumFigure figure_;
    bool started_ = false;
    int still_ = 0; ///< ticks in a row that moved nothing
};

} // namespace tovik::vis
