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

PixelImage even(int width, int height, std::uint32_t pixel, int density = 1) {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, std::vector<std::uint32_t>(count, pixel), density};
}

TEST(PictureStore, aPictureIsFoundInTheSizeThatADenseScreenWants) {
    PictureStore store;
    std::vector<int> asked;
    const Picture picture = store.add(even(3, 2, 1), [&asked](int factor) {
        asked.push_back(factor);
        return factor % 2 == 0 ? even(6, 4, 2, 2) : PixelImage{};
    });
    EXPECT_EQ(store.find(picture, 1), store.find(picture));
    EXPECT_EQ(asked, std::vector<int>());
    const PixelImage* const twice = store.find(picture, 2);
    EXPECT_EQ(twice->density, 2);
    EXPECT_EQ(twice->pixels, std::vector<std::uint32_t>(24, 2));
    EXPECT_EQ(store.find(picture, 2), twice);
    EXPECT_EQ(asked, std::vector<int>({2})) << "it is kept";
    // None of three times the size: its pixels are enlarged.
    EXPECT_EQ(store.find(picture, 3), store.find(picture));
    EXPECT_EQ(store.find(picture, 4)->density, 2);
    EXPECT_EQ(asked, std::vector<int>({2, 3, 4}));
    EXPECT_EQ(store.find({}, 2), nullptr);
}

TEST(PictureStore, aLargerImageOfAnotherShapeIsNotTaken) {
    PictureStore store;
    for (const PixelImage& wrong :
         {even(6, 2, 2, 2), even(9, 6, 2, 3), even(7, 4, 2, 2), even(6, 4, 2), even(3, 2, 2)}) {
        const Picture picture = store.add(even(3, 2, 1), [&wrong](int) { return wrong; });
        EXPECT_EQ(store.find(picture, 2), store.find(picture));
    }
    const Picture nothing = store.add({}, [](int) { return even(2, 2, 2, 2); });
    EXPECT_EQ(store.find(nothing, 2)->density, 1);
}

TEST(PictureStore, pixelsThatChangeHaveNoLargerImageOfBefore) {
    PictureStore store;
    const Redraw twice = [](int) { return even(2, 2, 2, 2); };
    Picture picture = store.add(even(1, 1, 1), twice);
    EXPECT_EQ(store.find(picture, 2)->density, 2);
    picture = store.replace(picture, even(1, 1, 5), [](int) { return even(2, 2, 6, 2); });
    EXPECT_EQ(store.find(picture, 2)->pixels.front(), 6U);
    picture = store.replace(picture, even(1, 1, 5));
    EXPECT_EQ(store.find(picture, 2)->density, 1);
    picture = store.replace(picture, even(1, 1, 5), twice);
    EXPECT_EQ(store.find(picture, 2)->density, 2);
    picture = store.draw(picture, [](PixelImage& image) { image.pixels[0] = 7; });
    EXPECT_EQ(store.find(picture, 2)->pixels.front(), 7U);
}

TEST(PictureStore, bitmapsAreFoundByTheirPrint) {
    PictureStore store;
    const Picture early = store.add(even(1, 1, 1), store.drawnLike(7));
    EXPECT_EQ(store.find(early, 3)->density, 1) << "nobody has any";
    store.takeFineFrom([](std::uint64_t print, int factor) {
        return print == 7 ? even(factor, factor, 9, factor) : PixelImage{};
    });
    EXPECT_EQ(store.find(early, 2)->pixels.front(), 9U);
    const Picture another = store.add(even(1, 1, 1), store.drawnLike(8));
    EXPECT_EQ(store.find(another, 2)->density, 1);
}

TEST(PictureStore, tellsWhatItsPixelsTake) {
    PictureStore store;
    const Picture picture = store.add(even(3, 2, 1), [](int) { return even(6, 4, 2, 2); });
    EXPECT_EQ(store.sizes().plain, 24U);
    EXPECT_EQ(store.sizes().fine, 0U);
    static_cast<void>(store.find(picture, 2));
    EXPECT_EQ(store.sizes().fine, 96U);
}

} // namespace
} // namespace tovik::ui
