// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainView.h"

#include "window/WindowOutline.h"

#include <array>
#include <string>

namespace tovik::window {

MainView::MainView(const Needs& needs)
    : core(needs.core), window(needs.window),
      scroller(core.timers, [this](std::u32string_view characters) { drawTitle(characters); }),
      display(core.state, elements, fields, scroller,
              [this](const std::string& text) { window.setCaption(text); }),
      modes(core.state, elements),
      sliders(core.state, needs.knobs.equalizer, elements, needs.host.dialogs),
      volumeBar(core, needs.knobs.volume, elements),
      balanceBar(core, needs.knobs.balance, elements),
      positionBar(core, needs.knobs.seek, elements, window), grips{.position = positionBar,
                                                                   .volume = volumeBar,
                                                                   .balance = balanceBar,
                                                                   .sliders = sliders},
      caption(core), panels(core, elements, window), timeDisplay(core), shortcuts(needs.commands),
      input({.core = core,
             .elements = elements,
             .keys = shortcuts,
             .grips = grips,
             .panels = panels,
             .window = window,
             .menus = needs.menus}),
      access({.core = core,
              .elements = elements,
              .commands = needs.commands,
              .grips = grips,
              .knobs = needs.knobs}),
      skin(
          elements, pictures, needs.host.paths, [this] { panels.RefreshTabs(); },
          [this](int width, int height) { return window.fitsScreen(width, height); }),
      flatFaces(elements), skinInput(skin, flatFaces, panels, core.errors, input) {
    const std::array<player::NowPlayingView*, 5> views = {&display, &modes, &sliders, &volumeBar,
                                                          &balanceBar};
    for (player::NowPlayingView* const view : views) {
        core.screen.add(*view);
    }
    fields.obey(core.state.comfort);
}

MainView::~MainView() {
    const std::array<player::NowPlayingView*, 5> views = {&display, &modes, &sliders, &volumeBar,
                                                          &balanceBar};
    for (player::NowPlayingView* const view : views) {
        core.screen.remove(*view);
    }
}

void MainView::shapeWindow() {
    cutOutline(shape_, pictures.find(elements.get(MainElement::mainIMG).picture), window);
}

void MainView::showModes() {
    for (const player::Mode mode : {player::Mode::crossfade, player::Mode::silenceSkip,
                                    player::Mode::shuffle, player::Mode::repeat}) {
        core.screen.showMode(mode);
    }
    timeDisplay.choose(core.state.TimeDisplayMode);
}

void MainView::showWords() {
    volumeBar.showText();
    // Before the start has told the balance there are no words to be put into another language.
    if (!core.screen.playing.balanceText.empty()) {
        balanceBar.showText();
    }
    core.screen.showStopNote();
}

void MainView::drawTitle(std::u32string_view characters) {
    if (window.visible()) {
        // Without a strip of glyphs the caption stands still.
        static_cast<void>(fields.draw(MainElement::songname, 0, characters, Strip::Bright));
    }
    if (titleElsewhere) {
        titleElsewhere(characters);
    }
}

} // namespace tovik::window
