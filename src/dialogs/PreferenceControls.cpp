// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PreferenceControls.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

namespace tovik::dialogs {

namespace {

using preferences::Control;
using preferences::ControlKind;
using preferences::ControlRow;

constexpr auto kLines = std::to_array<ControlLine>({
    {Control::Slider3, "Label10", "Slider3Value"},
    {Control::Slider1_0, "Label4", "Slider1Value_0", "Label6_0"},
    {Control::Slider1_2, "NextTime", "Slider1Value_2", "Label6_2"},
    {Control::Slider1_1, "Label5", "Slider1Value_1", "Label6_1"},
    {Control::Slider4, "Label11_0", "", "Label11_1"},
    {Control::Combo1, "Label8"},
    {Control::Slider2, "Label9", "Label7"},
    {Control::Label3, "Label13"},
    {Control::Label1, "Label12"},
});

constexpr int kPagesOfSlider = 10;
constexpr int kShownRows = 9; ///< of the file types

/// Whoever turns the wheel wants to see more of the page, not to change what the pointer passes.
class WheelStop final : public QObject {
public:
    explicit WheelStop(QWidget& watched) : QObject(&watched) { watched.installEventFilter(this); }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Wheel) {
            event->ignore();
            return true;
        }
        return false;
    }
};

QString nameOf(Control control) {
    return ui::displayString(preferences::rowOf(control).name);
}

std::size_t at(Control control) {
    return static_cast<std::size_t>(control);
}

} // namespace

ControlLine lineOf(Control control) noexcept {
    const auto* const found = std::ranges::find(kLines, control, &ControlLine::control);
    return found == kLines.end() ? ControlLine{control} : *found;
}

QWidget& PreferenceControls::make(Control control) {
    const ControlRow& row = preferences::rowOf(control);
    const auto widget = [&]() -> QWidget& {
        switch (row.kind) {
        case ControlKind::check:
            return makeCheck(control);
        case ControlKind::slider:
            return makeSlider(row);
        case ControlKind::choice:
            return makeChoice(control);
        case ControlKind::ticks:
            return makeTicks();
        case ControlKind::folder:
            break;
        }
        return makeFolder(control);
    };
    QWidget& made = widget();
    made.setObjectName(nameOf(control));
    if (row.kind == ControlKind::slider || row.kind == ControlKind::choice) {
        new WheelStop(made);
    }
    made_.at(at(control)) = &made;
    return made;
}

QWidget& PreferenceControls::makeCheck(Control control) {
    auto* const box = new QCheckBox;
    QObject::connect(box, &QCheckBox::clicked, box, [this, control](bool ticked) {
        change([&] { logic_.values().setNumber(control, ticked ? 1 : 0); });
    });
    return *box;
}

QWidget& PreferenceControls::makeSlider(const ControlRow& row) {
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setRange(row.least, row.most);
    slider->setSingleStep(row.step);
    slider->setPageStep(std::max(row.step, (row.most - row.least) / kPagesOfSlider));
    if (row.control == Control::Slider4) {
        // A short time is a high speed, which stands on the right.
        slider->setInvertedAppearance(true);
        slider->setInvertedControls(true);
    }
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [this, control = row.control](int value) {
                         change([&] { logic_.values().setNumber(control, value); });
                     });
    return *slider;
}

QWidget& PreferenceControls::makeChoice(Control control) {
    auto* const box = new QComboBox;
    if (control == Control::Combo1) {
        for (const std::string_view format : preferences::kFormats) {
            box->addItem(ui::displayString(format));
        }
    } else if (control == Control::Combo3) {
        for (const std::string& language : logic_.Combo3()) {
            box->addItem(QFile::decodeName(QByteArray::fromStdString(language)));
        }
    }
    QObject::connect(box, &QComboBox::activated, box,
                     [this, control](int place) { change([&] { choose(control, place); }); });
    return *box;
}

void PreferenceControls::choose(Control control, int place) {
    if (control == Control::Combo3) {
        const auto* const box = static_cast<QComboBox*>(made_.at(at(control)));
        logic_.Combo3_Click(QFile::encodeName(box->itemText(place)).toStdString());
    } else {
        logic_.values().setNumber(control, place);
    }
}

QWidget& PreferenceControls::makeTicks() {
    auto* const list = new QListWidget;
    for (const std::string_view type : preferences::fileTypes()) {
        auto* const item = new QListWidgetItem(ui::displayString(type), list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    list->setMinimumHeight(kShownRows * list->sizeHintForRow(0));
    QObject::connect(list, &QListWidget::itemChanged, list,
                     [this] { change([&] { takeTicks(); }); });
    return *list;
}

void PreferenceControls::takeTicks() {
    const auto* const list = static_cast<QListWidget*>(made_.at(at(Control::List1)));
    preferences::Ticks ticks;
    for (int row = 0; row < list->count(); ++row) {
        ticks.set(static_cast<std::size_t>(row), list->item(row)->checkState() == Qt::Checked);
    }
    logic_.values().setTypes(ticks);
}

QWidget& PreferenceControls::makeFolder(Control control) {
    auto* const button = new QPushButton;
    button->setAutoDefault(false);
    button->setStyleSheet(QStringLiteral("text-align: left; padding: 4px 8px;"));
    QObject::connect(button, &QPushButton::clicked, button,
                     [this, control] { change([&] { logic_.chooseFolder(control); }); });
    return *button;
}

QLabel& PreferenceControls::makeValue(Control control) {
    auto* const label = new QLabel;
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(
        control == Control::Slider2 ? QStringLiteral("1411 kbps") : QStringLiteral("000")));
    values_.at(at(control)) = label;
    return *label;
}

void PreferenceControls::show() {
    for (const ControlRow& row : preferences::controlTable()) {
        if (QWidget* const widget = made_.at(at(row.control)); widget != nullptr) {
            const QSignalBlocker quiet(widget);
            showOne(row, *widget);
        }
        if (QLabel* const label = values_.at(at(row.control)); label != nullptr) {
            label->setText(row.control == Control::Slider2
                               ? ui::displayString(logic_.values().rateText())
                               : QString::number(logic_.values().number(row.control)));
        }
    }
    if (QWidget* const rate = made_.at(at(Control::Slider2)); rate != nullptr) {
        rate->setEnabled(logic_.values().choosesRate());
    }
    if (QWidget* const time = made_.at(at(Control::Slider1_2)); time != nullptr) {
        time->setEnabled(logic_.choosesShorterFade());
    }
}

void PreferenceControls::showOne(const ControlRow& row, QWidget& widget) {
    const preferences::PreferenceValues& values = logic_.values();
    switch (row.kind) {
    case ControlKind::check:
        static_cast<QCheckBox&>(widget).setChecked(values.ticked(row.control));
        break;
    case ControlKind::slider:
        static_cast<QSlider&>(widget).setValue(values.number(row.control));
        break;
    case ControlKind::choice: {
        auto& box = static_cast<QComboBox&>(widget);
        box.setCurrentIndex(row.control == Control::Combo3
                                ? box.findText(QFile::decodeName(
                                      QByteArray::fromStdString(values.text(row.control))))
                                : values.number(row.control));
        break;
    }
    case ControlKind::ticks:
        showTicks(widget);
        break;
    case ControlKind::folder: {
        auto& button = static_cast<QPushButton&>(widget);
        const QString path = QFile::decodeName(QByteArray::fromStdString(values.text(row.control)));
        button.setText(path.isEmpty() ? QStringLiteral("…")
                                      : QString(path).replace('&', QStringLiteral("&&")));
        button.setToolTip(path);
        button.setAccessibleDescription(path);
        break;
    }
    }
}

void PreferenceControls::showTicks(QWidget& widget) {
    auto& list = static_cast<QListWidget&>(widget);
    const preferences::Ticks& ticks = logic_.values().types();
    for (int row = 0; row < list.count(); ++row) {
        list.item(row)->setCheckState(ticks.test(static_cast<std::size_t>(row)) ? Qt::Checked
                                                                                : Qt::Unchecked);
    }
}

} // namespace tovik::dialogs
