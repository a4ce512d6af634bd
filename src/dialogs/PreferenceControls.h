// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the preferences on the screen, made from their table. Interface thread.
#pragma once

#include "preferences/frmPreferences.h"

#include <array>
#include <QLabel>
#include <QWidget>
#include <string_view>

namespace tovik::dialogs {

/// What stands beside a control, by the names that languages know; empty: nothing.
struct ControlLine {
    preferences::Control control{};
    std::string_view caption{}; ///< before it
    std::string_view value{};   ///< behind a slider: what it is set to
    std::string_view unit{};    ///< behind that, or what the far end of a slider means
};

/// The line of a control; a bare one where nothing stands beside it.
[[nodiscard]] ControlLine lineOf(preferences::Control control) noexcept;

class PreferenceControls {
public:
    /// The logic outlives the object. The controls become children of whoever lays them out.
    explicit PreferenceControls(preferences::frmPreferences& logic) : logic_(logic) {}

    PreferenceControls(const PreferenceControls&) = delete;
    PreferenceControls& operator=(const PreferenceControls&) = delete;

    /// Makes a control; each once. What the user does with it goes to the logic.
    QWidget& make(preferences::Control control);

    /// A text that shows the number of a slider.
    QLabel& makeValue(preferences::Control control);

    /// Shows what the logic holds.
    void show();

private:
    using Control = preferences::Control;

    QWidget& makeCheck(Control control);
    QWidget& makeSlider(const preferences::ControlRow& row);
    QWidget& makeChoice(Control control);
    QWidget& makeTicks();
    QWidget& makeFolder(Control control);
    void showOne(const preferences::ControlRow& row, QWidget& widget);
    void showTicks(QWidget& widget);
    void takeTicks();
    void choose(Control control, int place);

    template <typename Operation>
    void change(const Operation& operation) {
        operation();
        show();
    }

    preferences::frmPreferences& logic_;
    std::array<QWidget*, preferences::kControls> made_{}; ///< their layouts' object tree owns them
    std::array<QLabel*, preferences::kControls> values_{};
};

} // namespace tovik::dialogs
