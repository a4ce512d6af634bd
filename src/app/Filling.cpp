// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Filling.h"

#include "base/PathText.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "playlist/ListUndo.h"

#include <cstddef>
#include <utility>

namespace tovik::app {

namespace {

using commands::CommandId;

/// The captions that are no captions but the titles of dialogs, by their index.
std::function<std::string()> titleOf(const window::MainElements& elements, std::size_t index) {
    return [&elements, index] { return elements.get(window::MainElement::Label4, index).caption; };
}

// Among the notices.
constexpr int kNoMusic = 23;
constexpr int kNotWithoutFolders = 24;

constexpr std::size_t kAddTitle = 3;
constexpr std::size_t kLoadTitle = 6;
constexpr std::size_t kSaveTitle = 7;

} // namespace

Filling::Filling(const Needs& needs, const host::Host& host)
    : media({.list = needs.core.lists.stdSS,
             .files = needs.files,
             .dialogs = host.dialogs,
             .pump = host.pump,
             .errors = needs.core.errors},
            titleOf(needs.elements, kAddTitle)),
      files({.list = needs.core.lists.stdSS,
             .files = needs.files,
             .dialogs = host.dialogs,
             .pump = host.pump,
             .paths = host.paths,
             .errors = needs.core.errors,
             .comfort = needs.core.state.comfort},
            {.load = titleOf(needs.elements, kLoadTitle),
             .save = titleOf(needs.elements, kSaveTitle),
             .notice = [&language = needs.language](
                           int number) { return language.get_Notice_String(number); }}),
      openDirectory(needs.core, host.pump), buttons(needs.core, needs.files, openDirectory),
      rowFacts(needs.core, host.pump, *needs.core.facts), core_(needs.core), window_(needs.window),
      windows_(needs.windows) {
    openDirectory.foundNothing = [&language = needs.language,
                                  &line = needs.line](const std::string& folder, bool hasFolders) {
        const std::string_view name = base::lastPart(folder);
        line.show(
            base::replaceAll(language.get_Notice_String(hasFolders ? kNotWithoutFolders : kNoMusic),
                             "[x]", base::displayText(name.empty() ? folder : name)));
    };
}

void Filling::bind(commands::Commands& commands) {
    commands.bind(CommandId::addFile, button([this] { media.Add_file(); }));
    commands.bind(CommandId::addFolder,
                  button([this] { windows_.open(window::WindowId::openDirectory); }));
    // A deliberate oddity: there is nothing more to it, unless `Comfort::asksForLocation` lets it
    // ask for an address.
    commands.bind(CommandId::locationButton, button([this] {
                      if (core_.state.comfort.asksForLocation && askForLocation) {
                          askForLocation();
                      }
                  }));
    commands.bind(CommandId::removeFromList, button([this] { buttons.delIMG_Click(); }));
    commands.bind(CommandId::clearList, button([this] { buttons.clrIMG_Click(); }));
    commands.bind(CommandId::loadList, button([this] { files.loadImg_Click(); }));
    commands.bind(CommandId::saveList, button([this] { files.SaveImg_Click(); }));
}

std::function<void()> Filling::button(std::function<void()> act) {
    return [this, act = std::move(act)] {
        window_.takeFocus();
        const playlist::ListUndo::Step step(core_.lists.stdSS);
        act();
    };
}

void Filling::finishSaves() {
    files.wait();
}

} // namespace tovik::app
