// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/AddStationDialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

constexpr int kAddressWidth = 320;

} // namespace

AddStationDialog::AddStationDialog(radio::frmaddst& logic, config::MultiLNG& language,
                                   const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      text1_(new QLineEdit), text2_(new QLineEdit) {
    setObjectName(QStringLiteral("frmaddst"));
    setWindowTitle(QStringLiteral("Add Station"));
    text1_->setObjectName(QStringLiteral("Text1"));
    text2_->setObjectName(QStringLiteral("Text2"));
    text2_->setMinimumWidth(kAddressWidth);
    text2_->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    auto* name = new QLabel(QStringLiteral("Station name"));
    name->setObjectName(QStringLiteral("Label1"));
    name->setBuddy(text1_);
    // The same in all languages, so that no file has it.
    auto* address = new QLabel(QStringLiteral("URL"));
    address->setBuddy(text2_);
    auto* add = new QPushButton(QStringLiteral("&Add"));
    add->setObjectName(QStringLiteral("Command1_0"));
    add->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"));
    cancel->setObjectName(QStringLiteral("Command1_1"));
    auto* grid = new QGridLayout;
    grid->addWidget(name, 0, 0);
    grid->addWidget(text1_, 0, 1);
    grid->addWidget(address, 1, 0);
    grid->addWidget(text2_, 1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(add);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    connect(add, &QPushButton::clicked, this, [this] { this->add(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void AddStationDialog::load() {
    dispatcher_.run([this] { logic_.Form_Load([this] { language_.Load_addST_search_LNG(); }); });
    setWindowFlag(Qt::WindowStaysOnTopHint, logic_.staysOnTop());
    text1_->setFocus();
}

void AddStationDialog::add() {
    dispatcher_.run([this] {
        logic_.Command1_Click(text1_->text().toStdString(), text2_->text().toStdString());
    });
    accept();
}

} // namespace tovik::dialogs
