// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/JumpToTrackDialog.h"

#include "ui/qt/DisplayText.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

using Label = player::frmJump2Track::Label;

constexpr int kLeastWidth = 320;

} // namespace

JumpToTrackDialog::JumpToTrackDialog(player::frmJump2Track& logic, config::MultiLNG& language,
                                     const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      text1_(new QLineEdit), jump_(new QPushButton(QStringLiteral("&Jump"))) {
    setObjectName(QStringLiteral("frmJump2Track"));
    setWindowTitle(QStringLiteral("Jump to track"));
    setMinimumWidth(kLeastWidth);
    for (std::size_t label = 0; label < kLabels; ++label) {
        labels_.at(label) = new QLabel;
        labels_.at(label)->setObjectName(QStringLiteral("Label1_%1").arg(label));
        labels_.at(label)->setTextFormat(Qt::PlainText);
    }
    const auto labelOf = [this](Label which) {
        return labels_.at(static_cast<std::size_t>(which));
    };
    text1_->setObjectName(QStringLiteral("Text1"));
    labelOf(Label::number)->setBuddy(text1_);
    jump_->setObjectName(QStringLiteral("Command1_0"));
    jump_->setAutoDefault(false); // Enter closes in any case
    auto* close = new QPushButton(QStringLiteral("&Close"));
    close->setObjectName(QStringLiteral("Command1_1"));
    close->setAutoDefault(false);

    auto* frame = new QGroupBox;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(frame);
    constexpr int kColumns = 2;
    int row = 0;
    for (const Label whole : {Label::list, Label::count, Label::playing}) {
        grid->addWidget(labelOf(whole), row++, 0, 1, kColumns);
    }
    grid->addWidget(labelOf(Label::number), row, 0);
    grid->addWidget(text1_, row++, 1);
    grid->addWidget(labelOf(Label::title), row, 0);
    grid->addWidget(labelOf(Label::shownTitle), row, 1);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(jump_);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addLayout(buttons);

    connect(text1_, &QLineEdit::textChanged, this, [this](const QString& text) {
        dispatcher_.run([&] { logic_.Text1_Change(text.toStdString()); });
        showLabels();
    });
    connect(jump_, &QPushButton::clicked, this, [this] { go(); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void JumpToTrackDialog::load() {
    dispatcher_.run([this] { logic_.Form_Load(); });
    dispatcher_.run([this] { language_.Load_frmJump2track(); });
    text1_->clear();
    showLabels();
    text1_->setFocus();
}

void JumpToTrackDialog::setText(std::string_view element, int index, config::TextKind kind,
                                std::string_view text) {
    if (element == "Label1") {
        words_.at(static_cast<std::size_t>(index)) = text;
        showLabels();
    } else {
        texts_.setText(element, index, kind, text);
    }
}

void JumpToTrackDialog::showLabels() {
    for (std::size_t label = 0; label < kLabels; ++label) {
        labels_.at(label)->setText(
            ui::displayString(logic_.Label1(static_cast<Label>(label), words_.at(label))));
    }
    jump_->setEnabled(logic_.canGo());
}

void JumpToTrackDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        go();
        return;
    }
    Dialog::keyPressEvent(event);
}

void JumpToTrackDialog::go() {
    reject();
    dispatcher_.run([this] { logic_.go(); });
}

} // namespace tovik::dialogs
