// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Lists.h"

#include "app/FullFacts.h"

#include <utility>

namespace tovik::app {

Lists::Lists(const host::Host& host, const player::PlayerState& state, bool keepsList)
    : files(stdSS, host.pump, host.paths), facts(host.watches, fullFactsOf), state_(state),
      keeper_(stdSS, host.clock, host.timers, host.paths,
              [this, keepsList] { return keepsList && files.savesAtExit(state_.DirAddIdle); }) {
    stdSS.obey(state.comfort);
    files.obey(state.comfort);
}

void Lists::bind(commands::Commands& commands, std::function<bool()> inMenu) {
    const auto kept = [this] { return state_.comfort.keepsRemovedRows; };
    commands.bind(commands::CommandId::undoList,
                  {.run =
                       [this] {
                           if (!loading_) {
                               undo.undo();
                           }
                       },
                   .enabled = [this, kept] { return kept() && !loading_ && undo.canUndo(); },
                   .shown = [kept, inMenu = std::move(inMenu)] { return kept() && inMenu(); }});
}

void Lists::load() {
    /// What the load brings, whole or in part, is nothing that the user did.
    class Unwritten {
    public:
        explicit Unwritten(Lists& lists) : lists_(lists) { lists_.loading_ = true; }

        ~Unwritten() {
            lists_.undo.forget();
            lists_.loading_ = false;
        }

        Unwritten(const Unwritten&) = delete;
        Unwritten& operator=(const Unwritten&) = delete;

    private:
        Lists& lists_;
    };

    const playlist::ListKeeper::Loading loading(keeper_);
    const Unwritten unwritten(*this);
    files.autoload_playlist();
}

void Lists::selectFirstRow() {
    if (stdSS.ListCount() > 0) {
        stdSS.SelectedIndex = 1;
    }
}

void Lists::saveListSoFar() const {
    if (files.savesAtExit(state_.DirAddIdle)) {
        files.autosave_playlist();
    }
}

void Lists::saveList() {
    keeper_.end();
    const bool saves = files.savesAtExit(state_.DirAddIdle);
    if (saves) {
        files.autosave_playlist();
    }
    keeper_.remove(saves);
}

} // namespace tovik::app
