// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowPictures.h"

#include "base/RuntimeError.h"
#include "support/skin/Bitmaps.h"

#include <gtest/gtest.h>

#include <set>

namespace tovik::window {
namespace {

using N = MainElement;

class WindowPicturesTest : public testing::Test {
protected:
    [[nodiscard]] ui::Picture picture(N name, std::size_t index = 0) const {
        return elements_.get(name, index).picture;
    }

    void giveAll() {
        giveWindowPictures(elements_, pictures_, [this](std::string_view name) {
            asked_.insert(std::string(name));
            ++requests_;
            return bitmap_;
        });
    }

    std::string bitmap_ = skin::BitmapParts{.pixels = std::string(4, '\x55')}.bytes();
    std::set<std::string> asked_;
    std::size_t requests_ = 0;
    MainElements elements_{mainLayout()};
    ui::PictureStore pictures_;
};

TEST_F(WindowPicturesTest, everyElementWithoutAFileGetsAPicture) {
    giveAll();
    for (const N name : {N::posbar, N::track, N::volbar, N::volbarIMG, N::Image3, N::baron,
                         N::baroff, N::balcnt}) {
        EXPECT_TRUE(picture(name)) << static_cast<int>(name);
    }
    for (std::size_t lamp = 0; lamp < 9; ++lamp) {
        EXPECT_EQ(picture(N::balbar, lamp), picture(lamp == 4 ? N::balcnt : N::baroff)) << lamp;
    }
    for (std::size_t column = 0; column < 13; ++column) {
        EXPECT_TRUE(picture(N::Picture6, column)) << column;
    }
    for (std::size_t slider = 0; slider < 11; ++slider) {
        EXPECT_EQ(picture(N::eq_sld, slider), picture(N::Picture6, slider)) << slider;
    }
    EXPECT_NE(picture(N::baron), picture(N::baroff));
    EXPECT_NE(picture(N::Picture6, 9), picture(N::Picture6, 10));
    EXPECT_NE(picture(N::Picture6, 11), picture(N::Picture6, 12));
}

TEST_F(WindowPicturesTest, eachPictureIsReadOnce) {
    giveAll();
    EXPECT_EQ(asked_.size(), 12U);
    EXPECT_EQ(requests_, asked_.size());
}

TEST_F(WindowPicturesTest, withoutBitmapsThePlainLooksStay) {
    bitmap_.clear();
    giveAll();
    for (const WindowPicture& row : windowPictures()) {
        EXPECT_FALSE(picture(row.element, row.first)) << row.name;
    }
}

TEST_F(WindowPicturesTest, whatIsNoBitmapIsAnError) {
    bitmap_ = "no bitmap";
    try {
        giveAll();
        FAIL();
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number(), 481);
    }
}

} // namespace
} // namespace tovik::window
