// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/LoadPresetDialog.h"

#include "ui/qt/DisplayText.h"

#include <array>
#include <QGridLayout>
#include <QPushButton>
#include <utility>

namespace tovik::dialogs {

namespace {

using Button = player::frmLoadPreset::Button;

/// Captions until a language is read.
constexpr std::array<std::pair<Button, const char*>, 3> kButtons = {{
    {Button::load, "&Load"},
    {Button::cancel, "&Cancel"},
    {Button::apply, "&Apply"},
}};

} // namespace

LoadPresetDialog::LoadPresetDialog(player::frmLoadPreset& logic, config::MultiLNG& language,
                                   const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      list_(new QListWidget(this)) {
    setObjectName(QStringLiteral("frmLoadPreset"));
    setWindowTitle(QStringLiteral("Load preset"));
    list_->setObjectName(QStringLiteral("List1"));
    auto* layout = new QGridLayout(this);
    layout->addWidget(list_, 0, 0, 1, static_cast<int>(kButtons.size()));
    for (const auto& [id, caption] : kButtons) {
        const int index = static_cast<int>(id);
        auto* button = new QPushButton(QString::fromUtf8(caption), this);
        button->setObjectName(QStringLiteral("Command1_%1").arg(index));
        button->setDefault(id == Button::load);
        connect(button, &QPushButton::clicked, this, [this, pressed = id] { press(pressed); });
        layout->addWidget(button, 1, index);
    }
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { press(Button::load); });
}

void LoadPresetDialog::load() {
    // Names in front of a missing one are listed all the same.
    dispatcher_.run([this] { logic_.Form_Load(); });
    dispatcher_.run([this] { language_.Load_FRM_Preset_LNG(); });
    list_->clear();
    for (const std::string& name : logic_.List1()) {
        list_->addItem(ui::displayString(name));
    }
}

void LoadPresetDialog::press(Button button) {
    dispatcher_.run([&] {
        if (logic_.Command1_Click(button, list_->currentRow())) {
            accept();
        }
    });
}

} // namespace tovik::dialogs
