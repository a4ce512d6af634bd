// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor on the screen: a page for each tag and one with technical facts. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "player/frmMp3Tag.h"
#include "ui/qt/DialogTexts.h"

#include <array>
#include <functional>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

class QFormLayout;

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "Check1", "Text2_0" ...
class Mp3TagDialog final : public Dialog, private config::TextTargets {
public:
    /// Logic, language and dispatcher outlive the dialog.
    Mp3TagDialog(player::frmMp3Tag& logic, config::MultiLNG& language,
                 const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

    /// Escape and the window's own button; not while a file is being written.
    void reject() override;

protected:
    /// Ctrl+Tab turns the pages wherever the focus is.
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <std::size_t Count>
    using Edits = std::array<QLineEdit*, Count>;

    void setText(std::string_view element, int index, config::TextKind kind,
                 std::string_view text) override;

    void addPages();
    [[nodiscard]] QWidget* versionPage(QCheckBox* tick, QPushButton* copy, QLabel* why,
                                       QFormLayout*& fields);
    void addVersion1(QFormLayout& fields);
    void addVersion2(QFormLayout& fields);
    [[nodiscard]] QWidget* factsPage();
    [[nodiscard]] QWidget* buttons();
    [[nodiscard]] QLineEdit* addEdit(QFormLayout& fields, int label, const QString& labelName,
                                     const QString& name);
    [[nodiscard]] QComboBox* addGenres(QFormLayout& fields, const QString& labelName,
                                       const QString& name);
    void connectAll();
    void connectEdit(QLineEdit* edit, tags::TagField& field);

    void press(player::frmMp3Tag::Button button);
    void runLocked(const std::function<void()>& work);
    void copy(player::frmMp3Tag::Copy copy);
    void showForm();
    void showFacts();
    void enable();
    void nameFields();
    void nameTick();

    player::frmMp3Tag& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;

    // The dialog's object tree owns them.
    QLineEdit* path_;
    QTabWidget* tabs_;
    std::array<QCheckBox*, 2> checks_{};
    std::array<QPushButton*, 3> command1_{};
    std::array<QPushButton*, 2> command2_{};
    std::array<QLabel*, 2> reasons_{};
    Edits<5> text2_{};
    QLineEdit* text5_ = nullptr;
    QComboBox* genre_ = nullptr;
    Edits<10> text4_{};
    QLineEdit* text3_ = nullptr;
    QComboBox* genre2_ = nullptr;
    std::array<QLabel*, 11> label3_{};
    std::array<QLabel*, 11> label4_{};

    std::string tick_;                   ///< the words beside the second one
    std::array<std::string, 11> labels_; ///< of the technical page, templates as they are
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmMp3Tag, *this};
};

} // namespace tovik::dialogs
