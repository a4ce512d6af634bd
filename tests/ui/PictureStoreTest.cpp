// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PictureStore.h"

#include "base/RuntimeError.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

TEST(PictureStore, keepsPicturesUnderNumbersFromOne) {
    PictureStore store;
    const Picture first = store.add({1, 1, {0xFF112233}});
    const Picture second = store.add({2, 1, {1, 2}});
    EXPECT_TRUE(first);
    EXPECT_NE(first, second);
    ASSERT_NE(store.find(second), nullptr);
    EXPECT_EQ(store.find(second)->width, 2);
    EXPECT_EQ(store.find(first)->pixels.front(), 0xFF112233);
    EXPECT_EQ(store.find({}), nullptr);
    EXPECT_EQ(store.find({.number = 3}), nullptr);
}

TEST(PictureStore, newPixelsMakeAnotherValueOfTheSamePicture) {
    PictureStore store;
    const Picture before = store.add({1, 1, {1}});
    const Picture after = store.replace(before, {1, 2, {3, 4}});
    EXPECT_EQ(after.number, before.number);
    EXPECT_NE(after, before);
    EXPECT_EQ(store.find(after)->height, 2);
    EXPECT_NE(store.replace(before, {1, 1, {5}}), after);
}

TEST(PictureStore, pixelsMayBeChangedWhereTheyAre) {
    PictureStore store;
    const Picture before = store.add({2, 1, {1, 2}});
    const std::uint32_t* const pixels = store.find(before)->pixels.data();
    const Picture after = store.draw(before, [](PixelImage& image) { image.pixels[1] = 7; });
    EXPECT_EQ(after.number, before.number);
    EXPECT_NE(after, before);
    EXPECT_EQ(store.find(after)->pixels, (std::vector<std::uint32_t>{1, 7}));
    EXPECT_EQ(store.find(after)->pixels.data(), pixels);
    EXPECT_THROW(static_cast<void>(store.draw({}, [](PixelImage&) {})), base::RuntimeError);
}

TEST(PictureStore, refusesPixelsThatDoNotFillTheSize) {
    PictureStore store;
    EXPECT_THROW(static_cast<void>(store.add({2, 2, {1, 2, 3}})), base::RuntimeError);
    EXPECT_THROW(static_cast<void>(store.add({-1, -1, {1}})), base::RuntimeError);
    EXPECT_THROW(static_cast<void>(store.replace({}, {1, 1, {1}})), base::RuntimeError);
}

} // namespace
} // namespace tovik::ui
