// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DiscMatchDialog.h"

#include "ui/qt/DisplayText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

constexpr int kListWidth = 420;
constexpr int kListHeight = 180;

} // namespace

DiscMatchDialog::DiscMatchDialog(cd::frmDiscMatch& logic, config::MultiLNG& language,
                                 const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      list1_(new QListWidget) {
    setObjectName(QStringLiteral("frmDiscMatch"));
    list1_->setObjectName(QStringLiteral("List1"));
    list1_->setMinimumSize(kListWidth, kListHeight);
    auto* const label = new QLabel;
    label->setObjectName(QStringLiteral("Label1"));
    label->setBuddy(list1_);
    auto* const ok = new QPushButton;
    ok->setObjectName(QStringLiteral("Command1_0"));
    ok->setDefault(true);
    auto* const cancel = new QPushButton;
    cancel->setObjectName(QStringLiteral("Command1_1"));
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list1_, 1);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, [this] { take(); });
    connect(list1_, &QListWidget::itemDoubleClicked, this, [this] { take(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void DiscMatchDialog::load() {
    dispatcher_.run([this] { language_.loadDiscWords(); });
    list1_->clear();
    for (const std::string& row : logic_.List1()) {
        list1_->addItem(ui::displayString(row));
    }
    list1_->setCurrentRow(0);
    list1_->setFocus();
}

void DiscMatchDialog::take() {
    logic_.choose(list1_->currentRow());
    accept();
}

} // namespace tovik::dialogs
