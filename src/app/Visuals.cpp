// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Visuals.h"

#include "base/Text.h"
#include "config/SettingText.h"
#include "player/LiveSetting.h"

#include <utility>
#include <vector>

namespace tovik::app {

using commands::CommandId;

namespace {

constexpr std::int16_t kNone = -1;
constexpr std::int16_t kBuiltin = 0;

/// The entry of the first plug-in, in the menu and in the settings.
constexpr int kFirstPlugin = 3;

/// After the start, when nobody waits for anything.
constexpr int kLookMs = 500;

constexpr int kLostNotice = 11; ///< of the language's notices

} // namespace

Visuals::Visuals(Needs needs)
    : area_({.window = needs.window,
             .elements = needs.elements,
             .pictures = needs.pictures,
             .area = ui::addressOf(window::MainElement::Picture1),
             .store = needs.elements,
             .bars = ui::addressOf(window::MainElement::Picture2)}),
      spectrum(needs.core, needs.host.clock, area_), sonVis({.core = needs.core,
                                                             .watches = needs.host.watches,
                                                             .paths = needs.host.paths,
                                                             .lost = [this] { lost(); }},
                                                            area_),
      n_(std::move(needs)), shelf_(n_.core, n_.host.watches, [this] { filled(); }),
      later_(n_.core.timers.makeTimer([this] {
          later_->setEnabled(false);
          look();
      })) {
    n_.core.news.add(*this);
    later_->setInterval(kLookMs);
    n_.menus.bindVisualisations({.choose = [this](int index) { choose(index + kFirstPlugin); },
                                 .chosen =
                                     [this](int index) {
                                         return n_.core.state.VisOn &&
                                                n_.core.state.CurrentVisPlugin ==
                                                    index + kFirstPlugin;
                                     },
                                 .wanted = [this] { look(); }});
}

Visuals::~Visuals() {
    n_.core.news.remove(*this);
}

void Visuals::bind(commands::Commands& commands) {
    const player::PlayerState& state = n_.core.state;
    commands.bind(CommandId::visualisationNone,
                  {.run = [this] { choose(kNone); },
                   .checked = [&state] { return !state.BuiltinVisOn && !state.VisOn; }});
    commands.bind(
        CommandId::visualisationSpectrum,
        {.run = [this] { choose(kBuiltin); }, .checked = [&state] { return state.BuiltinVisOn; }});
}

void Visuals::readSpeed() {
    setSpeed(player::readLive(n_.core.settings, "VPS", config::settingToInt16));
}

void Visuals::setSpeed(int milliseconds) {
    spectrum.setSpeed(milliseconds);
    sonVis.setSpeed(milliseconds);
}

void Visuals::stirVisualisation() {
    spectrum.stir();
    if (n_.core.state.VisOn) {
        sonVis.stir();
    }
}

void Visuals::look() {
    std::vector<std::string> folders = {n_.host.paths.of(host::DataItem::VisualPlugins)};
    if (!n_.shippedVisuals.empty()) {
        folders.push_back(n_.shippedVisuals);
    }
    shelf_.look({.knownNames = n_.host.paths.of(host::DataItem::VisualNames),
                 .folders = std::move(folders)});
}

void Visuals::filled() {
    std::vector<std::string> names;
    for (const sound::VisualFile& file : *shelf_.files()) {
        names.push_back(file.name);
    }
    n_.menus.addVisualisations(names);
    if (n_.core.state.CurrentVisPlugin >= kFirstPlugin && !n_.core.state.VisOn) {
        take();
    }
}

const sound::VisualFile* Visuals::chosenFile() const {
    const int index = n_.core.state.CurrentVisPlugin - kFirstPlugin;
    const auto& files = shelf_.files();
    if (index < 0 || !files || static_cast<std::size_t>(index) >= files->size()) {
        return nullptr;
    }
    const sound::VisualFile& file = files->at(static_cast<std::size_t>(index));
    return file.name.empty() ? nullptr : &file;
}

void Visuals::select() {
    if (n_.core.state.CurrentVisPlugin >= kFirstPlugin) {
        look();
    } else {
        later_->setEnabled(true);
    }
    take();
}

/// What `CurrentVisPlugin` names is on from now.
void Visuals::take() {
    player::PlayerState& state = n_.core.state;
    state.BuiltinVisOn = state.CurrentVisPlugin == kBuiltin;
    state.VisOn = chosenFile() != nullptr;
    restartVisualisation();
}

void Visuals::choose(int number) {
    n_.core.state.CurrentVisPlugin = static_cast<std::int16_t>(number);
    spectrum.StopSpectrum();
    sonVis.stopSonVis();
    sonVis.free();
    take();
}

void Visuals::free() {
    leaveFullScreen();
    spectrum.StopSpectrum();
    sonVis.stopSonVis();
    sonVis.free();
}

/// A plug-in goes on from track to track.
void Visuals::restartVisualisation() {
    if (n_.core.state.BuiltinVisOn) {
        sonVis.set_builtin_vis();
        spectrum.StartSpectrum();
    } else if (const sound::VisualFile* const file = chosenFile();
               n_.core.state.VisOn && file != nullptr) {
        if (sonVis.running() && sonVis.path() == file->path) {
            sonVis.stir();
        } else {
            sonVis.StartSonVis(file->path);
        }
    }
}

void Visuals::stopVisualisation() {
    spectrum.StopSpectrum();
    sonVis.stopSonVis();
}

/// The next start does not begin it, either.
void Visuals::lost() {
    const sound::VisualFile* const file = chosenFile();
    const std::string name = file != nullptr ? file->name : std::string();
    n_.core.state.CurrentVisPlugin = kNone;
    n_.core.state.VisOn = false;
    leaveFullScreen();
    const std::string words =
        base::replaceAll(n_.language.get_Notice_String(kLostNotice), "[x]", name);
    n_.core.errors.log(
        base::RuntimeError(base::ErrorNumber::DeviceIoError, words + " (" + sonVis.path() + ")"),
        config::procedureOf("TSR", "Load"));
    current_->tell(words);
}

void Visuals::showIn(VisualElement* area) {
    leaveFullScreen();
    stopVisualisation();
    // It begins anew in the other window, if it wants to be there.
    sonVis.free();
    current_ = area != nullptr ? area : &area_;
    spectrum.drawIn(*current_);
    sonVis.drawIn(*current_);
    restartVisualisation();
}

void Visuals::clickVisual(int x, int y) {
    sonVis.click(x, y);
}

void Visuals::doubleClickVisual() {
    if (full_) {
        leaveFullScreen();
        return;
    }
    if (!n_.core.state.BuiltinVisOn && !sonVis.running()) {
        return;
    }
    std::unique_ptr<window::FullScreen> screen =
        n_.window.makeFullScreen({.leave = [this] { leaveFullScreen(); },
                                  .clicked = [this](int x, int y) { sonVis.click(x, y); },
                                  .cameInSight = [this] { stirVisualisation(); }});
    if (screen) {
        full_ = std::make_unique<FullScreenArea>(std::move(screen));
        spectrum.drawIn(*full_);
        sonVis.drawIn(*full_);
    }
}

void Visuals::leaveFullScreen() {
    if (const std::unique_ptr<FullScreenArea> left = std::move(full_); left) {
        spectrum.drawIn(*current_);
        sonVis.drawIn(*current_);
    }
}

} // namespace tovik::app
