// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainControls.h"

#include "app/SearchField.h"

namespace tovik::app {

using window::MainElement;

/// Tells a list widget what changed in its list.
class MainControls::ListWatch final : public playlist::ListObserver {
public:
    /// `follows`: the widget scrolls to what the list wants to be seen.
    ListWatch(playlist::stdSS& list, ui::ListWidget& widget, bool follows)
        : list_(list), widget_(widget), follows_(follows) {
        list_.addObserver(*this);
    }

    ~ListWatch() override { list_.removeObserver(*this); }

    ListWatch(const ListWatch&) = delete;
    ListWatch& operator=(const ListWatch&) = delete;

    /// A long read gives way to the window again and again: a list that was painted anew each time
    /// would make it wait for the painting.
    void rowsInserted(playlist::Row, playlist::Row) override { widget_.refreshSoon(); }

    void rowsRemoved(std::span<const playlist::Row>) override { widget_.refresh(); }

    void rowsCleared() override { widget_.refresh(); }

    void rowChanged(playlist::Row row) override {
        widget_.refreshRow(static_cast<std::size_t>(row) - 1);
    }

    void looksChanged(playlist::Row, playlist::Row) override { widget_.refresh(); }

    void showRow(playlist::Row row) override {
        if (follows_ && row > 0) {
            widget_.scrollToRow(static_cast<std::size_t>(row) - 1);
        }
    }

private:
    playlist::stdSS& list_;
    ui::ListWidget& widget_;
    bool follows_;
};

MainControls::MainControls(frmPlayer& player, ui::SkinWindow& window,
                           const host::Dispatcher& dispatcher)
    : player_(player), window_(window), dispatcher_(dispatcher),
      quickList_(player.List1(), player.stdSS(), player.music().playback.rows),
      text4_(new QWidget) {
    text4_->setFocusPolicy(Qt::StrongFocus);
    text4_->setAttribute(Qt::WA_NoSystemBackground);
    text4_->setObjectName(QStringLiteral("Text4"));
    window_.hostControl(MainElement::Text4, 0, text4_);
    addQuickList();
    addList(MainElement::stdSS, "stdSS", player.stdSS());
    addList(MainElement::lstTracks, "lstTracks", player.lists().lstTracks);
    addList(MainElement::RadioLst, "RadioLst", player.lists().RadioLst);
    addSearchField();
    auto* drives = new QComboBox;
    drives->setObjectName(QStringLiteral("cmbCDDrives"));
    drives->setFocusPolicy(Qt::ClickFocus);
    window_.hostControl(MainElement::cmbCDDrives, 0, drives);
    takeFocus();
}

MainControls::~MainControls() = default;

void MainControls::takeFocus() {
    text4_->setFocus();
}

void MainControls::addQuickList() {
    auto* widget = new ui::ListWidget(quickList_, quickList_, dispatcher_);
    widget->setObjectName(QStringLiteral("List1"));
    window_.hostControl(MainElement::List1, 0, widget);
    watches_.push_back(std::make_unique<ListWatch>(player_.stdSS(), *widget, false));
}

void MainControls::addList(MainElement element, const char* objectName, playlist::stdSS& list) {
    window::ListRows& rows = *rows_.emplace_back(std::make_unique<window::ListRows>(list));
    auto* widget = new ui::ListWidget(rows, rows, dispatcher_);
    widget->setObjectName(QString::fromLatin1(objectName));
    widget->setColours(window::kListColours);
    widget->showTimes();
    widget->setScrollerPicture([this] {
        return player_.view().pictures.find(player_.elements().get(MainElement::Picture3).picture);
    });
    window_.hostControl(element, 0, widget);
    watches_.push_back(std::make_unique<ListWatch>(list, *widget, true));
}

void MainControls::addSearchField() {
    auto* field = new SearchField([this] { takeFocus(); });
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
