// SPDX-License-Identifier: GPL-3.0-or-later
// The program's composition: its wings, and the order of its start and end. Needs no window system.
// Interface thread.
#pragma once

#include "app/Autoload.h"
#include "app/Choices.h"
#include "app/Desktop.h"
#include "app/Discs.h"
#include "app/Filling.h"
#include "app/Front.h"
#include "app/Ground.h"
#include "app/HandOver.h"
#include "app/Lists.h"
#include "app/Menus.h"
#include "app/Music.h"
#include "app/Presence.h"
#include "app/Process.h"
#include "app/Rips.h"
#include "app/Search.h"
#include "app/StartFile.h"
#include "app/Stations.h"
#include "app/Tagging.h"
#include "app/Tone.h"
#include "dialogs/DialogLogic.h"

#include <span>
#include <vector>

namespace tovik::app {

/// A wing owns the parts of one subject, binds the commands of it and offers the steps that start
/// and end take with it. A new one is a member here, a line in the constructor, rows in the tables
/// of steps.
class frmPlayer {
public:
    /// All of them outlive the player; without a shell the desktop offers nothing but windows.
    frmPlayer(const host::Host& host, sound::SoundLibrary& sound, window::PlayerWindow& window,
              window::WindowOpener& windows, player::TrackEvents& events, StartOptions options,
              window::Shell* shell = nullptr);
    frmPlayer(const frmPlayer&) = delete;
    frmPlayer& operator=(const frmPlayer&) = delete;

    /// What happens before there is a window. May end the process.
    void Form_Initialize();

    /// Window, device and lists. A failure is logged, and the rest is left undone; with
    /// `Comfort::goesOnAfterStep` it is done, and a box tells what failed.
    void Form_Load();

    /// Saves everything, frees the sound library and ends the process.
    void kill_me();

    /// Saves what `kill_me` would, and goes on. What goes wrong is only logged, for nobody is there
    /// to answer a box, and keeps nothing else from being saved.
    void saveSession();

    /// Reads which language is set and gives its words to all windows that are open. Raises what
    /// reading a setting raises.
    void changeLanguage();

    /// The record of comfort changed while the player runs: brings up to date what was made by the
    /// old one. Whoever looks at the record at each use needs nothing here. Raises what reading a
    /// setting raises.
    void applyComfort();

    // For who shows it or drives it ---------------------------------------------------------------

    [[nodiscard]] Ground& ground() { return ground_; }

    [[nodiscard]] Lists& lists() { return lists_; }

    [[nodiscard]] Filling& filling() { return filling_; }

    [[nodiscard]] Tone& tone() { return tone_; }

    [[nodiscard]] Music& music() { return music_; }

    [[nodiscard]] Tagging& tagging() { return tagging_; }

    [[nodiscard]] window::MainView& view() { return front_.view; }

    [[nodiscard]] Menus& menus() { return menus_; }

    [[nodiscard]] commands::Commands& commands() { return commands_; }

    [[nodiscard]] Stations& stations() { return stations_; }

    [[nodiscard]] DiscInfo& discInfo() { return discInfo_; }

    [[nodiscard]] Discs& discs() { return discs_; }

    [[nodiscard]] Visuals& visuals() { return visuals_; }

    [[nodiscard]] Desktop& desktop() { return desktop_; }

    [[nodiscard]] Presence& presence() { return presence_; }

    [[nodiscard]] Search& search() { return search_; }

    [[nodiscard]] Choices& choices() { return choices_; }

    [[nodiscard]] dialogs::DialogLogic dialogs() {
        return {.core = core_,
                .language = ground_.language,
                .loadPreset = tone_.loadPreset,
                .openDirectory = filling_.openDirectory,
                .jump2File = search_.jump2File,
                .jump2Track = search_.jump2Track,
                .jump2time = search_.jump2time,
                .mp3Tag = tagging_.editor,
                .preferences = choices_.preferences,
                .about = choices_.about,
                .addStation = stations_.addStation,
                .discForm = discInfo_.form,
                .discInfo = discInfo_.dialog,
                .discMatch = discInfo_.match};
    }

    // What is asked for most ----------------------------------------------------------------------

    [[nodiscard]] const player::PlayerState& state() const { return ground_.state; }

    [[nodiscard]] playlist::stdSS& stdSS() { return lists_.stdSS; }

    [[nodiscard]] playlist::ListMirror& List1() { return lists_.List1; }

    [[nodiscard]] window::MainElements& elements() { return front_.view.elements; }

    [[nodiscard]] ui::WindowInput& input() { return front_.view.skinInput; }

private:
    using Call = void (*)(frmPlayer&);

    /// One thing that happens at the start or the end; its name says what.
    struct Step {
        const char* name;
        Call call;
        bool besideOther = false; ///< also done by a second instance that only passes by

        /// The step of the start that reads what this step of the end saves: it is not saved
        /// unless that one came to its end.
        Call reader = nullptr;
    };

    static const std::span<const Step> kInitializeSteps;
    static const std::span<const Step> kLoadSteps;
    static const std::span<const Step> kEndSteps;
    static const std::span<const Step> kSessionSteps;

    /// Takes the steps in their order until the process is told to end. With
    /// `Comfort::goesOnAfterStep` one that fails is noted, under the words of the procedure.
    void take(std::span<const Step> steps, const config::Procedure& procedure);
    void take(const Step& step);
    [[nodiscard]] bool applies(const Step& step) const;

    /// The step of a wing.
    template <auto Wing, auto Method>
    static void in(frmPlayer& player) {
        ((player.*Wing).*Method)();
    }

    // Steps that more than one wing has a share in.
    static void loadSettings(frmPlayer& player);
    static void loadLanguage(frmPlayer& player);
    static void saveSettings(frmPlayer& player);

    /// Stands in the place of what is not built yet.
    static void later(frmPlayer& /*player*/) {}

    StartOptions options_;
    std::vector<Call> taken_; ///< the steps that came to their end

    Process process_;
    Ground ground_;
    Lists lists_;
    player::Core core_;
    Tone tone_;
    Music music_;
    Search search_;
    Tagging tagging_;
    Stations stations_;
    DiscInfo discInfo_;
    StartFile startFile_;
    Autoload autoload_;
    commands::Commands commands_;
    Menus menus_;
    Front front_;
    Visuals visuals_;
    Presence presence_;
    Filling filling_;
    Discs discs_;
    Rips rips_;
    Choices choices_;
    Desktop desktop_;
    HandOver handOver_;
};

} // namespace tovik::app
