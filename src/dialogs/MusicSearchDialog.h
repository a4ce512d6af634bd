// SPDX-License-Identifier: GPL-3.0-or-later
// The search of the list by title on the screen. It stays open beside the player. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "player/frmJump2File.h"
#include "ui/qt/DialogTexts.h"

#include <array>
#include <QAbstractListModel>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "SearchString", "List1",
/// "Check1_0", "Check1_1", "Label1", "Command1", "Frame1".
class MusicSearchDialog final : public Dialog, private player::Jump2FileView {
public:
    /// Logic, language and dispatcher outlive the dialog.
    MusicSearchDialog(player::frmJump2File& logic, config::MultiLNG& language,
                      const host::Dispatcher& dispatcher, QWidget* parent);
    ~MusicSearchDialog() override;
    MusicSearchDialog(const MusicSearchDialog&) = delete;
    MusicSearchDialog& operator=(const MusicSearchDialog&) = delete;

    void load() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Shows the hits where they are: nothing of them is copied.
    class Hits final : public QAbstractListModel {
    public:
        explicit Hits(player::frmJump2File& logic) : logic_(logic) {}

        [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
        [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

        /// The hits are others.
        void renew() {
            beginResetModel();
            endResetModel();
        }

    private:
        player::frmJump2File& logic_;
    };

    void showText(const std::string& text) override;
    void showHits() override;
    void showSelected() override;
    void showCount() override;
    void hide() override;
    void unload() override;

    void build();
    void connectControls();
    void showTicks();

    player::frmJump2File& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    Hits hits_{logic_};
    // The dialog's object tree owns them.
    QLineEdit* searchString_;
    QListView* list_;
    std::array<QCheckBox*, 2> checks_;
    QLabel* count_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmJump2File, texts_};
};

} // namespace tovik::dialogs
