// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as logic: it owns the player's state, lists and parts, and the order of start and
// end. Needs no window system. Interface thread.
#pragma once

#include "app/StartOptions.h"
#include "app/UnkeptNotice.h"
#include "commands/ClsShortcut.h"
#include "commands/Commands.h"
#include "config/clsXML.h"
#include "config/ErrHandler.h"
#include "config/Errors.h"
#include "config/MenuTexts.h"
#include "config/MultiLNG.h"
#include "config/Settings.h"
#include "config/Version.h"
#include "host/Host.h"
#include "player/Equalizer.h"
#include "player/EqualizerFiles.h"
#include "player/EqualizerStore.h"
#include "player/frmLoadPreset.h"
#include "player/NowPlaying.h"
#include "player/Playback.h"
#include "player/PlayerState.h"
#include "player/PlayerWindow.h"
#include "player/StoredSettings.h"
#include "player/TrackEvents.h"
#include "playlist/ListKeeper.h"
#include "playlist/ListMirror.h"
#include "playlist/PlaylistFiles.h"
#include "playlist/stdSS.h"
#include "sound/SoundLibrary.h"
#include "tags/cMP3ID3v1.h"
#include "tags/TagWarning.h"
#include "ui/cDIBSectionRegion.h"
#include "ui/ImgScroller.h"
#include "ui/MainElements.h"
#include "window/ElementActions.h"
#include "window/EqualizerInput.h"
#include "window/MainBars.h"
#include "window/MainDisplay.h"
#include "window/MainInput.h"
#include "window/MainSkin.h"
#include "window/MainTexts.h"
#include "window/Panels.h"
#include "window/RotatingCaption.h"
#include "window/SkinInput.h"
#include "window/TextFields.h"
#include "window/TimeDisplay.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tovik::app {

class frmPlayer final : private playlist::ListEvents {
public:
    /// All of them outlive the player.
    frmPlayer(const host::Host& host, sound::SoundLibrary& sound, player::PlayerWindow& window,
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

    [[nodiscard]] ui::MainElements& elements() { return elements_; }

    [[nodiscard]] commands::Commands& commands() { return commands_; }

    [[nodiscard]] ui::PictureStore& pictures() { return pictures_; }

    [[nodiscard]] ui::WindowInput& input() { return skinInput_; }

    [[nodiscard]] ui::AccessInput& access() { return access_; }

    [[nodiscard]] player::Equalizer& equalizer() { return equalizer_; }

    [[nodiscard]] player::Transport& transport() { return playback_.transport; }

    [[nodiscard]] player::TrackAdvance& advance() { return playback_.advance; }

    [[nodiscard]] player::Crossfade& crossfade() { return playback_.crossfade; }

    [[nodiscard]] player::FadeOut& fadeOut() { return playback_.fadeOut; }

    [[nodiscard]] player::SilenceSkip& silenceSkip() { return playback_.silenceSkip; }

    [[nodiscard]] window::Panels& panels() { return panels_; }

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

    [[nodiscard]] const window::MainTexts& texts() const { return texts_; }

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

    /// Draws the title as far as it has moved.
    void drawTitle(std::u32string_view characters);

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
    player::PlayerWindow& window_;
    player::TrackEvents& events_;
    StartOptions options_;

    bool ended_ = false;        ///< the process was told to end
    bool passingBy_ = false;    ///< another instance runs, and only one is allowed
    bool listLost_ = false;     ///< the saved list could not be read
    std::vector<Action> taken_; ///< the steps that came to their end

    player::PlayerState state_;
    ui::MainElements elements_{ui::mainLayout()};
    ui::PictureStore pictures_;
    ui::cDIBSectionRegion shape_;
    player::NowPlaying playing_;
    playlist::stdSS stdSS_;
    playlist::stdSS lstTracks_;
    playlist::stdSS RadioLst_;
    playlist::ListMirror List1_{stdSS_};

    config::clsXML settingsXml_;
    config::Settings settings_;
    player::StoredSettings stored_{settings_, state_, host_.timers};
    config::Version version_;
    window::MainTexts texts_{elements_};
    config::MenuTexts menuTexts_;
    config::MultiLNG language_;
    config::ErrHandler errHandler_;
    config::Errors errors_;
    tags::TagWarning tagWarning_;
    tags::cMP3ID3v1 tag_;
    playlist::PlaylistFiles files_;
    playlist::ListKeeper listKeeper_;

    window::TextFields fields_{elements_, pictures_};
    UnkeptNotice unkept_{errors_, language_, fields_, options_.unkept};
    ui::ImgScroller scroller_;
    window::MainDisplay display_;
    player::Equalizer equalizer_;
    player::EqualizerStore equalizerStore_{settings_, equalizer_};
    player::EqualizerFiles equalizerFiles_;
    player::frmLoadPreset loadPreset_{equalizerStore_};
    player::Playback playback_;
    std::unique_ptr<host::Timer> Timer4_;
    std::unique_ptr<host::Timer> Timer5_;
    window::RotatingCaption caption_{state_, errors_, playing_, display_};
    std::unique_ptr<host::Timer> Timer6_ = host_.timers.makeTimer([this] { panels_.Timer6(); });
    window::Panels panels_{state_, elements_, window_, errors_, *Timer6_};

    window::TimeDisplay timeDisplay_{state_, playing_, display_};
    window::MainBars bars_{elements_, playback_.positionBar, playback_.volumeBar,
                           playback_.balance};
    window::EqualizerInput equalizerInput_{equalizer_};
    commands::Commands commands_;
    commands::ClsShortcut shortcuts_{commands_};
    window::MainInput input_;
    window::ElementActions access_{{.state = state_,
                                    .playing = playing_,
                                    .elements = elements_,
                                    .commands = commands_,
                                    .position = playback_.positionBar,
                                    .volume = playback_.volumeBar,
                                    .balance = playback_.balance,
                                    .equalizer = equalizer_,
                                    .timeDisplay = timeDisplay_}};
    window::MainSkin skin_{
        elements_, pictures_, host_.paths, [this] { panels_.RefreshTabs(); },
        [this](int width, int height) { return window_.fitsScreen(width, height); }};
    window::FlatFaces flatFaces_{elements_};
    window::SkinInput skinInput_{skin_, flatFaces_, panels_, errors_, input_};
};

} // namespace tovik::app
