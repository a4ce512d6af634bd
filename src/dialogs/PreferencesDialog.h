// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences on the screen: eight pages of controls, and the buttons below. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "dialogs/PreferenceControls.h"
#include "dialogs/ShortcutsPage.h"
#include "host/Dispatcher.h"
#include "preferences/frmPreferences.h"
#include "ui/qt/DialogTexts.h"

#include <QBoxLayout>
#include <QKeySequence>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them.
class PreferencesDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    PreferencesDialog(preferences::frmPreferences& logic, config::MultiLNG& language,
                      const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget& makePage(preferences::Page page);
    QWidget& makeFrame(std::string_view name);
    static QBoxLayout& makeScrolled(QBoxLayout& outside);
    void addControl(QBoxLayout& layout, preferences::Control control);
    void addTypes(QBoxLayout& layout);
    static void addPrograms(QBoxLayout& layout);
    QPushButton& addButton(QBoxLayout& layout, const char* name, const char* caption);
    void showWords();
    void swichTab(int tab);
    void focusPage();
    void addPageKey(QKeySequence::StandardKey key, int step);
    void alignCaptions();

    preferences::frmPreferences& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    PreferenceControls controls_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmPreferences, texts_};
    QTabWidget* tabs_; ///< the dialog's object tree owns it and the other two
    QPlainTextEdit* history_ = nullptr;
    ShortcutsPage* shortcuts_ = nullptr;
};

} // namespace tovik::dialogs
