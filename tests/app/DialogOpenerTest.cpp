// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogOpener.h"

#include "app/AppRig.h"

#include <algorithm>
#include <array>
#include <memory>
#include <QApplication>
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

} // namespace
} // namespace tovik::test
