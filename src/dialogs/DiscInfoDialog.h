// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog of what is known of a disc, on the screen. It holds up the player until it is closed.
// Interface thread.
#pragma once

#include "cd/frmCdNFO.h"
#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "ui/qt/DialogTexts.h"

#include <array>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "Text1_0" (album), "Text1_1"
/// (year), "Text2_0" (artist), "Text2_1" (the selected track), "Text2_2" (genre), "List1" (tracks),
/// "Frame1" to "Frame4" (what stands beside them), "Command1_0" (rips), "Command1_1" (closes),
/// "Command1_2" (searches), "Command1_4" (clears), "Status" (how the search stands). Enter and the
/// arrows go from track to track in "Text2_1".
class DiscInfoDialog final : public Dialog, private cd::CdNFOView {
public:
    /// Logic, language and dispatcher outlive the dialog.
    DiscInfoDialog(cd::frmCdNFO& logic, const cd::DiscForm& form, config::MultiLNG& language,
                   const host::Dispatcher& dispatcher, QWidget* parent);
    ~DiscInfoDialog() override;
    DiscInfoDialog(const DiscInfoDialog&) = delete;
    DiscInfoDialog& operator=(const DiscInfoDialog&) = delete;

    void load() override;

    /// Escape and the close box are the close button.
    void reject() override;

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showData() override;
    void showTrack(std::size_t track) override;
    void showSearch() override;

    void connectAll();
    void press(cd::frmCdNFO::Button button);
    void unload();

    /// Selects the track that many rows on, if there is one.
    void goOn(int rows);

    cd::frmCdNFO& logic_;
    const cd::DiscForm& form_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    // The dialog's object tree owns them.
    std::array<QLineEdit*, 2> text1_{};
    std::array<QLineEdit*, 3> text2_{};
    QListWidget* list1_;
    QLabel* status_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmCdNFO, texts_};
    bool open_ = false;
};

} // namespace tovik::dialogs
