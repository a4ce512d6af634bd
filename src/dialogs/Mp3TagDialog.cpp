// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/Mp3TagDialog.h"

#include "base/Text.h"
#include "ui/qt/DisplayText.h"

#include <QKeyEvent>

namespace tovik::dialogs {

namespace {

using config::TextKind;
using player::TagForm;
using Button = player::frmMp3Tag::Button;
using Copy = player::frmMp3Tag::Copy;

constexpr std::string_view kPlace = "[x]";
constexpr std::string_view kSecondTick = "Check2";
constexpr std::string_view kUsualTag = "ID3v2";

/// The labels of version 1 that have a twin beside the fields of version 2.
constexpr int kSharedLabels = 7;

void showField(QLineEdit* edit, const tags::TagField& field) {
    edit->setText(QString::fromStdString(field.text()));
    edit->setCursorPosition(0);
}

} // namespace

Mp3TagDialog::Mp3TagDialog(player::frmMp3Tag& logic, config::MultiLNG& language,
                           const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      path_(new QLineEdit(this)), tabs_(new QTabWidget(this)) {
    setObjectName(QStringLiteral("frmMp3Tag"));
    setWindowTitle(QStringLiteral("File information"));
    addPages();
    connectAll();
}

void Mp3TagDialog::connectEdit(QLineEdit* edit, tags::TagField& field) {
    // Only typing changes a field: what is merely shown keeps its bytes.
    connect(edit, &QLineEdit::textEdited, this,
            [&field](const QString& text) { field.type(text.toStdString()); });
}

void Mp3TagDialog::connectAll() {
    TagForm& form = logic_.form();
    for (std::size_t index = 0; index < text2_.size(); ++index) {
        connectEdit(text2_.at(index), form.Text2.at(index));
    }
    for (std::size_t index = 0; index < text4_.size(); ++index) {
        connectEdit(text4_.at(index), form.Text4.at(index));
    }
    connectEdit(text5_, form.Text5);
    connectEdit(text3_, form.Text3);
    connect(genre_, &QComboBox::activated, this, [&form](int entry) { form.genre = entry; });
    connect(genre2_, &QComboBox::activated, this, [&form](int entry) { form.Genre2 = entry; });
    connect(checks_[0], &QCheckBox::clicked, this, [this](bool checked) {
        logic_.Check1_Click(checked);
        showForm();
    });
    connect(checks_[1], &QCheckBox::clicked, this, [this](bool checked) {
        logic_.Check2_Click(checked);
        showForm();
    });
    for (const Button id : {Button::save, Button::close, Button::reload}) {
        connect(command1_.at(static_cast<std::size_t>(id)), &QPushButton::clicked, this,
                [this, id] { press(id); });
    }
    for (const Copy id : {Copy::toVersion2, Copy::toVersion1}) {
        connect(command2_.at(static_cast<std::size_t>(id)), &QPushButton::clicked, this,
                [this, id] { copy(id); });
    }
}

void Mp3TagDialog::load() {
    if (logic_.busy()) {
        return;
    }
    dispatcher_.run([this] { language_.Load_FRM_MP3Tag(); });
    runLocked([this] { logic_.Form_Load(); });
    const bool two = logic_.form().editsVersion1;
    if (!two) {
        tabs_->setCurrentIndex(1);
    }
    QLineEdit* const first = two ? text2_.front() : text4_.front();
    if (first->isEnabled()) {
        first->setFocus();
    } else {
        (two ? checks_.front() : checks_.back())->setFocus();
    }
}

void Mp3TagDialog::reject() {
    if (!logic_.busy()) {
        Dialog::reject();
    }
}

void Mp3TagDialog::keyPressEvent(QKeyEvent* event) {
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (tab && event->modifiers().testFlag(Qt::ControlModifier)) {
        const int step = event->key() == Qt::Key_Tab ? 1 : tabs_->count() - 1;
        tabs_->setCurrentIndex((tabs_->currentIndex() + step) % tabs_->count());
        return;
    }
    Dialog::keyPressEvent(event);
}

/// Other handlers run while a big file is read or written: nothing is typed or pressed then.
void Mp3TagDialog::runLocked(const std::function<void()>& work) {
    QWidget* const focus = focusWidget();
    setEnabled(false);
    dispatcher_.run(work);
    setEnabled(true);
    showForm();
    if (focus != nullptr && focus->isEnabled()) {
        focus->setFocus();
    }
}

void Mp3TagDialog::press(Button button) {
    bool closes = false;
    runLocked([&] { closes = logic_.Command1_Click(button); });
    if (closes) {
        hide();
    }
}

void Mp3TagDialog::copy(Copy copy) {
    logic_.Command2_Click(copy);
    showForm();
}

void Mp3TagDialog::showForm() {
    const TagForm& form = logic_.form();
    path_->setText(ui::displayString(form.Text1));
    checks_[0]->setChecked(form.Check1);
    checks_[1]->setChecked(form.Check2);
    for (std::size_t index = 0; index < text2_.size(); ++index) {
        showField(text2_.at(index), form.Text2.at(index));
    }
    for (std::size_t index = 0; index < text4_.size(); ++index) {
        showField(text4_.at(index), form.Text4.at(index));
    }
    showField(text5_, form.Text5);
    showField(text3_, form.Text3);
    while (genre2_->count() > player::kForeignGenre) {
        genre2_->removeItem(genre2_->count() - 1);
    }
    if (!form.foreignGenre.empty()) {
        genre2_->addItem(ui::displayString(form.foreignGenre));
    }
    tabs_->setTabText(1, ui::displayString(form.tagName));
    nameTick();
    genre_->setCurrentIndex(form.genre);
    genre2_->setCurrentIndex(form.Genre2);
    enable();
    showFacts();
}

void Mp3TagDialog::enable() {
    const TagForm& form = logic_.form();
    for (QLineEdit* const edit : text2_) {
        edit->setEnabled(form.Check1);
    }
    text5_->setEnabled(form.Check1);
    genre_->setEnabled(form.Check1);
    for (QLineEdit* const edit : text4_) {
        edit->setEnabled(form.Check2);
    }
    text4_.back()->setEnabled(form.albumEnabled);
    text3_->setEnabled(form.Check2);
    genre2_->setEnabled(form.Check2);
    command1_.front()->setEnabled(form.mayWrite);
    checks_.front()->setEnabled(form.editsVersion1);
    for (QPushButton* const button : command2_) {
        button->setEnabled(form.mayWrite && form.editsVersion1);
    }
    const QString why = ui::displayString(logic_.reason());
    for (QLabel* const reason : reasons_) {
        reason->setText(why);
        reason->setVisible(!why.isEmpty());
    }
}

void Mp3TagDialog::showFacts() {
    const auto values = logic_.Label4({.sizeTemplate = texts_.keptText("SizeText"),
                                       .yes = texts_.keptText("YesText"),
                                       .no = texts_.keptText("NoText"),
                                       .labels = labels_});
    for (std::size_t index = 0; index < values.size(); ++index) {
        const std::string& label = labels_.at(index);
        const bool isTemplate = label.find(kPlace) != std::string::npos;
        label3_.at(index)->setText(isTemplate ? QString() : ui::displayString(label));
        label4_.at(index)->setText(ui::displayString(values.at(index)));
        label4_.at(index)->setAccessibleName(
            (label3_.at(index)->text() + ' ' + label4_.at(index)->text()).trimmed());
    }
}

void Mp3TagDialog::setText(std::string_view element, int index, TextKind kind,
                           std::string_view text) {
    if (element == "Label3") {
        labels_.at(static_cast<std::size_t>(index)) = text;
        showFacts();
        return;
    }
    if (element == kSecondTick) {
        tick_ = text;
        nameTick();
        return;
    }
    texts_.setText(element, index, kind, text);
    if (kind == TextKind::Kept) {
        showFacts();
    }
    if (element == "Label1") {
        if (index < kSharedLabels) {
            texts_.setText("Label2", index, kind, text);
        }
        nameFields();
    }
}

/// The words speak of ID3v2: the tag of another format has its own name.
void Mp3TagDialog::nameTick() {
    texts_.setText(kSecondTick, 0, TextKind::Caption,
                   base::replaceAll(tick_, kUsualTag, logic_.form().tagName));
}

/// Each field is called what the label beside it says.
void Mp3TagDialog::nameFields() {
    for (const QLabel* const label : findChildren<QLabel*>()) {
        if (QWidget* const field = label->buddy(); field != nullptr) {
            field->setAccessibleName(label->text());
        }
    }
}

} // namespace tovik::dialogs
