// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Rips.h"

#include "base/Text.h"
#include "base/TimeText.h"
#include "window/PanelTable.h"

namespace tovik::app {

using commands::CommandId;
using window::MainElement;

namespace {

constexpr std::int32_t kHour = 3600;

} // namespace

Rips::Rips(const Needs& needs, const host::Host& host)
    : state_(needs.core.state), elements_(needs.elements), language_(needs.language),
      host_(host), words_{.language = needs.language,
                          .Label4 =
                              [this](std::size_t index) {
                                  return elements_.get(MainElement::Label4, index).caption;
                              }},
      progress_(needs.lstTracks, host_.clock), ripping({.core = needs.core,
                                                        .disc = needs.disc,
                                                        .form = needs.form,
                                                        .lstTracks = needs.lstTracks,
                                                        .window = needs.window,
                                                        .host = host_,
                                                        .words = words_,
                                                        .progress = progress_},
                                                       needs.warning, needs.work) {
    progress_.show = [this](const cd::RipStatus& status) { show(status); };
    ripping.hooks.showPanel = [this] { showPanel(); };
}

void Rips::bind(commands::Commands& commands) {
    const auto idle = [this] { return !state_.RipRunning; };
    commands.bind(CommandId::ripAll, {.run = [this] { ripping.mnuRipAll(); }, .enabled = idle});
    commands.bind(CommandId::ripSelected,
                  {.run = [this] { ripping.mnuRipSel(); }, .enabled = idle});
    commands.bind(CommandId::cancelRip, [this] { ripping.cancelrip(); });
}

void Rips::showPanel() {
    for (const MainElement element :
         {MainElement::cancelrip, MainElement::ripbar, MainElement::ripfill, MainElement::riplbl}) {
        window::applyPanel(elements_, state_, element);
    }
}

void Rips::show(const cd::RipStatus& status) {
    elements_.touch(MainElement::ripfill).width =
        elements_.get(MainElement::ripbar).width * status.share;
    std::string words;
    if (status.running && status.track > 0) {
        words = language_.get_Rip_String(status.secondsLeft ? config::RipText::StatusLeft
                                                            : config::RipText::Status);
        words = base::replaceAll(words, "[x]", std::to_string(status.track));
        words = base::replaceAll(words, "[y]", std::to_string(status.tracks));
        const std::int32_t left = status.secondsLeft.value_or(0);
        words = base::replaceAll(words, "[z]",
                                 left < kHour ? base::lastFive(left) : base::GetTime(left));
    }
    elements_.touch(MainElement::riplbl).caption = words;
}

} // namespace tovik::app
