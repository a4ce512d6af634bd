// SPDX-License-Identifier: GPL-3.0-or-later
// The wing that all others stand on: state, settings, language, log and errors. Interface thread.
#pragma once

#include "app/Process.h"
#include "app/StartOptions.h"
#include "app/Troubles.h"
#include "app/Unasked.h"
#include "app/UnkeptNotice.h"
#include "app/UnplayableNotice.h"
#include "config/clsXML.h"
#include "config/Errors.h"
#include "config/MenuTexts.h"
#include "config/MultiLNG.h"
#include "config/Settings.h"
#include "config/Version.h"
#include "host/Host.h"
#include "player/PlayerState.h"
#include "player/Screen.h"
#include "player/StoredSettings.h"
#include "player/TrackNews.h"
#include "window/PlayerWindow.h"

#include <string>

namespace tovik::app {

/// The parts are used as they are.
class Ground {
public:
    /// All of them outlive the wing.
    Ground(const host::Host& host, Process& process, const StartOptions& options,
           window::PlayerWindow& window);
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;

    /// What the platform offers, as all other parts are to have it: what comes from a tick of its
    /// timers is told in a line.
    [[nodiscard]] const host::Host& host() const { return watchedHost_; }

    /// Reads which language is set. Raises what reading a setting raises.
    void readLanguage();

    // Steps of the start --------------------------------------------------------------------------

    /// Before all others: even those that meet another instance look at the record.
    void readComfort();

    /// The language that an installation chose becomes the stored one; done once it is stored.
    void takeFirstRun();
    void refuseOldSystem();
    void lookForOtherInstance();
    void enterDataFolder();
    void readMessenger();
    void makeKnown();

    /// A helper that is not there is logged, here and by the next one.
    void associateFileTypes();
    void checkForUpdates();
    void showCaptions();
    void tellUnkept();

private:
    /// Saves a setting that the start can do without. Whether it is stored.
    [[nodiscard]] bool save(player::SettingKey key, const std::string& text);

    void startHelper(const std::string& name, const std::string& argument) const;

    void runTick(const host::Timer::Tick& tick) const;

    host::Host host_;
    WatchedTimers timers_;
    Process& process_;
    window::PlayerWindow& window_;
    config::clsXML settingsXml_;
    config::ErrHandler errHandler_;

public:
    player::PlayerState state;
    player::Screen screen;
    player::TrackNews news;
    config::Settings settings;
    player::StoredSettings stored;
    config::Version version;
    config::MenuTexts menuTexts;
    config::MultiLNG language;

private:
    UnaskedDialogs dialogs_;
    host::Host watchedHost_;

public:
    config::Errors errors;
    UnkeptNotice unkept;
    PassingLine line;
    UnplayableNotice unplayable;
    Troubles troubles;
};

} // namespace tovik::app
