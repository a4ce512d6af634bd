// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainButtons.h"

#include <array>

namespace tovik::window {

namespace {

using N = MainElement;
using Id = commands::CommandId;

constexpr auto kPress = std::to_array<PressButton>({
    {N::backupIMG, N::backdownIMG, Id::previousButton},
    {N::playup, N::playdown, Id::play},
    {N::pauseup, N::pausedown, Id::pause},
    {N::stopup, N::stopdown, Id::stop},
    {N::nextup, N::nextdown, Id::nextButton},
    {N::fileup, N::filedown, Id::addFile},
    {N::closeup, N::closedown, Id::exit},
    {N::minon, N::minoff, Id::minimise},
    {N::minmodeUP, N::minmodeDown, Id::miniMode},
});

constexpr auto kClick = std::to_array<ClickButton>({
    {N::ShuffleBT, 0, Id::shuffle},        {N::LoopBT, 0, Id::repeat},
    {N::CfdBT, 0, Id::crossfade},          {N::sldBT, 0, Id::silenceSkip},
    {N::qpl_but, 0, Id::foldQuickList},    {N::mainbt, 0, Id::mainPanel},
    {N::eqbt, 0, Id::equalizerPanel},      {N::plbt, 0, Id::playlistPanel},
    {N::ripbt, 0, Id::ripPanel},           {N::irtbt, 0, Id::radioPanel},
    {N::EQ_on, 0, Id::equalizer},          {N::EQ_off, 0, Id::equalizer},
    {N::resetbt, 0, Id::resetEqualizer},   {N::presetbt, 0, Id::presetMenu},
    {N::addfileIMG, 0, Id::addFile},       {N::adddirIMG, 0, Id::addFolder},
    {N::addlocIMG, 0, Id::locationButton}, {N::delIMG, 0, Id::removeFromList},
    {N::clrIMG, 0, Id::clearList},         {N::loadImg, 0, Id::loadList},
    {N::SaveImg, 0, Id::saveList},         {N::ripperbt, 0, Id::ripMenu},
    {N::cancelrip, 0, Id::cancelRip},      {N::Image1, 0, Id::radioPlay},
    {N::Image1, 1, Id::addStation},        {N::Image1, 2, Id::radioDelete},
    {N::Image1, 3, Id::startRecording},    {N::Image1, 4, Id::endRecording},
});

} // namespace

std::span<const PressButton> pressButtons() noexcept {
    return kPress;
}

std::span<const ClickButton> clickButtons() noexcept {
    return kClick;
}

void enableButtons(MainElements& elements, const commands::Commands& commands) {
    for (const PressButton& button : kPress) {
        const bool bound = commands.bound(button.command);
        elements.touch(button.up).enabled = bound;
        elements.touch(button.down).enabled = bound;
    }
    for (const ClickButton& button : kClick) {
        elements.touch(button.name, button.index).enabled = commands.bound(button.command);
    }
    // The one tab that acts when it is pressed.
    elements.touch(N::prebt).enabled = commands.bound(Id::preferences);
}

} // namespace tovik::window
