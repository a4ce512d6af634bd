// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainElements.h"

#include <gtest/gtest.h>

#include <vector>

namespace tovik::window {
namespace {

using N = MainElement;

class MainElementsTest : public testing::Test {
protected:
    MainElements table_{mainLayout()};
};

struct Spot {
    N name;
    std::size_t index;
    double left;
    double top;
};

/// What is fixed for every skin.
constexpr auto kFixed = std::to_array<Spot>({
    {N::iconIMG, 0, 19, 14},      {N::ScreenIMG, 0, 19, 45},   {N::infoWin, 0, 286, 45},
    {N::fxWin, 0, 286, 153},      {N::poswin, 0, 20, 153},     {N::volwin, 0, 20, 198},
    {N::balwin, 0, 164, 198},     {N::ShuffleBT, 0, 22, 242},  {N::LoopBT, 0, 52, 242},
    {N::CfdBT, 0, 82, 242},       {N::sldBT, 0, 112, 242},     {N::backupIMG, 0, 28, 270},
    {N::playup, 0, 60, 270},      {N::pauseup, 0, 92, 270},    {N::stopup, 0, 124, 270},
    {N::nextup, 0, 156, 270},     {N::fileup, 0, 202, 270},    {N::songname, 0, 127, 60},
    {N::shwchange, 0, 150, 120},  {N::shwchange, 1, 213, 120}, {N::mono_img, 0, 150, 100},
    {N::Stereo_img, 0, 185, 100}, {N::qpl_but, 0, 430, 156},   {N::mainbt, 0, 122, 9},
    {N::eqbt, 0, 146, 9},         {N::plbt, 0, 170, 9},        {N::ripbt, 0, 194, 9},
    {N::irtbt, 0, 218, 9},        {N::prebt, 0, 242, 9},       {N::minmodeUP, 0, 385, 10},
    {N::minon, 0, 405, 10},       {N::closeup, 0, 425, 10},    {N::Shuffle, 0, 97, 51},
    {N::ShuffleDown, 0, 96, 50},  {N::loopImg, 0, 109, 51},    {N::LoopImg2, 0, 111, 51},
    {N::CFD, 0, 97, 61},          {N::CFD2, 0, 97, 61},        {N::Sld, 0, 111, 61},
    {N::sld2, 0, 111, 61},        {N::lblPos, 0, 23, 154},     {N::lblPos, 1, 23, 197},
    {N::lblPos, 2, 167, 197},     {N::lblPos, 3, 289, 46},     {N::lblPos, 4, 289, 154},
    {N::lbltag, 0, 289, 58},      {N::lbltag, 1, 289, 74},     {N::lbltag, 2, 289, 90},
    {N::lbltag, 3, 289, 106},     {N::lbltag, 4, 289, 122},    {N::lblinfo, 0, 332, 58},
    {N::lblinfo, 1, 332, 74},     {N::lblinfo, 2, 332, 90},    {N::lblinfo, 3, 332, 106},
    {N::lblinfo, 4, 332, 122},
});

TEST_F(MainElementsTest, everyFixedElementStandsAtItsPlace) {
    for (const Spot& spot : kFixed) {
        const ui::Element& element = table_.get(spot.name, spot.index);
        EXPECT_EQ(element.left, spot.left) << static_cast<int>(spot.name) << " " << spot.index;
        EXPECT_EQ(element.top, spot.top) << static_cast<int>(spot.name) << " " << spot.index;
    }
}

TEST_F(MainElementsTest, fixedSizes) {
    EXPECT_EQ(table_.get(N::List1).box(), (ui::Box{288, 169, 161, 80}));
    EXPECT_EQ(table_.get(N::mainIMG).box(), (ui::Box{0, 0, 470, 312}));
    EXPECT_EQ(table_.get(N::posbar).box(), (ui::Box{26, 171, 250, 12}));
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(table_.get(N::timed, i).width, 14.4);
        EXPECT_EQ(table_.get(N::timed, i).height, 17);
        EXPECT_EQ(table_.get(N::timed, i).top, 52);
    }
    for (std::size_t i = 0; i < 13; ++i) {
        EXPECT_EQ(table_.get(N::Picture6, i).box(),
                  (ui::Box{40 + 32 * static_cast<double>(i), 80, 13, 129}));
    }
    EXPECT_EQ(table_.get(N::eq_sld, 10).box(), table_.get(N::Picture6, 10).box());
    EXPECT_EQ(table_.get(N::balbar, 8).box(), (ui::Box{268, 216, 10, 14}));
}

TEST_F(MainElementsTest, theHolderOfTheFocusDrawsNothing) {
    const ui::Element& holder = table_.get(N::Text4);
    EXPECT_TRUE(holder.visible) << "or it could not hold the focus";
    EXPECT_EQ(holder.backColour, std::nullopt);
    EXPECT_EQ(holder.caption, "");
    EXPECT_FALSE(holder.picture);
}

TEST_F(MainElementsTest, arraysHaveTheirSizes) {
    constexpr auto kCounts = std::to_array<std::pair<N, std::size_t>>({
        {N::timed, 6},
        {N::lbltag, 5},
        {N::lblinfo, 5},
        {N::lblPos, 5},
        {N::balbar, 9},
        {N::eq_sld, 11},
        {N::Image1, 5},
        {N::Digit, 10},
        {N::tmp, 17},
        {N::Image2, 18},
        {N::Picture6, 13},
        {N::Image6, 8},
        {N::Image8, 4},
        {N::Label4, 9},
        {N::shwchange, 2},
        {N::playup, 1},
    });
    for (const auto& [name, count] : kCounts) {
        EXPECT_EQ(table_.count(name), count) << static_cast<int>(name);
    }
}

TEST_F(MainElementsTest, aDownFaceLiesHiddenOnItsUpFace) {
    constexpr auto kPairs = std::to_array<std::pair<N, N>>({
        {N::backupIMG, N::backdownIMG},
        {N::playup, N::playdown},
        {N::pauseup, N::pausedown},
        {N::stopup, N::stopdown},
        {N::nextup, N::nextdown},
        {N::fileup, N::filedown},
        {N::closeup, N::closedown},
        {N::minon, N::minoff},
        {N::minmodeUP, N::minmodeDown},
    });
    for (const auto& [up, down] : kPairs) {
        EXPECT_EQ(table_.get(up).box(), table_.get(down).box());
        EXPECT_TRUE(table_.get(up).visible);
        EXPECT_FALSE(table_.get(down).visible);
    }
    EXPECT_EQ(table_.get(N::Image1, 3).box(), table_.get(N::Image1, 4).box());
}

TEST_F(MainElementsTest, theOrderFromTheBackIsWindowAreasLinesHeadingsFieldsBarsListsButtonsTabs) {
    const std::vector<N> fromTheBack{N::mainIMG, N::poswin,    N::Line3,  N::lblPos, N::lblinfo,
                                     N::posbar,  N::track,     N::List1,  N::stdSS,  N::playup,
                                     N::qpl_but, N::ShuffleBT, N::mainbt, N::tmp};
    const auto slot = [&](N name) { return table_.slotOf(ui::addressOf(name)); };
    EXPECT_EQ(slot(N::mainIMG), 0U);
    for (const N tab : {N::mainbt, N::prebt}) {
        for (const N below : {N::stdSS, N::RadioLst, N::CFD, N::qpl_but, N::posbar}) {
            EXPECT_LT(slot(below), slot(tab));
        }
    }
    EXPECT_LT(slot(N::stdSS), slot(N::Shuffle));
    EXPECT_LT(slot(N::volbar), slot(N::volbarIMG));
    EXPECT_LT(slot(N::Picture6), slot(N::eq_sld));
    EXPECT_LT(slot(N::Image3), slot(N::Picture6));
    for (std::size_t i = 1; i < 9; ++i) {
        EXPECT_LT(slot(fromTheBack[i - 1]), slot(fromTheBack[i])) << i;
    }
}

TEST_F(MainElementsTest, whatIsVisibleLiesInTheWindowAndNothingHidesTheButtons) {
    const ui::Box window = table_.get(N::mainIMG).box();
    for (std::size_t slot = 0; slot < table_.size(); ++slot) {
        const ui::Box box = table_.at(slot).box();
        EXPECT_GE(box.left, 0) << slot;
        EXPECT_GE(box.top, 0) << slot;
        EXPECT_LE(box.left + box.width, window.width) << slot;
        EXPECT_LE(box.top + box.height, window.height) << slot;
    }
    for (const N button :
         {N::backupIMG, N::playup, N::pauseup, N::stopup, N::nextup, N::fileup, N::ShuffleBT,
          N::LoopBT, N::CfdBT, N::sldBT, N::closeup, N::qpl_but, N::mainbt, N::prebt}) {
        const ui::Box box = table_.get(button).box();
        const auto slot = table_.topmostAt(box.left + box.width / 2, box.top + box.height / 2);
        ASSERT_TRUE(slot);
        EXPECT_EQ(table_.address(*slot), ui::addressOf(button));
    }
}

} // namespace
} // namespace tovik::window
