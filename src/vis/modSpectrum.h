// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in spectrum: bars that follow what is heard. Interface thread.
#pragma once

#include "host/Clock.h"
#include "player/Core.h"
#include "vis/SpectrumFigure.h"
#include "vis/VisualArea.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tovik::vis {

/// Its timer ticks only while there is something to move and someone can see it.
class modSpectrum {
public:
    /// All of them outlive the object. It is stopped at first.
    modSpectrum(const player::Core& core, const host::Clock& clock, VisualArea& area);
    modSpectrum(const modSpectrum&) = delete;
    modSpectrum& operator=(const modSpectrum&) = delete;

    /// Milliseconds from one picture to the next, see `intervalOf`; 0 stops all movement. Counts at
    /// once.
    void setSpeed(int milliseconds);

    /// Draws the area anew and begins to tick, also where it ticked before.
    void StartSpectrum();

    /// Ends the tick and clears the area. Levels and marks stay for the next start.
    void StopSpectrum();

    /// From now on it draws there, which outlives the object; what it drew elsewhere stays.
    void drawIn(VisualArea& area);

    /// Something may have to be moved again: ticks if it rests and was not stopped.
    void stir();

    /// No tick comes until it is stirred or started.
    [[nodiscard]] bool rests() const { return !timer_->enabled(); }

    [[nodiscard]] const SpectrumData& data() const { return data_; }

private:
    void tick();
    void listen();
    [[nodiscard]] bool mayMove() const;
    [[nodiscard]] bool settled();
    [[nodiscard]] double passed();

    const player::Core& core_;
    const host::Clock& clock_;
    VisualArea* area_;
    std::unique_ptr<host::Timer> timer_;
    SpectrumData data_;
    SpectrumFigure figure_;
    bool started_ = false;
    int still_ = 0;                        ///< ticks in a row that moved nothing
    std::optional<std::int64_t> lastTick_; ///< of the clock; none behind a rest
};

} // namespace tovik::vis
