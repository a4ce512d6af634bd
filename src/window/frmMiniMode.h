// SPDX-License-Identifier: GPL-3.0-or-later
// The mini window as logic: a second, small table of elements that shows the same as the main
// window and passes on what is done to it. Needs no window system. Interface thread.
#pragma once

#include "host/Host.h"
#include "player/Knobs.h"
#include "window/MainView.h"
#include "window/MiniActions.h"
#include "window/MiniDisplay.h"
#include "window/MiniInput.h"

#include <functional>
#include <string>
#include <string_view>

namespace tovik::window {

class frmMiniMode {
public:
    /// All of it outlives the window.
    struct Needs {
        const player::Core& core;
        player::Knobs knobs;
        MainView& main;
        SkinnedWindow& window;
        host::Host host;
        MenuPopper* menus = nullptr;   ///< null: there are no menus
        VisualInput* visual = nullptr; ///< null: there are no visualisations
        std::string shippedSkin{};     ///< the package that came with the program; empty: none
        SpareSkin* spare = nullptr;    ///< null: nothing takes the place of a picture
    };

    explicit frmMiniMode(const Needs& needs);
    ~frmMiniMode();
    frmMiniMode(const frmMiniMode&) = delete;
    frmMiniMode& operator=(const frmMiniMode&) = delete;

    /// Where the pictures of the window itself come from, by name; empty bytes for none. Before the
    /// first load.
    std::function<std::string(std::string_view)> windowPicture;

    /// Reads the skin and shows what is. The state says already that the window is in use. Raises
    /// what a bad file raises.
    void Form_Load();

    /// Those that the elements name.
    [[nodiscard]] const ui::PictureStore& pictures() const { return p_.main.pictures; }

    /// The words of the main window, in the language that is set.
    void showWords();

    /// Ends what only goes on while the window is there.
    void Form_Unload();

    /// The faces of the three small buttons are their own again.
    void RestoreButtons() { skin.RestoreButtons(); }

    // The parts are used as they are.
    MiniElements elements{miniLayout()};
    TextFields fields;
    MiniSkin skin;
    MiniDisplay display;
    MiniVolume volume;
    MiniPosition position;
    MiniActions actions;
    MiniInput input;

private:
    void chainButtons();
    void completeSkin() const;

    Needs p_;
    ui::cDIBSectionRegion shape_;
};

} // namespace tovik::window
