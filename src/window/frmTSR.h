// SPDX-License-Identifier: GPL-3.0-or-later
// The host of all menus: fills their model from the tree of entries, keeps what they say and show
// up to date, pops them up and runs what is chosen. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "commands/MenuTree.h"
#include "config/MenuTexts.h"
#include "menus/cMenus.h"
#include "window/MenuPopper.h"
#include "window/PlayerWindow.h"

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::window {

class frmTSR final : public MenuPopper {
public:
    /// All of them outlive the host.
    frmTSR(const commands::Commands& commands, const config::MenuTexts& texts,
           PlayerWindow& window);
    ~frmTSR() override;
    frmTSR(const frmTSR&) = delete;
    frmTSR& operator=(const frmTSR&) = delete;

    /// Fills the model. No menu of the window system is made: that is left to the first pop-up.
    void Form_Load();

    /// Reads the accelerators. Raises the error of a failure to read, and 57 for a file that is
    /// not understood as a whole; either file is left as it is until the end.
    void loadShortcuts(const std::string& fileName);

    /// Writes the file if an accelerator was changed and the file is ours. Raises the error of a
    /// failure to write.
    void saveShortcuts(const std::string& fileName);

    /// Whether a changed accelerator will be found again: not while the file is none of ours.
    [[nodiscard]] bool keepsShortcuts() const { return !shortcutsForeign_; }

    /// One entry for each drive, up to five; letters told apart by "|".
    void showDrives(std::string_view letters);

    /// One entry for each plug-in with a name, in their order, behind the built-in spectrum; once.
    /// A menu that is open grows.
    void addVisualisations(std::span<const std::string> names);

    /// What the entries of plug-ins do; the index counts all plug-ins, from 0.
    struct Visualisations {
        std::function<void(int)> choose;
        std::function<bool(int)> chosen;
        std::function<void()> wanted; ///< their menu is about to be shown
    };

    void bindVisualisations(Visualisations visualisations);

    /// An entry whose state cannot be told keeps the one it had: the menu is shown, and then the
    /// error is raised.
    void popUp(MenuRoot root, const std::optional<menus::MenuPlace>& place = {}) override;
    void popUpFor(MenuList list, const std::optional<menus::MenuPlace>& place = {}) override;

    [[nodiscard]] bool hasAccelerator(const ui::KeyEvent& key) const override;

    /// Captions follow the language. Happens by itself before a menu is shown and before an
    /// accelerator counts, as do check marks and what is enabled there.
    void showWords();

    // What the commands of the list's menu do; nothing without a selection.
    void mnuplsPlay();
    void mnuplsDel();
    [[nodiscard]] bool listHasSelection() const;

    /// What tells of the selected row of that list.
    [[nodiscard]] commands::CommandId listInfo() const { return list_.info; }

    /// The window that is told what is chosen.
    [[nodiscard]] ui::MessageWindow& messages() { return messages_; }

    menus::cMenus m_Menus;

private:
    std::exception_ptr refreshBelow(int parent, bool deep);
    void fillFixedKeys();
    void nameDrives();

    const commands::Commands& commands_;
    const config::MenuTexts& texts_;
    PlayerWindow& window_;
    ui::MessageWindow messages_;
    std::map<std::string, const commands::MenuEntry*, std::less<>> entries_; ///< by their keys
    std::map<std::string, int, std::less<>> plugins_;                        ///< likewise
    Visualisations visualisations_;
    std::unique_ptr<menus::MenuFacility> facility_;
    MenuList list_;                   ///< that was asked for its menu last
    std::vector<std::string> drives_; ///< their letters
    bool shortcutsForeign_ = false;
};

} // namespace tovik::window
