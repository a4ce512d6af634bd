// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's mouse and keys do on the mini window. Interface thread.
#pragma once

#include "player/Core.h"
#include "ui/cSuperClass.h"
#include "ui/WindowInput.h"
#include "window/FlatFaces.h"
#include "window/KeyRoute.h"
#include "window/MiniActions.h"
#include "window/MiniPosition.h"
#include "window/MiniSkin.h"
#include "window/MiniVolume.h"
#include "window/VisualInput.h"
#include "window/VolumeBar.h"

namespace tovik::window {

/// What the input works with; all of it outlives it.
struct MiniInputParts {
    const player::Core& core;
    MiniElements& elements;
    KeyRoute& keys;
    MiniActions& actions;
    MiniPosition& position;
    MiniVolume& volume;
    VolumeBar& mainVolume; ///< what the wheel turns, whichever window it is over
    MiniSkin& skin;
    SkinnedWindow& window;
    MenuPopper* menus = nullptr;   ///< null: a right click shows no menu
    VisualInput* visual = nullptr; ///< null: nobody minds the mouse on the visualisation
};

class MiniInput final : public ui::WindowInput, private ui::ISuperClass {
public:
    explicit MiniInput(const MiniInputParts& parts);
    ~MiniInput() override;

    /// The window of the hidden list, whose wheel is the player's while it is hooked.
    ui::MessageWindow lstPathList;

    /// The wheel reaches the player, or no more.
    void hookWheel();
    void unhookWheel();

    void mouseDown(const ui::PointerEvent& event) override;
    void mouseMove(const ui::PointerEvent& event) override;
    void mouseUp(const ui::PointerEvent& event) override;

    /// On a digit: played or left. On the visualisation: the whole screen.
    void doubleClick(const ui::PointerEvent& event) override;

    void wheel(const ui::PointerEvent& event, double notches) override;
    void pointerEntered(ui::ElementAddress element) override;
    void pointerLeft(ui::ElementAddress element) override;
    bool keyDown(const ui::KeyEvent& event) override;
    [[nodiscard]] bool claimsKey(const ui::KeyEvent& event) const override;
    void windowMoved() override;
    void closeRequested() override;

private:
    void Before(bool& handled, ui::MessageResult& result, ui::MessageWindow& window,
                const ui::WindowMessage& message) override;

    void After(ui::MessageResult& /*result*/, ui::MessageWindow& /*window*/,
               const ui::WindowMessage& /*message*/) override {}

    void pressAt(const ui::PointerEvent& event);
    void moveTo(const ui::PointerEvent& event);
    void releaseAt(const ui::PointerEvent& event);
    [[nodiscard]] double alongPosition(const ui::PointerEvent& event) const;
    [[nodiscard]] ui::PointerEvent onVolume(ui::PointerEvent event) const;

    MiniInputParts p_;
    FlatFaces faces_;
    ui::cSuperClass superClass_;
};

} // namespace tovik::window
