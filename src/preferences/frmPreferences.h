// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences as logic: reads the settings into the controls, writes them back and lets them
// act in the running player. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "host/Paths.h"
#include "player/Core.h"
#include "player/SilenceSkip.h"
#include "preferences/frmRipDir.h"
#include "preferences/PreferenceValues.h"
#include "preferences/ShortcutList.h"
#include "window/PlayerWindow.h"
#include "window/WindowOpener.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tovik::preferences {

/// What of the program the preferences reach beyond the player. An empty one is not there.
struct PreferenceHooks {
    std::function<void()> changeLanguage{};               ///< to that of the settings
    std::function<void(bool shown)> tray{};               ///< also when its icon changed
    std::function<void(std::int32_t ms)> spectrumSpeed{}; ///< the time between two pictures
    std::function<void()>
        comfort{}; ///< its record changed: what was made by the old one is made anew
    std::function<void(std::span<const std::string> extensions)> associate{};
};

class frmPreferences {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        player::SilenceSkip& silenceSkip;
        window::PlayerWindow& window;
        window::WindowOpener& windows;
        const config::MultiLNG& language;
        const host::Paths& paths;
        std::string shippedFolder{}; ///< of files that the data folder lacks
    };

    explicit frmPreferences(Needs needs) : p_(std::move(needs)) {}

    frmPreferences(const frmPreferences&) = delete;
    frmPreferences& operator=(const frmPreferences&) = delete;

    PreferenceHooks hooks;

    /// The rows of `Shortcuts`.
    ShortcutList shortcuts;

    /// Where a folder is asked for.
    frmRipDir ripDir;

    /// What the controls show; who shows them sets it.
    [[nodiscard]] PreferenceValues& values() { return values_; }

    /// Begins anew, on the page that `openOn` told: the values of the settings, no change kept.
    void Form_Load();

    /// Opens the window on that page.
    void openOn(Page page);

    /// Fills the controls from the settings. An error is shown; what comes behind it is not known
    /// and, unless it is set by hand, not written.
    void get_settings();

    /// Writes the settings, and lets them act. Returns false after an error, which was shown: then
    /// nothing is written and nothing acts.
    bool save_settings();

    /// The page that shows.
    [[nodiscard]] Page page() const { return page_; }

    /// Another tab was chosen.
    void swich_tab(Page page) { page_ = page; }

    // The buttons ---------------------------------------------------------------------------------

    /// OK. Returns whether the window closes.
    bool Command1_Click() { return save_settings(); }

    /// OK that stays open.
    void Command7_Click() { save_settings(); }

    enum class TypeButton : std::uint8_t { associate, all, none }; ///< by the index of `Command2`

    void Command2_Click(TypeButton button);

    [[nodiscard]] bool canAssociate() const { return static_cast<bool>(hooks.associate); }

    /// Asks for the folder of a label.
    void chooseFolder(Control label);

    /// The command line decides: what the page of comfort is set to counts from the next run on.
    [[nodiscard]] bool comfortIsOfRun() const { return p_.core.state.ComfortOfRun.has_value(); }

    /// What the user goes on to has a crossfade time of its own, as the page of comfort is set by
    /// now, or the command line says.
    [[nodiscard]] bool choosesShorterFade() const;

    // The lists -----------------------------------------------------------------------------------

    /// The languages that there are, by their names.
    [[nodiscard]] std::vector<std::string> Combo3() const { return p_.language.names(); }

    /// A language was chosen: it is stored, and every open window bears its words at once.
    void Combo3_Click(const std::string& name);

    /// What is new in each version; empty where nothing tells it.
    [[nodiscard]] std::string VersionHist() const;

private:
    void apply(Effect effect);
    void changeComfort();
    void applyMode(bool player::PlayerState::*flag, Control control, player::Mode mode);

    Needs p_;
    PreferenceValues values_;
    Page page_ = Page::general;
    Page first_ = Page::general; ///< of the next opening
};

} // namespace tovik::preferences
