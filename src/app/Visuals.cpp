// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Visuals.h"

#include "config/SettingText.h"
#include "player/LiveSetting.h"

namespace tovik::app {

using commands::CommandId;

namespace {

constexpr std::int16_t kNone = -1;
constexpr std::int16_t kBuiltin = 0;

} // namespace

Visuals::Visuals(const player::Core& core, const window::PlayerWindow& window,
                 window::MainElements& elements, ui::PictureStore& pictures)
    : area_(window, elements, pictures), spectrum(core, area_), core_(core) {
    core_.news.add(*this);
}

Visuals::~Visuals() {
    core_.news.remove(*this);
}

void Visuals::bind(commands::Commands& commands) {
    commands.bind(CommandId::visualisationNone,
                  {.run = [this] { choose(kNone); },
                   .checked = [this] { return !core_.state.BuiltinVisOn; }});
    commands.bind(CommandId::visualisationSpectrum,
                  {.run = [this] { choose(kBuiltin); },
                   .checked = [this] { return core_.state.BuiltinVisOn; }});
}

void Visuals::readSpeed() {
    spectrum.setSpeed(player::readLive(core_.settings, "VPS", config::settingToInt16));
}

void Visuals::select() {
    core_.state.BuiltinVisOn = core_.state.CurrentVisPlugin == kBuiltin;
    restartVisualisation();
}

void Visuals::choose(std::int16_t number) {
    core_.state.CurrentVisPlugin = number;
    spectrum.StopSpectrum();
    select();
}

void Visuals::free() {
    spectrum.StopSpectrum();
}

void Visuals::restartVisualisation() {
    if (core_.state.BuiltinVisOn) {
        spectrum.StartSpectrum();
    }
}

void Visuals::stopVisualisation() {
    spectrum.StopSpectrum();
}

} // namespace tovik::app
