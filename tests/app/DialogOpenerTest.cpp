// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogOpener.h"

#include "app/AppRig.h"

#include <algorithm>
#include <array>
#include <memory>
#include <QApplication>
#include <QScreen>
#include <QTimer>

namespace tovik::test {
namespace {

using dialogs::Dialog;
using dialogs::DialogKind;
using dialogs::DialogParts;
using dialogs::DialogRow;
using window::WindowId;

/// A dialog that only counts how often it was asked for.
class CountedDialog final : public Dialog {
public:
    using Dialog::Dialog;

    int loads = 0;

    void load() override { ++loads; }
};

Dialog& make(const DialogParts& parts) {
    return *new CountedDialog(parts.parent);
}

constexpr std::array kBeside = {DialogRow{WindowId::loadPreset, DialogKind::beside, make}};
constexpr std::array kFirst = {DialogRow{WindowId::loadPreset, DialogKind::first, make}};

class DialogOpener : public AppRig {
protected:
    [[nodiscard]] QList<CountedDialog*> made() const {
        return parent_->findChildren<CountedDialog*>(Qt::FindDirectChildrenOnly);
    }

    std::unique_ptr<QWidget> parent_ = std::make_unique<QWidget>();
};

TEST_F(DialogOpener, opensNothingBeforeThereIsAWindow) {
    dialogs::DialogOpener opener(host_.dispatcher, kBeside);
    opener.open(WindowId::loadPreset);
    EXPECT_TRUE(made().empty());
}

TEST_F(DialogOpener, aDialogBesideThePlayerIsMadeOnceAndReadAnewEachTime) {
    dialogs::DialogOpener opener(host_.dispatcher, kBeside);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    ASSERT_EQ(made().size(), 1);
    CountedDialog* const dialog = made().front();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(dialog->isModal());
    dialog->close();
    opener.open(WindowId::loadPreset);
    EXPECT_EQ(made(), QList<CountedDialog*>{dialog});
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->loads, 2);
}

TEST_F(DialogOpener, aDialogInFrontOfAllIsGoneOnReturn) {
    dialogs::DialogOpener opener(host_.dispatcher, kFirst);
    opener.attach(player().dialogs(), *parent_);
    int seen = 0;
    const auto whileOpen = [&] {
        ASSERT_EQ(made().size(), 1);
        CountedDialog* const dialog = made().front();
        EXPECT_TRUE(dialog->isModal());
        opener.open(WindowId::loadPreset); // by a key, a tray or another program
        EXPECT_EQ(made().size(), 1);
        EXPECT_EQ(dialog->loads, 2);
        ++seen;
        dialog->close();
    };
    for (int times = 1; times <= 2; ++times) {
        QTimer::singleShot(0, parent_.get(), whileOpen);
        opener.open(WindowId::loadPreset);
        EXPECT_EQ(seen, times);
        EXPECT_TRUE(made().empty());
    }
}

TEST_F(DialogOpener, dialogsGoWithTheMainWindow) {
    dialogs::DialogOpener opener(host_.dispatcher, kBeside);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    const QPointer<CountedDialog> dialog = made().front();
    parent_.reset();
    EXPECT_TRUE(dialog.isNull());
    opener.open(WindowId::loadPreset);
}

TEST_F(DialogOpener, everyWindowHasOneRow) {
    EXPECT_EQ(dialogs::dialogTable().size(), window::kWindows);
    for (std::size_t id = 0; id < window::kWindows; ++id) {
        EXPECT_EQ(std::ranges::count(dialogs::dialogTable(), static_cast<WindowId>(id),
                                     &DialogRow::window),
                  1)
            << id;
    }
}

/// One that has a name to be remembered by.
Dialog& makeNamed(const DialogParts& parts) {
    auto& dialog = *new CountedDialog(parts.parent);
    dialog.setObjectName(QStringLiteral("frmNamed"));
    dialog.resize(200, 100);
    return dialog;
}

constexpr std::array kNamed = {DialogRow{WindowId::loadPreset, DialogKind::beside, makeNamed}};

TEST_F(DialogOpener, withComfortADialogComesBackToItsPlace) {
    put("CMF22", "1");
    put("WPL", "mini 5 5;frmNamed 120 80");
    start();
    dialogs::DialogOpener opener(host_.dispatcher, kNamed);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    ASSERT_EQ(made().size(), 1);
    EXPECT_EQ(made().front()->geometry().topLeft(), QPoint(120, 80));
    made().front()->setGeometry(210, 90, 200, 100);
    advance(player::StoredSettings::kRestMs + 1);
    EXPECT_EQ(setting("WPL"), "frmNamed 210 90;mini 5 5");
}

TEST_F(DialogOpener, withComfortADialogOfAScreenThatIsGoneComesToOneThatExists) {
    put("CMF22", "1");
    put("WPL", "frmNamed 90000 70");
    start();
    dialogs::DialogOpener opener(host_.dispatcher, kNamed);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    ASSERT_EQ(made().size(), 1);
    const QRect place = made().front()->geometry();
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_TRUE(room.contains(place));
    EXPECT_EQ(place.right() + 1, room.right());
}

TEST_F(DialogOpener, withComfortADialogComesBackInItsSize) {
    put("CMF22", "1");
    put("WPL", "frmNamed.size 330 220;frmNamed 120 80");
    start();
    dialogs::DialogOpener opener(host_.dispatcher, kNamed);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    ASSERT_EQ(made().size(), 1);
    EXPECT_EQ(made().front()->geometry(), QRect(120, 80, 330, 220));
    made().front()->resize(300, 210);
    advance(player::StoredSettings::kRestMs + 1);
    EXPECT_EQ(setting("WPL"), "frmNamed.size 300 210;frmNamed 120 80");
}

TEST_F(DialogOpener, withComfortASizeIsHeldToTheScreen) {
    put("CMF22", "1");
    put("WPL", "frmNamed.size 9000 8000");
    start();
    dialogs::DialogOpener opener(host_.dispatcher, kNamed);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    ASSERT_EQ(made().size(), 1);
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(made().front()->width(), room.width());
    EXPECT_LT(made().front()->height(), room.height()) << "there is a title, too";
    EXPECT_GT(made().front()->height(), room.height() / 2);
}

TEST_F(DialogOpener, withoutComfortNobodyNotesWhereADialogIs) {
    put("WPL", "frmNamed 120 80;frmNamed.size 330 220");
    start();
    dialogs::DialogOpener opener(host_.dispatcher, kNamed);
    opener.attach(player().dialogs(), *parent_);
    opener.open(WindowId::loadPreset);
    ASSERT_EQ(made().size(), 1);
    EXPECT_NE(made().front()->pos(), QPoint(120, 80));
    EXPECT_EQ(made().front()->size(), QSize(200, 100));
    made().front()->setGeometry(210, 90, 250, 150);
    EXPECT_EQ(player().state().WindowPlaces, "");
    player().kill_me();
    EXPECT_EQ(setting("WPL"), "frmNamed 120 80;frmNamed.size 330 220");
}

} // namespace
} // namespace tovik::test
