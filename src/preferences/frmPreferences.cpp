// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/frmPreferences.h"

#include "base/RegularFile.h"
#include "player/LiveSetting.h"
#include "preferences/StoredPreferences.h"
#include "ui/Twips.h"

#include <array>
#include <optional>
#include <utility>

namespace tovik::preferences {

namespace {

constexpr const char* kVersionHistory = "vh.txt";
constexpr std::int64_t kMostHistoryBytes = 1 << 20;

constexpr auto kModes = std::to_array<std::pair<Control, bool player::PlayerState::*>>({
    {Control::Check7, &player::PlayerState::CrossfadeOn},
    {Control::Check8, &player::PlayerState::SilenceSkipOn},
    {Control::Check10, &player::PlayerState::ShuffleOn},
    {Control::Check11, &player::PlayerState::RepeatOn},
});

/// Runs the body; an error ends it there and is shown. Returns whether there was none.
template <typename Body>
bool trap(const config::Errors& errors, const Body& body) {
    try {
        body();
        return true;
    } catch (...) {
        errors.tell(config::currentError());
        return false;
    }
}

} // namespace

void frmPreferences::openOn(Page page) {
    first_ = page;
    p_.windows.open(window::WindowId::preferences);
    first_ = Page::general;
}

void frmPreferences::Form_Load() {
    page_ = first_;
    get_settings();
    shortcuts.load();
}

void frmPreferences::get_settings() {
    values_ = {};
    trap(p_.core.errors, [&] { readPreferences(p_.core.settings, values_); });
    // The settings keep these at the end of the program: until then the player knows better.
    for (const auto& [control, flag] : kModes) {
        if (values_.known(control) && p_.core.state.LoadFinished) {
            values_.setNumber(control, p_.core.state.*flag ? 1 : 0);
        }
    }
}

bool frmPreferences::save_settings() {
    player::PlayerState& state = p_.core.state;
    // Before the start has put the window where the settings say, its place is nobody's choice.
    std::optional<WindowPlace> place;
    if (state.LoadFinished) {
        place = {p_.window.left() * ui::kTwipsPerPixel, p_.window.top() * ui::kTwipsPerPixel};
    }
    return trap(p_.core.errors, [&] {
        writePreferences(p_.core.settings, values_, place);
        if (place) {
            state.WindowLeft = place->left;
            state.WindowTop = place->top;
        }
        for (const ControlRow& row : controlTable()) {
            if (values_.known(row.control)) {
                apply(row.effect);
            }
        }
        shortcuts.apply();
    });
}

void frmPreferences::applyMode(bool player::PlayerState::*flag, Control control,
                               player::Mode mode) {
    p_.core.state.*flag = values_.ticked(control);
    p_.core.screen.showMode(mode);
}

void frmPreferences::changeComfort() {
    player::PlayerState& state = p_.core.state;
    const base::Comfort wanted = values_.comfort().record();
    if (state.ComfortOfRun || state.comfort == wanted) {
        return;
    }
    state.comfort = wanted;
    if (hooks.comfort) {
        hooks.comfort();
    }
}

void frmPreferences::apply(Effect effect) {
    player::PlayerState& state = p_.core.state;
    switch (effect) {
    case Effect::topmost:
        state.AlwaysOnTop = values_.ticked(Control::Check3) ? 1 : 0;
        p_.window.setTopmost(state.AlwaysOnTop == 1);
        p_.window.mini().setTopmost(state.AlwaysOnTop == 1);
        break;
    case Effect::shuffle:
        applyMode(&player::PlayerState::ShuffleOn, Control::Check10, player::Mode::shuffle);
        break;
    case Effect::repeat:
        applyMode(&player::PlayerState::RepeatOn, Control::Check11, player::Mode::repeat);
        break;
    case Effect::crossfade:
        applyMode(&player::PlayerState::CrossfadeOn, Control::Check7, player::Mode::crossfade);
        break;
    case Effect::silenceSkip:
        applyMode(&player::PlayerState::SilenceSkipOn, Control::Check8, player::Mode::silenceSkip);
        p_.silenceSkip.watch();
        break;
    case Effect::threshold:
        if (state.SilenceSkipOn) {
            p_.silenceSkip.readThreshold();
        }
        break;
    case Effect::tray:
        if (hooks.tray) {
            hooks.tray(values_.ticked(Control::Check5));
        }
        break;
    case Effect::spectrum:
        if (hooks.spectrumSpeed) {
            hooks.spectrumSpeed(values_.number(Control::Slider4));
        }
        break;
    case Effect::comfort:
        changeComfort();
        break;
    case Effect::messenger:
        state.MessengerOn = values_.ticked(Control::Check17);
        break;
    case Effect::nextStart:
    case Effect::nextUse:
    case Effect::language:
        break;
    }
}

void frmPreferences::Command2_Click(TypeButton button) {
    if (button != TypeButton::associate) {
        values_.setTypes(button == TypeButton::all ? Ticks().set() : Ticks());
        return;
    }
    std::vector<std::string> extensions;
    for (std::size_t row = 0; row < kFileTypes; ++row) {
        if (values_.types().test(row)) {
            extensions.emplace_back(fileTypes()[row]);
        }
    }
    if (canAssociate()) {
        trap(p_.core.errors, [&] { hooks.associate(extensions); });
    }
}

void frmPreferences::chooseFolder(Control label) {
    ripDir.begin(values_.text(label));
    p_.windows.open(window::WindowId::ripFolder);
    if (ripDir.chosen()) {
        values_.setText(label, *ripDir.chosen());
    }
}

bool frmPreferences::choosesShorterFade() const {
    return (comfortIsOfRun() ? p_.core.state.comfort : values_.comfort().record())
        .shortensManualNext;
}

void frmPreferences::Combo3_Click(const std::string& name) {
    values_.setText(Control::Combo3, name);
    trap(p_.core.errors, [&] {
        player::storeText(p_.core.settings, "CLNG", name);
        p_.core.state.LanguageFile = name;
        if (hooks.changeLanguage) {
            hooks.changeLanguage();
        }
    });
}

std::string frmPreferences::VersionHist() const {
    std::string text;
    if (base::readWholeFile(p_.paths.inside(kVersionHistory), text, kMostHistoryBytes) &&
        !p_.shippedFolder.empty()) {
        text.clear();
        if (base::readWholeFile(host::Paths(p_.shippedFolder).inside(kVersionHistory), text,
                                kMostHistoryBytes)) {
            text.clear();
        }
    }
    return text;
}

} // namespace tovik::preferences
