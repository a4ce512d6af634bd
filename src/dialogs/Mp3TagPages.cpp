// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the tag editor.
#include "dialogs/Mp3TagDialog.h"
#include "ui/qt/DisplayText.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

/// The labels beside the fields of version 2, in the order of their places on the page: what stands
/// in `Text4`, and which label says so.
struct Row {
    std::size_t field;
    int label;
};

constexpr std::array kFields{
    Row{0, 0}, Row{1, 1}, Row{9, 2}, Row{2, 3},  Row{3, 4},
    Row{4, 7}, Row{5, 8}, Row{6, 9}, Row{7, 10}, Row{8, 11},
};
constexpr int kLeastWidth = 440; ///< room for a path and for texts of some words
constexpr int kTrackLabel = 5;
constexpr int kGenreLabel = 6;

/// The first label of the fields that only version 2 has.
constexpr int kOwnLabels = 7;

QString indexed(const char* name, std::size_t index) {
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index);
}

} // namespace

QLineEdit* Mp3TagDialog::addEdit(QFormLayout& fields, int label, const QString& labelName,
                                 const QString& name) {
    auto* const edit = new QLineEdit(this);
    edit->setObjectName(name);
    auto* const text = new QLabel(this);
    text->setObjectName(labelName + QString::number(label));
    text->setBuddy(edit);
    fields.addRow(text, edit);
    return edit;
}

QComboBox* Mp3TagDialog::addGenres(QFormLayout& fields, const QString& labelName,
                                   const QString& name) {
    auto* const box = new QComboBox(this);
    box->setObjectName(name);
    for (const std::string& genre : player::frmMp3Tag::genres()) {
        box->addItem(QString::fromStdString(genre));
    }
    auto* const text = new QLabel(this);
    text->setObjectName(labelName + QString::number(kGenreLabel));
    text->setBuddy(box);
    fields.addRow(text, box);
    return box;
}

QWidget* Mp3TagDialog::versionPage(QCheckBox* tick, QPushButton* copy, QLabel* why,
                                   QFormLayout*& fields) {
    auto* const page = new QWidget(tabs_);
    auto* const column = new QVBoxLayout(page);
    column->addWidget(tick);
    fields = new QFormLayout;
    column->addLayout(fields);
    column->addStretch();
    why->setWordWrap(true);
    column->addWidget(why);
    column->addWidget(copy, 0, Qt::AlignRight);
    return page;
}

void Mp3TagDialog::addVersion1(QFormLayout& fields) {
    const QString label = QStringLiteral("Label1_");
    for (std::size_t index = 0; index < text2_.size(); ++index) {
        text2_.at(index) = addEdit(fields, static_cast<int>(index), label, indexed("Text2", index));
    }
    text5_ = addEdit(fields, kTrackLabel, label, QStringLiteral("Text5"));
    genre_ = addGenres(fields, label, QStringLiteral("genre"));
}

void Mp3TagDialog::addVersion2(QFormLayout& fields) {
    const QString shared = QStringLiteral("Label2_");
    for (const Row& row : kFields) {
        if (row.label == kOwnLabels) {
            text3_ = addEdit(fields, kTrackLabel, shared, QStringLiteral("Text3"));
            genre2_ = addGenres(fields, shared, QStringLiteral("Genre2"));
        }
        text4_.at(row.field) =
            addEdit(fields, row.label, row.label < kOwnLabels ? shared : QStringLiteral("Label1_"),
                    indexed("Text4", row.field));
    }
}

QWidget* Mp3TagDialog::factsPage() {
    auto* const page = new QWidget(tabs_);
    auto* const fields = new QFormLayout(page);
    for (std::size_t index = 0; index < label4_.size(); ++index) {
        label3_.at(index) = new QLabel(page);
        label3_.at(index)->setObjectName(indexed("Label3", index));
        label4_.at(index) = new QLabel(page);
        label4_.at(index)->setObjectName(indexed("Label4", index));
        label4_.at(index)->setTextFormat(Qt::PlainText);
        label4_.at(index)->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                                   Qt::TextSelectableByKeyboard);
        fields->addRow(label3_.at(index), label4_.at(index));
    }
    return page; // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the page owns its layout
}

QWidget* Mp3TagDialog::buttons() {
    auto* const line = new QWidget(this);
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    // Save, reload, close: the order on the screen.
    for (const std::size_t index : {std::size_t{0}, std::size_t{2}, std::size_t{1}}) {
        command1_.at(index) = new QPushButton(line);
        command1_.at(index)->setObjectName(indexed("Command1", index));
        row->addWidget(command1_.at(index));
    }
    command1_.front()->setDefault(true);
    return line;
}

void Mp3TagDialog::addPages() {
    auto* const column = new QVBoxLayout(this);
    path_->setObjectName(QStringLiteral("Text1"));
    path_->setReadOnly(true);
    path_->setAccessibleName(QStringLiteral("Path"));
    column->addWidget(path_);
    setMinimumWidth(kLeastWidth);
    tabs_->setObjectName(QStringLiteral("TabStrip1"));
    column->addWidget(tabs_);
    constexpr std::array<const char*, 2> kNames{"ID3v1", "ID3v2"};
    for (std::size_t index = 0; index < kNames.size(); ++index) {
        checks_.at(index) = new QCheckBox(tabs_);
        checks_.at(index)->setObjectName(QStringLiteral("Check%1").arg(index + 1));
        command2_.at(index) = new QPushButton(tabs_);
        command2_.at(index)->setObjectName(indexed("Command2", index));
        command2_.at(index)->setAutoDefault(false);
        reasons_.at(index) = new QLabel(tabs_);
        reasons_.at(index)->setObjectName(indexed("Reason", index));
        QFormLayout* fields = nullptr;
        QWidget* const page =
            versionPage(checks_.at(index), command2_.at(index), reasons_.at(index), fields);
        page->setObjectName(QStringLiteral("Frame%1").arg(index + 1));
        tabs_->addTab(page, QLatin1String(kNames.at(index)));
        index == 0 ? addVersion1(*fields) : addVersion2(*fields);
        // The keys go down the page, to the button last.
        setTabOrder(index == 0 ? static_cast<QWidget*>(genre_) : text4_.at(kFields.back().field),
                    command2_.at(index));
    }
    QWidget* const facts = factsPage();
    facts->setObjectName(QStringLiteral("Frame3"));
    tabs_->addTab(facts, QStringLiteral("MPEG"));
    column->addWidget(buttons());
}

} // namespace tovik::dialogs
