// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does to the look of the main window; what it does besides is told to the next
// input. Interface thread.
#pragma once

#include "config/Errors.h"
#include "ui/WindowInput.h"
#include "window/FlatFaces.h"
#include "window/MainSkin.h"
#include "window/Panels.h"

namespace tovik::window {

/// Over faces of buttons and tabs, which end as the mouse leaves them, and the faces of buttons
/// with a single picture.
class SkinInput final : public ui::WindowInput {
public:
    /// All of them outlive the object.
    SkinInput(MainSkin& skin, FlatFaces& flat, Panels& panels, const config::Errors& errors,
              ui::WindowInput& next)
        : skin_(skin), flat_(flat), panels_(panels), errors_(errors), next_(next) {}

    void mouseDown(const ui::PointerEvent& event) override;
    void mouseMove(const ui::PointerEvent& event) override;
    void mouseUp(const ui::PointerEvent& event) override;

    void doubleClick(const ui::PointerEvent& event) override { next_.doubleClick(event); }

    void wheel(const ui::PointerEvent& event, double notches) override {
        next_.wheel(event, notches);
    }

    void pointerEntered(ui::ElementAddress element) override;
    void pointerLeft(ui::ElementAddress element) override;

    bool keyDown(const ui::KeyEvent& event) override { return next_.keyDown(event); }

    [[nodiscard]] bool claimsKey(const ui::KeyEvent& event) const override {
        return next_.claimsKey(event);
    }

    void windowMoved() override { next_.windowMoved(); }

    void closeRequested() override { next_.closeRequested(); }

private:
    MainSkin& skin_;
    FlatFaces& flat_;
    Panels& panels_;
    const config::Errors& errors_;
    ui::WindowInput& next_;
};

} // namespace tovik::window
