// SPDX-License-Identifier: GPL-3.0-or-later
// The jump to the row of a number on the screen. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "player/frmJump2Track.h"
#include "ui/qt/DialogTexts.h"

#include <array>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string>
#include <string_view>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "Text1", "Label1_0" to
/// "Label1_5", "Command1_0", "Command1_1", "Frame1".
class JumpToTrackDialog final : public Dialog, private config::TextTargets {
public:
    /// Logic, language and dispatcher outlive the dialog.
    JumpToTrackDialog(player::frmJump2Track& logic, config::MultiLNG& language,
                      const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    static constexpr std::size_t kLabels = 6;

    /// The labels' words are kept: some stand before what they are about.
    void setText(std::string_view element, int index, config::TextKind kind,
                 std::string_view text) override;

    void showLabels();
    void go();

    player::frmJump2Track& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    // The dialog's object tree owns them.
    QLineEdit* text1_;
    QPushButton* jump_;
    std::array<QLabel*, kLabels> labels_{};
    std::array<std::string, kLabels> words_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmJump2Track, *this};
};

} // namespace tovik::dialogs
