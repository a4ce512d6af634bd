// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/JumpToTimeDialog.h"

#include "ui/qt/DisplayText.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tovik::dialogs {

JumpToTimeDialog::JumpToTimeDialog(player::frmjump2time& logic, config::MultiLNG& language,
                                   const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      lbldur_(new QLabel), text1_(new QLineEdit) {
    setObjectName(QStringLiteral("frmjump2time"));
    setWindowTitle(QStringLiteral("Jump to time"));
    lbldur_->setObjectName(QStringLiteral("lbldur"));
    text1_->setObjectName(QStringLiteral("Text1"));
    auto* duration = new QLabel;
    duration->setObjectName(QStringLiteral("Label1"));
    auto* time = new QLabel;
    time->setObjectName(QStringLiteral("Label2"));
    time->setBuddy(text1_);
    auto* jump = new QPushButton(QStringLiteral("&Jump"));
    jump->setObjectName(QStringLiteral("Command1"));
    jump->setDefault(true);
    auto* close = new QPushButton(QStringLiteral("&Close"));
    close->setObjectName(QStringLiteral("Command2"));
    auto* frame = new QGroupBox;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(frame);
    grid->addWidget(duration, 0, 0);
    grid->addWidget(lbldur_, 0, 1);
    grid->addWidget(time, 1, 0);
    grid->addWidget(text1_, 1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(jump);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addLayout(buttons);
    connect(jump, &QPushButton::clicked, this, [this] { go(); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void JumpToTimeDialog::load() {
    dispatcher_.run([this] { language_.Load_frmJump2time(); });
    dispatcher_.run([this] {
        lbldur_->setText(ui::displayString(logic_.lbldur()));
        text1_->setText(ui::displayString(logic_.Text1()));
    });
    text1_->selectAll();
    text1_->setFocus();
}

void JumpToTimeDialog::go() {
    dispatcher_.run([this] {
        if (logic_.Command1_Click(text1_->text().toStdString())) {
            reject();
        } else {
            text1_->selectAll();
            text1_->setFocus();
        }
    });
}

} // namespace tovik::dialogs
