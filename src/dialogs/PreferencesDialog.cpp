// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PreferencesDialog.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <array>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QShortcut>
#include <QShowEvent>
#include <QTabBar>
#include <QVBoxLayout>
#include <vector>

namespace tovik::dialogs {

namespace {

using preferences::Control;
using preferences::ControlRow;
using preferences::Page;

constexpr int kMostWidth = 1000; ///< fits a small screen
constexpr int kTabSlack = 4;

QString nameOf(std::string_view name) {
    return ui::displayString(name);
}

QLabel& makeLabel(std::string_view name, QWidget* buddy = nullptr) {
    auto* const label = new QLabel;
    label->setObjectName(nameOf(name));
    label->setBuddy(buddy);
    return *label;
}

} // namespace

PreferencesDialog::PreferencesDialog(preferences::frmPreferences& logic, config::MultiLNG& language,
                                     const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher), controls_(logic),
      tabs_(new QTabWidget(this)) {
    setObjectName(QStringLiteral("frmPreferences"));
    setWindowTitle(QStringLiteral("Preferences"));
    tabs_->setObjectName(QStringLiteral("TabStrip1"));
    tabs_->setUsesScrollButtons(false);
    for (const preferences::PageRow& row : preferences::pageTable()) {
        tabs_->addTab(&makePage(row.page), nameOf(row.key));
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(tabs_, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    QPushButton& ok = addButton(*buttons, "Command1", "&OK");
    ok.setDefault(true);
    QPushButton& cancel = addButton(*buttons, "Command5", "&Cancel");
    QPushButton& take = addButton(*buttons, "Command7", "&Apply");
    layout->addLayout(buttons);

    // Behind the logic: by then the words are those of the new language.
    connect(findChild<QComboBox*>(QStringLiteral("Combo3")), &QComboBox::activated, this,
            [this] { showWords(); });
    // Some controls would take these keys for themselves.
    addPageKey(QKeySequence::NextChild, 1);
    addPageKey(QKeySequence::PreviousChild, -1);
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { swichTab(tab); });
    connect(&ok, &QPushButton::clicked, this, [this] {
        dispatcher_.run([this] {
            if (logic_.Command1_Click()) {
                accept();
            }
        });
    });
    connect(&take, &QPushButton::clicked, this,
            [this] { dispatcher_.run([this] { logic_.Command7_Click(); }); });
    connect(&cancel, &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton& PreferencesDialog::addButton(QBoxLayout& layout, const char* name,
                                          const char* caption) {
    auto* const button = new QPushButton(QString::fromUtf8(caption), this);
    button->setObjectName(QString::fromUtf8(name));
    layout.addWidget(button);
    return *button;
}

QWidget& PreferencesDialog::makePage(Page page) {
    if (page == Page::shortcuts) {
        shortcuts_ = new ShortcutsPage(logic_.shortcuts, texts_, this);
        return *shortcuts_;
    }
    auto* const widget = new QWidget;
    if (page == Page::versionHistory) {
        history_ = new QPlainTextEdit(widget);
        history_->setObjectName(QStringLiteral("VersionHist"));
        history_->setReadOnly(true);
        history_->setTabChangesFocus(true);
        (new QVBoxLayout(widget))->addWidget(history_);
        return *widget;
    }
    // Six frames are too many for one column on a low screen.
    auto* const columns = new QHBoxLayout(widget);
    const std::size_t most = page == Page::general ? 3 : 4;
    std::size_t frames = most;
    QVBoxLayout* column = nullptr;
    for (const preferences::FrameRow& frame : preferences::frameTable()) {
        if (frame.page == page) {
            if (frames == most) {
                column = new QVBoxLayout;
                columns->addLayout(column, 1);
                frames = 0;
            }
            column->addWidget(&makeFrame(frame.name),
                              frame.name == preferences::kSwitchFrame ? 1 : 0);
            ++frames;
        }
    }
    if (page == Page::fileTypes) {
        column = new QVBoxLayout;
        columns->addLayout(column);
        addTypes(*column);
    } else if (page != Page::comfort) {
        for (int i = 0; i < columns->count(); ++i) {
            static_cast<QVBoxLayout*>(columns->itemAt(i)->layout())->addStretch(1);
        }
    }
    // What stands in a layout belongs to its widget, which the analyzer does not see.
    return *widget; // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

QWidget& PreferencesDialog::makeFrame(std::string_view name) {
    // Those that are no "Frame" have no caption.
    QWidget* const frame = name.starts_with("Frame") ? new QGroupBox : new QWidget;
    frame->setObjectName(nameOf(name));
    QBoxLayout* layout = new QVBoxLayout(frame);
    if (name == preferences::kSwitchFrame) {
        layout = &makeScrolled(*layout);
    }
    for (const ControlRow& row : preferences::controlTable()) {
        if (row.frame == name) {
            if (row.control == Control::Check17) {
                addPrograms(*layout);
            }
            addControl(*layout, row.control);
            if (row.control == Control::Comfort_0) {
                QLabel& ofRun = makeLabel("ComfortOfRun");
                ofRun.setVisible(false);
                layout->addWidget(&ofRun);
            }
        }
    }
    return *frame; // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): as above
}

QBoxLayout& PreferencesDialog::makeScrolled(QBoxLayout& outside) {
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    outside.addWidget(area);
    auto* const inside = new QWidget;
    auto* const layout = new QVBoxLayout(inside);
    area->setWidget(inside);
    // Also where the keyboard comes from outside, or a screen reader leads it there.
    connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (now != nullptr && area->isAncestorOf(now)) {
            area->ensureWidgetVisible(now);
        }
    });
    return *layout;
}

void PreferencesDialog::addControl(QBoxLayout& layout, Control control) {
    QWidget& widget = controls_.make(control);
    const ControlLine line = lineOf(control);
    if (preferences::rowOf(control).effect == preferences::Effect::nextStart) {
        widget.setProperty("felt", QStringLiteral("nextStart"));
    }
    if (line.caption.empty()) {
        layout.addWidget(&widget);
        return;
    }
    QLabel& caption = makeLabel(line.caption, &widget);
    if (preferences::rowOf(control).kind == preferences::ControlKind::folder) {
        layout.addWidget(&caption);
        layout.addWidget(&widget);
        return;
    }
    auto* const row = new QHBoxLayout;
    row->addWidget(&caption);
    row->addWidget(&widget, 1);
    if (!line.value.empty()) {
        QLabel& value = controls_.makeValue(control);
        value.setObjectName(nameOf(line.value));
        row->addWidget(&value);
    }
    if (!line.unit.empty()) {
        row->addWidget(&makeLabel(line.unit));
    }
    layout.addLayout(row);
}

void PreferencesDialog::addTypes(QBoxLayout& layout) {
    using Button = preferences::frmPreferences::TypeButton;
    auto* const line = new QHBoxLayout;
    line->addWidget(&controls_.make(Control::List1), 1);
    auto* const buttons = new QVBoxLayout;
    static constexpr std::array kButtons = {"Command2_0", "Command2_1", "Command2_2"};
    for (std::size_t index = 0; index < kButtons.size(); ++index) {
        QPushButton& button = addButton(*buttons, kButtons.at(index), "");
        button.setAutoDefault(false);
        const auto pressed = static_cast<Button>(index);
        button.setEnabled(pressed != Button::associate || logic_.canAssociate());
        connect(&button, &QPushButton::clicked, this, [this, pressed] {
            dispatcher_.run([&] { logic_.Command2_Click(pressed); });
            controls_.show();
        });
    }
    buttons->addStretch(1);
    line->addLayout(buttons);
    layout.addLayout(line, 1);
    addControl(layout, Control::Check6);
}

void PreferencesDialog::addPrograms(QBoxLayout& layout) {
    auto* const programs = new QListWidget;
    programs->setObjectName(QStringLiteral("List4"));
    programs->setSelectionMode(QAbstractItemView::NoSelection);
    constexpr int kRows = 3;
    programs->setFixedHeight(kRows * programs->fontMetrics().lineSpacing() + kRows * 4);
    layout.addWidget(&makeLabel("Label2", programs));
    layout.addWidget(programs);
}

void PreferencesDialog::load() {
    dispatcher_.run([this] { logic_.Form_Load(); });
    dispatcher_.run([this] {
        language_.Load_FRM_Preferences_LNG();
        language_.Get_Shortcut_List();
        language_.loadPreferenceWords();
    });
    history_->setPlainText(ui::displayString(logic_.VersionHist()));
    showWords();
    findChild<QLabel*>(QStringLiteral("ComfortOfRun"))->setVisible(logic_.comfortIsOfRun());
    tabs_->setCurrentIndex(static_cast<int>(logic_.page()));
}

void PreferencesDialog::showWords() {
    controls_.show();
    shortcuts_->showRows();
    alignCaptions();
    const QMargins margins = layout()->contentsMargins();
    setMinimumWidth(std::min(kMostWidth, tabs_->tabBar()->sizeHint().width() + margins.left() +
                                             margins.right() + 2 * kTabSlack));
    const QString felt = ui::displayString(texts_.keptText("NextStart"));
    for (QWidget* const widget : findChildren<QWidget*>()) {
        if (widget->property("felt").isValid()) {
            widget->setToolTip(felt);
        }
    }
}

void PreferencesDialog::addPageKey(QKeySequence::StandardKey key, int step) {
    auto* const shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, this, [this, step] {
        tabs_->setCurrentIndex((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count());
        focusPage();
    });
}

void PreferencesDialog::alignCaptions() {
    // The sliders of a frame begin below each other, and end so.
    for (const preferences::FrameRow& frame : preferences::frameTable()) {
        for (const auto words : {&ControlLine::caption, &ControlLine::value, &ControlLine::unit}) {
            std::vector<QLabel*> labels;
            int width = 0;
            for (const ControlRow& row : preferences::controlTable()) {
                const bool standsBeside = row.kind == preferences::ControlKind::slider ||
                                          row.kind == preferences::ControlKind::choice;
                const std::string_view name = lineOf(row.control).*words;
                if (row.frame == frame.name && standsBeside && !name.empty()) {
                    labels.push_back(findChild<QLabel*>(nameOf(name)));
                    width = std::max(width, labels.back()->sizeHint().width());
                }
            }
            for (QLabel* const label : labels) {
                label->setMinimumWidth(width);
            }
        }
    }
}

void PreferencesDialog::swichTab(int tab) {
    logic_.swich_tab(preferences::pageTable()[static_cast<std::size_t>(tab)].page);
}

void PreferencesDialog::showEvent(QShowEvent* event) {
    Dialog::showEvent(event);
    focusPage();
}

void PreferencesDialog::focusPage() {
    // The first control of the page that can be set.
    for (QWidget* next = tabs_->currentWidget(); next != nullptr; next = next->nextInFocusChain()) {
        if (tabs_->currentWidget()->isAncestorOf(next) && next->isEnabled() &&
            (next->focusPolicy() & Qt::TabFocus) != 0) {
            next->setFocus(Qt::TabFocusReason);
            return;
        }
        if (next->nextInFocusChain() == tabs_->currentWidget()) {
            return;
        }
    }
}

} // namespace tovik::dialogs
