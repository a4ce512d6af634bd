// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DiscInfoDialog.h"

#include "tags/GenreNames.h"
#include "ui/qt/DisplayText.h"

#include <QCompleter>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

using Button = cd::frmCdNFO::Button;

constexpr std::size_t kTrackField = 1;
constexpr std::size_t kGenreField = 2;
constexpr int kYearWidth = 70;
constexpr int kListWidth = 440;
constexpr int kListHeight = 240;
constexpr int kGenres = 148;

/// What the buttons say before the language does.
struct Caption {
    Button button;
    const char* text;
};

/// In the order of the screen.
constexpr std::array kButtons{
    Caption{Button::rip, "&Rip"},
    Caption{Button::search, "&Search for CDDB info"},
    Caption{Button::clear, "C&lear"},
    Caption{Button::close, "&Close"},
};

QString nameOf(Button button) {
    return QStringLiteral("Command1_%1").arg(static_cast<int>(button));
}

QLabel& makeLabel(const char* name, QLineEdit* buddy) {
    auto* const label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    return *label;
}

/// Offers the genres that have a number in a tag; any other may be typed.
QCompleter& makeGenres(QObject* owner) {
    QStringList names;
    for (int genre = 0; genre < kGenres; ++genre) {
        if (const std::string_view name = tags::genreName(genre); !name.empty()) {
            names << ui::displayString(name);
        }
    }
    names.sort();
    auto* const genres = new QCompleter(names, owner);
    genres->setCaseSensitivity(Qt::CaseInsensitive);
    return *genres;
}

/// The caret stays where it is while the text does.
void showText(QLineEdit* edit, const std::string& text) {
    const QString shown = ui::displayString(text);
    if (edit->text() != shown) {
        edit->setText(shown);
        edit->setCursorPosition(0);
    }
}

} // namespace

DiscInfoDialog::DiscInfoDialog(cd::frmCdNFO& logic, const cd::DiscForm& form,
                               config::MultiLNG& language, const host::Dispatcher& dispatcher,
                               QWidget* parent)
    : Dialog(parent), logic_(logic), form_(form), language_(language), dispatcher_(dispatcher),
      list1_(new QListWidget), status_(new QLabel) {
    setObjectName(QStringLiteral("frmCdNFO"));
    setWindowTitle(QStringLiteral("Disc information"));
    for (std::size_t i = 0; i < text1_.size(); ++i) {
        text1_.at(i) = new QLineEdit;
        text1_.at(i)->setObjectName(QStringLiteral("Text1_%1").arg(i));
    }
    for (std::size_t i = 0; i < text2_.size(); ++i) {
        text2_.at(i) = new QLineEdit;
        text2_.at(i)->setObjectName(QStringLiteral("Text2_%1").arg(i));
    }
    text1_.back()->setMaximumWidth(kYearWidth);
    text2_.at(kGenreField)->setCompleter(&makeGenres(this));
    text2_.at(kTrackField)->installEventFilter(this);
    list1_->setObjectName(QStringLiteral("List1"));
    list1_->setMinimumSize(kListWidth, kListHeight);
    list1_->setUniformItemSizes(true);
    status_->setObjectName(QStringLiteral("Status"));

    auto* const grid = new QGridLayout;
    grid->addWidget(&makeLabel("Frame1", text1_.front()), 0, 0);
    grid->addWidget(text1_.front(), 0, 1, 1, 3);
    grid->addWidget(&makeLabel("Frame2_0", text2_.front()), 1, 0);
    grid->addWidget(text2_.front(), 1, 1, 1, 3);
    grid->addWidget(&makeLabel("Frame3", text1_.back()), 2, 0);
    grid->addWidget(text1_.back(), 2, 1);
    grid->addWidget(&makeLabel("Frame4", text2_.at(kGenreField)), 2, 2);
    grid->addWidget(text2_.at(kGenreField), 2, 3);
    grid->setColumnStretch(3, 1);
    grid->addWidget(list1_, 3, 0, 1, 4);
    grid->setRowStretch(3, 1);
    grid->addWidget(&makeLabel("Frame2_1", text2_.at(kTrackField)), 4, 0);
    grid->addWidget(text2_.at(kTrackField), 4, 1, 1, 3);
    grid->addWidget(status_, 5, 0, 1, 4);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const Caption& caption : kButtons) {
        auto* const button = new QPushButton(QString::fromUtf8(caption.text));
        button->setObjectName(nameOf(caption.button));
        // Enter in a field begins no rip.
        button->setAutoDefault(false);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, id = caption.button] { press(id); });
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(grid, 1);
    layout->addLayout(buttons);
    connectAll();
}

DiscInfoDialog::~DiscInfoDialog() {
    unload();
}

void DiscInfoDialog::connectAll() {
    // Only typing changes the form.
    for (std::size_t i = 0; i < text1_.size(); ++i) {
        connect(text1_.at(i), &QLineEdit::textEdited, this, [this, i](const QString& text) {
            logic_.Text1_Change(static_cast<int>(i), text.toStdString());
        });
    }
    for (std::size_t i = 0; i < text2_.size(); ++i) {
        connect(text2_.at(i), &QLineEdit::textEdited, this, [this, i](const QString& text) {
            logic_.Text2_Change(static_cast<int>(i), text.toStdString());
        });
    }
    // A genre that is chosen from the offered ones is no typing.
    connect(text2_.at(kGenreField)->completer(), qOverload<const QString&>(&QCompleter::activated),
            this,
            [this](const QString& text) { logic_.Text2_Change(kGenreField, text.toStdString()); });
    connect(list1_, &QListWidget::currentRowChanged, this, [this](int row) {
        logic_.List1_Click(row);
        showText(text2_.at(kTrackField), form_.Text2.at(kTrackField));
    });
}

void DiscInfoDialog::load() {
    open_ = true;
    dispatcher_.run([this] {
        logic_.Form_Load(*this, [this] {
            language_.Load_FRM_cdinfo_LNG();
            language_.loadDiscWords();
        });
    });
    setWindowFlag(Qt::WindowStaysOnTopHint, logic_.staysOnTop());
    showData();
    showSearch();
    text1_.front()->setFocus();
}

void DiscInfoDialog::showEvent(QShowEvent* event) {
    Dialog::showEvent(event);
    // The window comes first: what is looked for may take long.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (open_) {
                dispatcher_.run([this] { logic_.Form_Activate(); });
            }
        },
        Qt::QueuedConnection);
}

void DiscInfoDialog::reject() {
    press(Button::close);
}

void DiscInfoDialog::done(int result) {
    unload();
    Dialog::done(result);
}

void DiscInfoDialog::unload() {
    if (open_) {
        open_ = false;
        logic_.Form_Unload();
    }
}

void DiscInfoDialog::press(Button button) {
    bool closes = false;
    dispatcher_.run([&] { closes = logic_.Command1_Click(button); });
    if (closes && open_) {
        done(button == Button::rip ? Accepted : Rejected);
    }
}

bool DiscInfoDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && list1_->currentRow() < 0) {
        goOn(1);
    }
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            goOn(1);
            return true;
        case Qt::Key_Up:
            goOn(-1);
            return true;
        default:
            break;
        }
    }
    return Dialog::eventFilter(watched, event);
}

void DiscInfoDialog::goOn(int rows) {
    const int row = list1_->currentRow() + rows;
    if (row >= 0 && row < list1_->count()) {
        list1_->setCurrentRow(row);
        text2_.at(kTrackField)->selectAll();
    }
}

void DiscInfoDialog::showData() {
    for (std::size_t i = 0; i < text1_.size(); ++i) {
        showText(text1_.at(i), form_.Text1.at(i));
    }
    for (std::size_t i = 0; i < text2_.size(); ++i) {
        showText(text2_.at(i), form_.Text2.at(i));
    }
    const QSignalBlocker quiet(list1_);
    list1_->clear();
    for (const std::string& name : form_.List1) {
        list1_->addItem(ui::displayString(name));
    }
    const auto selected = logic_.Get_Selected();
    list1_->setCurrentRow(selected ? static_cast<int>(*selected) : -1);
}

void DiscInfoDialog::showTrack(std::size_t track) {
    if (QListWidgetItem* const item = list1_->item(static_cast<int>(track)); item != nullptr) {
        item->setText(ui::displayString(form_.List1.at(track)));
    }
}

void DiscInfoDialog::showSearch() {
    const bool searching = logic_.searching();
    findChild<QPushButton*>(nameOf(Button::search))->setEnabled(!searching);
    std::string text;
    if (searching) {
        text = texts_.keptText("SearchText");
    } else if (const auto end = logic_.searchEnd()) {
        text = texts_.keptText("SearchText", 1 + static_cast<int>(*end));
    }
    status_->setText(ui::displayString(text));
}

} // namespace tovik::dialogs
