// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer's curve in the settings, in the presets there, and in ".teq" files. Interface
// thread.
#pragma once

#include "base/RuntimeError.h"
#include "config/Settings.h"
#include "player/Equalizer.h"
#include "player/StoredSettings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::player {

class EqualizerStore {
public:
    /// Both are kept by reference.
    EqualizerStore(config::Settings& settings, Equalizer& equalizer)
        : settings_(settings), equalizer_(equalizer) {}

    /// Sets the bands from the setting "CEQ". Where it is empty, damaged or missing, the bands
    /// from there on stay as they are. Answers with the damage, for who tells it; a curve that was
    /// never stored is none.
    std::optional<base::RuntimeError> autoload_eq();

    /// Stores the bands. A damaged curve that `autoload_eq` met stays until a slider was moved.
    /// Raises what writing the settings raises.
    void autosave_eq();

    /// Sets the master from the setting "CDB". Raises 94 where that is missing and 13 or 6 for a
    /// text that is no gain.
    void autoload_db();

    /// Raises what writing the settings raises.
    void autosave_db();

    /// What the user changes from now on is also stored when it has rested; of the two, what was
    /// read.
    void keepIn(StoredSettings& stored);

    /// Replaces a file by the bands. Raises what writing raises.
    void save_teq(const std::string& path) const;

    /// Sets the bands from a file. Raises 94 for a file that cannot be read or holds no curve, 9
    /// for one with too few gains and 13 or 6 for a text that is no gain; the bands in front of
    /// the bad one are set by then.
    void load_teq(const std::string& path);

    /// Appends the names of the presets to `names`. Raises 94 where one is missing, with those in
    /// front of it appended.
    void presetNames(std::vector<std::string>& names);

    /// Sets the bands from preset `number`, counted from 1. Raises like `load_teq`.
    void loadPreset(std::int32_t number);

private:
    /// Sets the bands from ten gains. The sliders refuse a gain outside of them with a box.
    void apply(std::string_view curve);

    [[nodiscard]] std::string curve() const;

    void writeCurve(config::clsXML& xml) const;

    /// Empty where there is none.
    [[nodiscard]] std::string storedCurve();

    config::Settings& settings_;
    Equalizer& equalizer_;
    std::optional<std::string> halfRead_; ///< the curve as a damaged setting left it
    bool curveRead_ = false;              ///< there is an element for it
};

} // namespace tovik::player
