// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/MusicSearchDialog.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <optional>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace tovik::dialogs {

namespace {

using Check = player::frmJump2File::Check;
using Move = player::frmJump2File::Move;

constexpr int kWidth = 420;
constexpr int kHeight = 420;

constexpr std::array<std::pair<int, Move>, 4> kMoves = {{
    {Qt::Key_Down, Move::down},
    {Qt::Key_Up, Move::up},
    {Qt::Key_PageDown, Move::pageDown},
    {Qt::Key_PageUp, Move::pageUp},
}};

std::optional<Move> moveOf(const QKeyEvent& event) {
    const auto* const found = std::ranges::find(kMoves, event.key(), &std::pair<int, Move>::first);
    return found == kMoves.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

int MusicSearchDialog::Hits::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !logic_.isOpen() ? 0 : static_cast<int>(logic_.List1().size());
}

QVariant MusicSearchDialog::Hits::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || index.row() >= rowCount()) {
        return {};
    }
    return ui::displayString(logic_.title(static_cast<std::size_t>(index.row())));
}

MusicSearchDialog::MusicSearchDialog(player::frmJump2File& logic, config::MultiLNG& language,
                                     const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      searchString_(new QLineEdit),
      list_(new QListView), checks_{new QCheckBox(QStringLiteral("Exact match")),
                                    new QCheckBox(QStringLiteral("Match case"))},
      count_(new QLabel) {
    build();
    connectControls();
}

MusicSearchDialog::~MusicSearchDialog() {
    if (logic_.isOpen()) {
        dispatcher_.run([this] { logic_.Form_Unload(); });
    }
}

void MusicSearchDialog::build() {
    setObjectName(QStringLiteral("frmJump2File"));
    setWindowTitle(QStringLiteral("Music search"));
    searchString_->setObjectName(QStringLiteral("SearchString"));
    list_->setObjectName(QStringLiteral("List1"));
    list_->setModel(&hits_);
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    count_->setObjectName(QStringLiteral("Label1"));
    auto* frame = new QGroupBox(QStringLiteral("Search for"));
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* inFrame = new QVBoxLayout(frame);
    inFrame->addWidget(searchString_);
    auto* ticks = new QHBoxLayout;
    for (std::size_t check = 0; check < checks_.size(); ++check) {
        checks_.at(check)->setObjectName(QStringLiteral("Check1_%1").arg(check));
        ticks->addWidget(checks_.at(check));
    }
    inFrame->addLayout(ticks);
    auto* close = new QPushButton(QStringLiteral("&Close"));
    close->setObjectName(QStringLiteral("Command1"));
    close->setAutoDefault(false); // Enter plays the hit
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(count_, 1);
    bottom->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(list_, 1);
    layout->addLayout(bottom);
    resize(kWidth, kHeight);
}

void MusicSearchDialog::connectControls() {
    searchString_->installEventFilter(this);
    connect(searchString_, &QLineEdit::textChanged, this, [this](const QString& text) {
        dispatcher_.run([&] {
            if (logic_.isOpen()) {
                logic_.SearchString_Change(text.toStdString());
            }
        });
    });
    for (const Check check : {Check::exactMatch, Check::matchCase}) {
        connect(checks_.at(static_cast<std::size_t>(check)), &QCheckBox::clicked, this,
                [this, check](bool ticked) {
                    dispatcher_.run([&] { logic_.Check1_Click(check, ticked); });
                });
    }
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid()) {
                    dispatcher_.run([&] { logic_.ListIndex(current.row()); });
                }
            });
    connect(list_, &QListView::doubleClicked, this,
            [this] { dispatcher_.run([this] { logic_.SearchString_Enter(); }); });
    connect(this, &QDialog::finished, this, [this] {
        if (logic_.isOpen()) {
            dispatcher_.run([this] { logic_.Form_Unload(); });
        }
        hits_.renew();
    });
}

void MusicSearchDialog::load() {
    const bool anew = !logic_.isOpen();
    dispatcher_.run([this] { language_.Load_FRM_search_LNG(); });
    searchString_->setAccessibleName(findChild<QGroupBox*>(QStringLiteral("Frame1"))->title());
    list_->setAccessibleName(windowTitle());
    dispatcher_.run([this] { logic_.Form_Load(*this); });
    if (anew) {
        const QSignalBlocker quiet(searchString_);
        searchString_->clear();
        showTicks();
        setWindowFlag(Qt::WindowStaysOnTopHint, logic_.staysOnTop());
    }
    showCount();
    searchString_->setFocus();
}

void MusicSearchDialog::showTicks() {
    for (const Check check : {Check::exactMatch, Check::matchCase}) {
        checks_.at(static_cast<std::size_t>(check))->setChecked(logic_.Check1(check));
    }
}

bool MusicSearchDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        if (const auto move = moveOf(static_cast<const QKeyEvent&>(*event))) {
            dispatcher_.run([&] { logic_.SearchString_KeyDown(*move); });
            return true;
        }
    }
    return Dialog::eventFilter(watched, event);
}

void MusicSearchDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        dispatcher_.run([this] { logic_.SearchString_Enter(); });
        return;
    }
    Dialog::keyPressEvent(event);
}

void MusicSearchDialog::showText(const std::string& text) {
    searchString_->setText(ui::displayString(text)); // the caret goes behind it
    searchString_->deselect();
}

void MusicSearchDialog::showHits() {
    hits_.renew();
    showSelected();
}

void MusicSearchDialog::showSelected() {
    const QSignalBlocker quiet(list_->selectionModel());
    list_->setCurrentIndex(hits_.index(logic_.ListIndex(), 0));
    list_->viewport()->update();
}

void MusicSearchDialog::showCount() {
    if (logic_.isOpen()) {
        count_->setText(ui::displayString(logic_.Label1(texts_.keptText("PublicText"))));
    }
}

void MusicSearchDialog::hide() {
    Dialog::hide();
}

void MusicSearchDialog::unload() {
    reject();
}

} // namespace tovik::dialogs
