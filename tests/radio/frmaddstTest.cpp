// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/frmaddst.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;

class frmaddstTest : public PlayerRig {
protected:
    playlist::stdSS RadioLst_;
    radio::frmaddst dialog_{core_, RadioLst_};
};

TEST_F(frmaddstTest, whateverStandsInTheFieldsBecomesAStation) {
    dialog_.Command1_Click("Name", "http://one.example/");
    dialog_.Command1_Click("", "");
    using playlist::RowText;
    EXPECT_EQ(RadioLst_.ListCount(), 2);
    EXPECT_EQ(RadioLst_.text(1, RowText::ItemData), "http://one.example/");
    EXPECT_EQ(RadioLst_.text(1, RowText::FileName), "http://one.example/");
    EXPECT_EQ(RadioLst_.text(1, RowText::Title), "Name");
    EXPECT_EQ(RadioLst_.text(1, RowText::TimeText), "IRT");
    EXPECT_EQ(RadioLst_.text(2, RowText::ItemData), "");
    EXPECT_EQ(RadioLst_.SelectedIndex, 0);
}

TEST_F(frmaddstTest, itStaysInFrontAsThePlayerDoes) {
    int worded = 0;
    for (const bool front : {true, false}) {
        set("ASOT", front ? "1" : "0");
        dialog_.Form_Load([&] { ++worded; });
        EXPECT_EQ(dialog_.staysOnTop(), front);
    }
    EXPECT_EQ(worded, 2);
}

TEST_F(frmaddstTest, whatGoesWrongIsLogged) {
    takeOut("ASOT");
    dialog_.Form_Load([] {});
    EXPECT_THAT(logged(), ElementsAre(testing::HasSubstr("AddStation,Load")));
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

} // namespace
} // namespace tovik::test
