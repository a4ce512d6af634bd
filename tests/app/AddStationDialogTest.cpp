// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that adds a station, on the screen.
#include "dialogs/AddStationDialog.h"

#include "app/AppRig.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace tovik::test {
namespace {

class AddStationDialogTest : public AppRig {
protected:
    AddStationDialogTest() {
        start();
        dialog_ = std::make_unique<dialogs::AddStationDialog>(
            player().stations().addStation, player().ground().language, host_.dispatcher, nullptr);
        dialog_->load();
        dialog_->show();
    }

    template <typename Widget>
    [[nodiscard]] Widget& child(const char* name) {
        return *dialog_->findChild<Widget*>(name);
    }

    [[nodiscard]] playlist::stdSS& stations() { return player().lists().RadioLst; }

    std::unique_ptr<dialogs::AddStationDialog> dialog_;
};

TEST_F(AddStationDialogTest, speaksTheLanguage) {
    EXPECT_EQ(dialog_->windowTitle(), "Add Station");
    EXPECT_EQ(child<QLabel>("Label1").text(), "Station name");
    EXPECT_EQ(child<QPushButton>("Command1_0").text(), "&Add");
    EXPECT_EQ(child<QPushButton>("Command1_1").text(), "&Cancel");
    EXPECT_TRUE(host_.errors.empty());
}

TEST_F(AddStationDialogTest, addsWhatWasTypedAndCloses) {
    QTest::keyClicks(&child<QLineEdit>("Text1"), "My station");
    QTest::keyClicks(&child<QLineEdit>("Text2"), "http://one.example/");
    QTest::keyClick(dialog_.get(), Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
    ASSERT_EQ(stations().ListCount(), 1);
    EXPECT_EQ(stations().text(1, playlist::RowText::Title), "My station");
    EXPECT_EQ(stations().text(1, playlist::RowText::ItemData), "http://one.example/");
}

TEST_F(AddStationDialogTest, cancelAddsNothing) {
    QTest::keyClicks(&child<QLineEdit>("Text1"), "My station");
    child<QPushButton>("Command1_1").click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(stations().ListCount(), 0);
}

TEST_F(AddStationDialogTest, emptyFieldsAreAStation) {
    child<QPushButton>("Command1_0").click();
    EXPECT_EQ(stations().ListCount(), 1);
}

} // namespace
} // namespace tovik::test
