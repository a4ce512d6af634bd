// SPDX-License-Identifier: GPL-3.0-or-later
// What the controls of the preferences are set to, and which of them move each other. Interface
// thread.
#pragma once

#include "preferences/PreferenceTable.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::preferences {

/// Which rows of `List1` are ticked.
using Ticks = std::bitset<kFileTypes>;

/// The bit rate of each format in kbps, that of the first fixed.
using Rates = std::array<std::int32_t, kFormats.size()>;

class PreferenceValues {
public:
    /// Of a tick 1 and 0; of a choice its place, -1 for none.
    [[nodiscard]] std::int32_t number(Control control) const { return numbers_.at(at(control)); }

    [[nodiscard]] bool ticked(Control control) const { return number(control) == 1; }

    [[nodiscard]] const std::string& text(Control control) const { return texts_.at(at(control)); }

    [[nodiscard]] const Ticks& types() const { return types_; }

    [[nodiscard]] const Rates& rates() const { return rates_; }

    /// The number is held to the control's range and steps. Of the ticks for the volume one is
    /// always on; the bit rate belongs to the format that is chosen, and choosing one brings its
    /// own.
    void setNumber(Control control, std::int32_t number);

    /// Of the format: also its place in the list; one that is not there has none and is kept.
    void setText(Control control, std::string_view text);

    void setTypes(const Ticks& types);

    /// That of the chosen format shows at once.
    void setRates(const Rates& rates);

    [[nodiscard]] const base::ComfortChoices& comfort() const { return comfort_; }

    /// A tick of a switch shows whether it is on, by itself or as the master is.
    void setComfort(const base::ComfortChoices& choices);

    /// The chosen format has a bit rate that is a choice.
    [[nodiscard]] bool choosesRate() const { return number(Control::Combo1) > 0; }

    /// What stands beside the slider of the bit rate: "128 kbps".
    [[nodiscard]] std::string rateText() const;

    /// The control was read or set: what it shows is no mere beginning.
    [[nodiscard]] bool known(Control control) const { return known_.test(at(control)); }

private:
    static constexpr std::size_t at(Control control) { return static_cast<std::size_t>(control); }

    void put(Control control, std::int32_t number);
    void showRate();

    std::array<std::int32_t, kControls> numbers_{};
    std::array<std::string, kControls> texts_;
    Ticks types_;
    Rates rates_{kWaveRate, 128, 128, 128, 128, 128};
    base::ComfortChoices comfort_;
    std::bitset<kControls> known_;
};

} // namespace tovik::preferences
