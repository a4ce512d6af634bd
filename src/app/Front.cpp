// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Front.h"

#include "base/RuntimeError.h"
#include "skin/UnpackSkin.h"
#include "ui/Twips.h"
#include "window/MainButtons.h"
#include "window/MiniSkin.h"

#include <array>
#include <utility>

namespace tovik::app {

using commands::CommandId;
using window::TimeDisplay;

Front::Front(const window::MainView::Needs& needs, player::StoredSettings& stored,
             config::MultiLNG& language, const std::string& shippedSkin)
    : view(needs), spare(needs.core.state.comfort,
                         {shippedSkin, needs.host.paths.of(host::DataItem::SkinPackage)},
                         [&errors = needs.core.errors](const base::RuntimeError& error) {
                             errors.log(error, config::player("Load"));
                         }),
      knobs(needs.knobs), host_(needs.host), errors_(needs.core.errors), state_(needs.core.state),
      window_(needs.window), stored_(stored),
      words_(language, config::TextWindow::frmPlayer, view.texts) {
    view.skin.spareWith(spare);
}

void Front::bind(commands::Commands& commands) {
    bindPanels(commands);
    bindModes(commands);
}

void Front::enableButtons(const commands::Commands& commands) {
    window::enableButtons(view.elements, commands);
}

void Front::bindPanels(commands::Commands& commands) {
    static constexpr std::array<std::pair<CommandId, const char*>, 5> kPanels = {{
        {CommandId::mainPanel, "10000"},
        {CommandId::equalizerPanel, "01000"},
        {CommandId::playlistPanel, "00100"},
        {CommandId::ripPanel, "00010"},
        {CommandId::radioPanel, "00001"},
    }};
    for (const auto& [id, mask] : kPanels) {
        commands.bind(id, [this, mask = mask] {
            view.panels.Switch_Win(mask);
            if (panelChosen) {
                panelChosen();
            }
        });
    }
    commands.bind(CommandId::foldQuickList, {.run = [this] { view.panels.FlipQuickList(); },
                                             .checked = [this] { return state_.QuickListOpen; }});
}

void Front::bindModes(commands::Commands& commands) {
    commands.bind(CommandId::alwaysOnTop,
                  {.run = [this] { mnuTop(); }, .checked = [this] { return staysOnTop(); }});
    for (const auto& [id, mode] : {std::pair(CommandId::timeElapsed, TimeDisplay::kElapsed),
                                   std::pair(CommandId::timeRemaining, TimeDisplay::kRemaining)}) {
        commands.bind(id,
                      {.run = [this, mode = mode] { view.timeDisplay.choose(mode); },
                       .checked = [this, mode = mode] { return state_.TimeDisplayMode == mode; }});
    }
}

bool Front::staysOnTop() {
    stored_.read("ASOT");
    return state_.AlwaysOnTop == 1;
}

void Front::mnuTop() {
    // The setting is what is toggled, whatever the window does.
    const bool topmost = !staysOnTop();
    window_.mini().setTopmost(topmost);
    window_.setTopmost(topmost);
    state_.AlwaysOnTop = topmost ? 1 : 0;
    stored_.save("ASOT");
}

void Front::notePlace() {
    // Shown is what the start has come past: see `showWindow`.
    if (state_.LoadFinished) {
        state_.WindowLeft = window_.left() * ui::kTwipsPerPixel;
        state_.WindowTop = window_.top() * ui::kTwipsPerPixel;
    }
}

void Front::loadSkin() {
    if (!state_.comfort.completesSkin) {
        skin::UnpackSkin(host_.paths, host_.dialogs);
    } else {
        bool whole = true;
        try {
            whole = skin::mendSkin(host_.paths, window::skinFiles());
        } catch (const base::RuntimeError& error) {
            // Without a folder there are still the spare pictures.
            errors_.log(error, config::player("Load"));
        }
        if (!whole && state_.comfort.tellsForeignSkin && foreignSkin) {
            foreignSkin(host_.paths.of(host::DataItem::SkinPackage));
        }
    }
    view.skin.LoadMainSkin();
}

void Front::choosePanel() {
    state_.CurrentPanel = 1;
}

void Front::showSplash() {
    if (state_.ShowSplash) {
        window_.showSplash();
    }
}

void Front::keepFaces() {
    view.skin.SaveUpPictures();
    view.panels.RefreshTabs();
}

void Front::shapeWindow() {
    view.shapeWindow();
}

void Front::applyTaskbar() {
    window_.setTaskbarButton(state_.ShowInTaskbar == 1);
}

void Front::drawEqualizer() {
    view.sliders.draw();
}

void Front::showVolume() {
    stored_.read("CVL");
    view.volumeBar.showHeight();
}

void Front::showModes() {
    stored_.read("TMD");
    view.showModes();
}

void Front::showQuickList() {
    stored_.read("QPL");
    view.panels.ApplyQuickList();
}

void Front::endSplash() {
    if (state_.ShowSplash) {
        window_.endSplash();
    }
}

void Front::readPlaces() {
    if (state_.comfort.keepsPlaces && state_.WindowPlaces.empty()) {
        stored_.read("WPL");
    }
}

void Front::followComfort() {
    readPlaces();
    window::applyPanel(view.elements, state_);
}

void Front::showWindow() {
    stored_.read("X");
    stored_.read("Y");
    readPlaces();
    window_.moveTo(state_.WindowLeft / ui::kTwipsPerPixel, state_.WindowTop / ui::kTwipsPerPixel);
    window_.show();
    state_.LoadFinished = true;
}

void Front::showBalanceText() {
    view.balanceBar.showStartText();
}

void Front::applyTopmost() {
    window_.setTopmost(staysOnTop());
}

void Front::hideWindow() {
    window_.hide();
}

} // namespace tovik::app
