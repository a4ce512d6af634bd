// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's mouse does on the main window. Interface thread.
#pragma once

#include "player/Transport.h"
#include "playlist/ListMirror.h"
#include "ui/ListModel.h"
#include "ui/MainElements.h"
#include "ui/WindowInput.h"

#include <functional>

namespace tovik::player {

/// Presses show a button's down face, a release its up face again, and then it acts.
class MainInput final : public ui::WindowInput {
public:
    /// `close` and `minimise` are the window's own commands.
    MainInput(ui::MainElements& elements, Transport& transport, std::function<void()> close,
              std::function<void()> minimise);

    void mouseDown(const ui::PointerEvent& event) override;
    void mouseUp(const ui::PointerEvent& event) override;

    void closeRequested() override { close_(); }

private:
    enum class Action { none, play, pause, stop, close, minimise };

    struct ButtonPair {
        ui::MainElement up;
        ui::MainElement down;
        Action action;
    };

    static const std::span<const ButtonPair> kButtons;

    [[nodiscard]] static const ButtonPair* buttonUnder(const ui::PointerEvent& event);
    void press(const ButtonPair& button, bool pressed);
    void act(Action action);

    ui::MainElements& elements_;
    Transport& transport_;
    std::function<void()> close_;
    std::function<void()> minimise_;
};

/// The quick list: titles with the selection of `List1`.
class QuickListRows final : public ui::ListModel, public ui::ListInput {
public:
    QuickListRows(playlist::ListMirror& mirror, playlist::stdSS& list, Transport& transport)
        : mirror_(mirror), list_(list), transport_(transport) {}

    [[nodiscard]] std::size_t rows() const override;
    [[nodiscard]] std::string text(std::size_t row) const override;
    [[nodiscard]] bool selected(std::size_t row) const override;
    [[nodiscard]] bool marked(std::size_t row) const override;

    void selectRow(std::size_t row, ui::Modifiers modifiers) override;
    void activateRow(std::size_t row) override;

private:
    playlist::ListMirror& mirror_;
    playlist::stdSS& list_;
    Transport& transport_;
};

} // namespace tovik::player
