// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as logic: it owns the player's state, lists and parts, and the order of start and
// end. Needs no window system. Interface thread.
#pragma once

#include "app/StartOptions.h"
#include "app/UnkeptNotice.h"
#include "commands/Commands.h"
#include "config/clsXML.h"
#include "config/Errors.h"
#include "config/MenuTexts.h"
#include "config/MultiLNG.h"
#include "config/Version.h"
#include "host/Host.h"
#include "player/Equalizer.h"
#include "player/EqualizerFiles.h"
#include "player/EqualizerStore.h"
#include "player/frmLoadPreset.h"
#include "player/StoredSettings.h"
#include "playlist/ListKeeper.h"
#include "playlist/PlaylistFiles.h"
#include "tags/cMP3ID3v1.h"
#include "tags/TagWarning.h"
#include "window/MainView.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tovik::app {

class frmPlayer final : private playlist::ListEvents {
public:
    /// All of them outlive the player.
    frmPlayer(const host::Host& host, sound::SoundLibrary& sound, window::PlayerWindow& window,
              player::TrackEvents& events, StartOptions options);
    ~frmPlayer() override;
    frmPlayer(const frmPlayer&) = delete;
    frmPlayer& operator=(const frmPlayer&) = delete;

    /// What happens before there is a window. May end the process.
    void Form_Initialize();

    /// Window, device and lists. A failure is logged, and the rest is left undone.
    void Form_Load();

    /// Saves everything, frees the sound library and ends the process.
    void kill_me();

    /// Errors are only logged from now on: nobody is there to answer a box.
    void showNoMoreBoxes() { errors_.showNoMoreBoxes(); }

    /// Something is played that has not come to its end, or what follows it will be.
    [[nodiscard]] bool sounds() const;

    /// What plays does not end by itself.
    [[nodiscard]] bool playsForEver() const;

    // For who shows it or drives it -------------------------------------------------------------

    [[nodiscard]] window::MainElements& elements() { return view_.elements; }

    [[nodiscard]] commands::Commands& commands() { return commands_; }

    [[nodiscard]] ui::PictureStore& pictures() { return view_.pictures; }

    [[nodiscard]] ui::WindowInput& input() { return view_.skinInput; }

    [[nodiscard]] ui::AccessInput& access() { return view_.access; }

    [[nodiscard]] player::Equalizer& equalizer() { return equalizer_; }

    [[nodiscard]] player::Transport& transport() { return playback_.transport; }

    [[nodiscard]] player::RowPlayer& rows() { return playback_.rows; }

    [[nodiscard]] player::TrackAdvance& advance() { return playback_.advance; }

    [[nodiscard]] player::Crossfade& crossfade() { return playback_.crossfade; }

    [[nodiscard]] player::FadeOut& fadeOut() { return playback_.fadeOut; }

    [[nodiscard]] player::SilenceSkip& silenceSkip() { return playback_.silenceSkip; }

    [[nodiscard]] window::Panels& panels() { return view_.panels; }

    [[nodiscard]] const player::PlayerState& state() const { return state_; }

    [[nodiscard]] playlist::stdSS& stdSS() { return stdSS_; }

    [[nodiscard]] playlist::stdSS& lstTracks() { return lstTracks_; }

    [[nodiscard]] playlist::stdSS& RadioLst() { return RadioLst_; }

    [[nodiscard]] playlist::ListMirror& List1() { return List1_; }

    [[nodiscard]] const config::Errors& errors() const { return errors_; }

    [[nodiscard]] player::CBASS_TIME& time() { return playback_.time; }

    /// The texts of the language, for windows and dialogs that come and go.
    [[nodiscard]] config::MultiLNG& language() { return language_; }

    [[nodiscard]] const config::MenuTexts& menuTexts() const { return menuTexts_; }

    [[nodiscard]] const window::MainTexts& texts() const { return view_.texts; }

    /// Reads which language is set and gives its words to all windows that are open. Raises what
    /// reading a setting raises.
    void changeLanguage();

private:
    using Action = void (frmPlayer::*)();

    /// One thing that happens at the start or the end; its name says what.
    struct Step {
        const char* name;
        Action run;
        bool besideOther = false; ///< also done by a second instance that only passes by

        /// The step of the start that reads what this step of the end saves: it is not saved
        /// unless that one came to its end.
        Action reader = nullptr;
    };

    static const std::span<const Step> kInitializeSteps;
    static const std::span<const Step> kLoadSteps;
    static const std::span<const Step> kEndSteps;

    /// Takes the steps in their order until the process is told to end.
    void take(std::span<const Step> steps);

    /// Whether a step came to its end.
    [[nodiscard]] bool wasTaken(Action run) const;

    /// Saves a setting that the start can do without.
    void save(const char* key, const std::string& text);

    // Form_Initialize
    void takeFirstRun();
    void refuseOldSystem();
    void meetOtherInstance();

    // Form_Load
    void loadSkin();
    void keepFaces();
    void loadSettings();
    void lookForOtherInstance();
    void choosePanel();
    void showSplash();
    void shapeWindow();
    void readCommandLine();
    void applyTaskbar();
    void enterDataFolder();
    void checkSoundLibrary();
    void openSound();
    void openRecording();
    void drawEqualizer();
    void showVolume();
    void showModes();
    void showQuickList();
    void applyBalance();
    void showBalanceText();
    void readMessenger();
    void restoreEqualizer();
    void selectFirstRow();
    void endSplash();
    void showWindow();
    void loadLanguage();
    void openArgument();
    void makeKnown();
    void applyTopmost();
    /// Raises 53 when the helper is not there.
    void startHelper(const std::string& name, const std::string& argument);
    void associateFileTypes();
    void checkForUpdates();
    void showCaptions();
    void tellUnkept();

    /// Stands in the place of what is not built yet.
    void later() {}

    // kill_me
    void tellNothingPlays();
    void saveList();
    void hideWindow();
    void saveSettings();
    void saveEqualizer();
    void freeSound();

    // What the commands do.
    void bindCommands();
    void bindPlaying();
    void bindAdvance();
    void bindPanels();
    void bindModes();
    void bindEqualizer();
    void playItem(std::int32_t item);
    void mnuTop();
    [[nodiscard]] bool staysOnTop();

    void Timer4();
    void autoload_playlist();
    void playList();
    void startTimers();
    void openFileArgument(const std::string& path);
    [[nodiscard]] bool canReadArgument(const std::string& path);
    [[nodiscard]] bool AnotherInstance();
    void endProcess(int status);
    void endWith(const std::string& text, const std::string& title);
    void Play(const std::string& itemData) override;

    host::Host host_;
    sound::SoundLibrary& sound_;
    window::PlayerWindow& window_;
    StartOptions options_;

    bool ended_ = false;        ///< the process was told to end
    bool passingBy_ = false;    ///< another instance runs, and only one is allowed
    bool listLost_ = false;     ///< the saved list could not be read
    std::vector<Action> taken_; ///< the steps that came to their end

    player::PlayerState state_;
    player::Screen screen_;
    player::TrackNews news_;
    playlist::stdSS stdSS_;
    playlist::stdSS lstTracks_;
    playlist::stdSS RadioLst_;
    playlist::ListMirror List1_{stdSS_};

    config::clsXML settingsXml_;
    config::Settings settings_;
    player::StoredSettings stored_{settings_, state_, host_.timers};
    config::Version version_;
    config::MenuTexts menuTexts_;
    config::MultiLNG language_;
    config::ErrHandler errHandler_;
    config::Errors errors_;
    tags::TagWarning tagWarning_;
    tags::cMP3ID3v1 tag_;
    playlist::PlaylistFiles files_;
    playlist::ListKeeper listKeeper_;

    player::Core core_;
    player::Equalizer equalizer_;
    player::EqualizerStore equalizerStore_{settings_, equalizer_};
    player::EqualizerFiles equalizerFiles_;
    player::frmLoadPreset loadPreset_{equalizerStore_};
    player::Playback playback_;
    std::unique_ptr<host::Timer> Timer4_;
    commands::Commands commands_;
    window::MainView view_;
    UnkeptNotice unkept_{errors_, language_, view_.fields, options_.unkept};
};

} // namespace tovik::app
