// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainControls.h"

#include "app/ListWatch.h"
#include "app/SearchField.h"

#include <algorithm>

namespace tovik::app {

using window::MainElement;

MainControls::MainControls(frmPlayer& player, ui::SkinWindow& window,
                           const host::Dispatcher& dispatcher)
    : player_(player), window_(window), dispatcher_(dispatcher),
      quickList_(player.List1(), player.stdSS(), player.music().playback.rows,
                 &player.menus().frmTSR),
      text4_(new QWidget) {
    text4_->setFocusPolicy(Qt::StrongFocus);
    text4_->setAttribute(Qt::WA_NoSystemBackground);
    text4_->setObjectName(QStringLiteral("Text4"));
    window_.hostControl(MainElement::Text4, 0, text4_);
    quickList_.obey(player.state().comfort);
    addQuickList();
    takeFiles(addList(MainElement::stdSS, "stdSS", player.stdSS()));
    rows_.back()->tellSeen([this](playlist::Row row) { player_.filling().rowFacts.rowSeen(row); });
    addList(MainElement::lstTracks, "lstTracks", player.lists().lstTracks);
    addList(MainElement::RadioLst, "RadioLst", player.lists().RadioLst);
    addSearchField();
    addDrives();
    takeFocus();
    player.filling().rowFacts.begin();
}

MainControls::~MainControls() {
    player_.discs().drives.cmbCDDrives.changed = {};
    player_.List1().watchSelection({});
}

void MainControls::addDrives() {
    auto* box = new QComboBox;
    box->setObjectName(QStringLiteral("cmbCDDrives"));
    box->setFocusPolicy(Qt::ClickFocus);
    cd::CdDrives& drives = player_.discs().drives;
    drives.cmbCDDrives.changed = [box, &drives] {
        QStringList texts;
        for (const cd::DriveBox::Entry& entry : drives.cmbCDDrives.entries) {
            texts.append(QString::fromStdString(entry.text));
        }
        box->clear();
        box->addItems(texts);
        box->setCurrentIndex(drives.cmbCDDrives.ListIndex);
    };
    drives.cmbCDDrives.changed();
    QObject::connect(box, &QComboBox::activated, box, [this, &drives](int index) {
        dispatcher_.run([&] { drives.choose(index); });
    });
    window_.hostControl(MainElement::cmbCDDrives, 0, box);
}

void MainControls::takeFocus() {
    text4_->setFocus();
}

template <typename Rows>
ui::ListWidget& MainControls::makeList(MainElement element, const char* objectName, Rows& rows) {
    auto* const widget = new ui::ListWidget(rows, rows, dispatcher_);
    widget->setObjectName(QString::fromLatin1(objectName));
    widget->leaveToWindow(
        [this](const ui::KeyEvent& key) { return player_.menus().frmTSR.hasAccelerator(key); });
    widget->setScrollerPicture([this](int factor) {
        return player_.view().pictures.find(player_.elements().get(MainElement::Picture3).picture,
                                            factor);
    });
    rows.showsRowsAt([this, element, widget](std::size_t row) {
        const ui::Box box = player_.elements().get(element).box();
        const double scale = box.width / std::max(1, widget->width());
        const QRect cell = widget->cellPlace(row, 0);
        return menus::MenuPlace{box.left + cell.left() * scale, box.top + cell.top() * scale,
                                cell.width() * scale, cell.height() * scale};
    });
    return *widget;
}

void MainControls::addQuickList() {
    auto* widget = &makeList(MainElement::List1, "List1", quickList_);
    window_.hostControl(MainElement::List1, 0, widget);
    takeFiles(*widget);
    watches_.push_back(std::make_unique<ListWatch>(player_.stdSS(), *widget, false));
    player_.List1().watchSelection([widget](std::int32_t item) {
        const auto row = static_cast<std::size_t>(item);
        widget->looksChanged(row, row);
    });
}

ui::ListWidget& MainControls::addList(MainElement element, const char* objectName,
                                      playlist::stdSS& list) {
    window::ListRows& rows = *rows_.emplace_back(std::make_unique<window::ListRows>(
        list, element == MainElement::lstTracks ? nullptr : &player_.menus().frmTSR,
        element == MainElement::RadioLst ? commands::CommandId::radioInfo
                                         : commands::CommandId::editTag));
    rows.obey(player_.state().comfort);
    auto* widget = &makeList(element, objectName, rows);
    widget->setColours(window::kListColours);
    widget->showTimes();
    window_.hostControl(element, 0, widget);
    watches_.push_back(std::make_unique<ListWatch>(list, *widget, true));
    return *widget;
}

void MainControls::takeFiles(ui::ListWidget& list) {
    list.takeFiles([this](std::span<const std::string> paths, std::optional<std::size_t> /*row*/) {
        player_.filling().media.Stdss_OleDragDrop(paths);
    });
}

void MainControls::addSearchField() {
    auto* field = new SearchField([this] { takeFocus(); },
                                  [this](const QString& text) {
                                      dispatcher_.run(
                                          [&] { player_.search().searchFor(text.toStdString()); });
                                  });
    field->setObjectName(QStringLiteral("musicSearchTxt"));
    // The record holds what is in the field, whoever writes it.
    QObject::connect(field, &QLineEdit::textEdited, field, [this](const QString& text) {
        dispatcher_.run([&] {
            player_.elements().touch(MainElement::musicSearchTxt).caption = text.toStdString();
        });
    });
    window_.hostControl(MainElement::musicSearchTxt, 0, field);
}

} // namespace tovik::app
