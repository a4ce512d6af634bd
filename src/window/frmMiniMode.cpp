// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/frmMiniMode.h"

#include "skin/UnpackSkin.h"
#include "window/WindowOutline.h"

namespace tovik::window {

frmMiniMode::frmMiniMode(const Needs& needs)
    : fields(elements, needs.main.pictures,
             {.kept = needs.main.elements,
              .bright = ui::addressOf(MainElement::textImg),
              .dim = ui::addressOf(MainElement::textImg2),
              .source = ui::addressOf(MiniElement::songname2)}),
      skin(elements, needs.main.elements, needs.main.pictures, needs.host.paths,
           [this](std::string_view name) {
               return windowPicture ? windowPicture(name) : std::string();
           }),
      display(needs.core.state, elements, fields, needs.window),
      volume(needs.core, needs.knobs.volume, elements, needs.host.dialogs),
      position(needs.core, needs.knobs.seek, elements, needs.window), actions(needs.main.access),
      input({.core = needs.core,
             .elements = elements,
             .keys = needs.main.input.keys(),
             .actions = actions,
             .position = position,
             .volume = volume,
             .mainVolume = needs.main.volumeBar,
             .skin = skin,
             .window = needs.window,
             .menus = needs.menus,
             .visual = needs.visual}),
      p_(needs) {
    p_.core.screen.add(display);
    p_.core.screen.add(volume);
    fields.obey(p_.core.state.comfort);
    if (p_.spare != nullptr) {
        skin.spareWith(*p_.spare);
    }
}

frmMiniMode::~frmMiniMode() {
    p_.core.screen.remove(volume);
    p_.core.screen.remove(display);
}

void frmMiniMode::Form_Load() {
    if (p_.core.state.comfort.completesSkin) {
        static_cast<void>(skin::mendSkin(p_.host.paths, skinFiles())); // the start told of it
    } else {
        skin::UnpackSkin(p_.host.paths, p_.host.dialogs);
    }
    completeSkin();
    skin.LoadMiniSkin();
    cutOutline(shape_, p_.main.pictures.find(elements.get(MiniElement::picBackground).picture),
               p_.window);
    p_.window.setTaskbarButton(p_.core.state.ShowInTaskbar == 1);
    chainButtons();
    showWords();
    volume.setUp();
    display.showAll(p_.core.screen.playing);
    input.hookWheel();
}

/// The skin of a data folder may be older than this window.
void frmMiniMode::completeSkin() const {
    std::vector<std::string> files;
    for (const MiniPicture& row : miniBindings()) {
        files.push_back(std::string(row.name) + ".bmp");
    }
    skin::completeSkin(p_.host.paths, files,
                       {p_.host.paths.of(host::DataItem::SkinPackage), p_.shippedSkin});
}

void frmMiniMode::Form_Unload() {
    input.unhookWheel();
    RestoreButtons();
}

/// Each button stands right behind the one before.
void frmMiniMode::chainButtons() {
    for (std::size_t i = 1; i < elements.count(MiniElement::Image4); ++i) {
        elements.touch(MiniElement::Image4, i).left =
            elements.get(MiniElement::Image4, i - 1).left +
            elements.get(MiniElement::Image4, i - 1).width;
    }
}

void frmMiniMode::showWords() {
    for (const MiniTwin& twin : miniTwins()) {
        const ui::Element& main = p_.main.elements.get(twin.main, twin.mainIndex);
        ui::Element& mini = elements.touch(twin.mini, twin.miniIndex);
        mini.tooltip = main.tooltip;
        mini.name = main.name;
        mini.enabled = main.enabled;
    }
}

} // namespace tovik::window
