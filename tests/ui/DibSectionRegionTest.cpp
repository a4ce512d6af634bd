// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cDIBSectionRegion.h"

#include "base/RuntimeError.h"
#include "support/host/TemporaryFolder.h"
#include "ui/PixelColour.h"
#include "ui/RegionData.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using testing::ElementsAre;

using R = RegionRectangle;

/// A bitmap from a drawing: "#" is the key colour of that depth, anything else another one.
cDIBSection drawn(std::initializer_list<std::string_view> lines, int depth = 32) {
    PixelImage image{.width = static_cast<int>(lines.begin()->size()),
                     .height = static_cast<int>(lines.size()),
                     .pixels = {}};
    for (const std::string_view line : lines) {
        for (const char c : line) {
            image.pixels.push_back(opaquePixel(c == '#' ? keyColour(depth) : Colour{1, 2, 3}));
        }
    }
    cDIBSection dib;
    EXPECT_TRUE(dib.CreateFromPicture(image));
    return dib;
}

class SmallWindow final : public RegionWindow {
public:
    std::vector<std::optional<Region>> given;

    void setRegion(const Region* region) override {
        given.push_back(region != nullptr ? std::optional(*region) : std::nullopt);
    }
};

TEST(DibSectionRegion, withoutKeyPixelsItIsTheWholeBitmap) {
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"....", "...."})));
    EXPECT_THAT(region.region()->rectangles(), ElementsAre(R{0, 0, 4, 2}));
}

TEST(DibSectionRegion, cutsTheRunsOfEachColumn) {
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"#..", // a corner
                                     ".#.", // a hole
                                     ".#.", //
                                     "..#"})));
    EXPECT_THAT(region.region()->rectangles(),
                ElementsAre(R{1, 0, 3, 1}, R{0, 1, 1, 3}, R{2, 1, 3, 3}, R{0, 3, 2, 4}));
}

TEST(DibSectionRegion, aColumnThatEndsInKeyPixelsIsCutToTheBottom) {
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"..", "#.", "#."})));
    EXPECT_THAT(region.region()->rectangles(), ElementsAre(R{0, 0, 2, 1}, R{1, 1, 2, 3}));
    EXPECT_FALSE(region.region()->contains(0, 2));
}

TEST(DibSectionRegion, severalRunsInOneColumn) {
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"#", ".", "#", "#", ".", "#"})));
    EXPECT_THAT(region.region()->rectangles(), ElementsAre(R{0, 1, 1, 2}, R{0, 4, 1, 5}));
}

TEST(DibSectionRegion, theKeyDependsOnTheDepthOfTheScreen) {
    for (const int depth : {16, 24, 32, 8}) {
        cDIBSectionRegion region;
        ASSERT_TRUE(region.Create(drawn({"#."}, depth), depth));
        EXPECT_THAT(region.region()->rectangles(), ElementsAre(R{1, 0, 2, 1})) << depth;
    }
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"#."}, 24), 32));
    EXPECT_THAT(region.region()->rectangles(), ElementsAre(R{0, 0, 2, 1}));
}

TEST(DibSectionRegion, holesOfASkinPictureAreCut) {
    cDIBSection dib;
    ASSERT_TRUE(dib.CreateFromPicture({2, 1, {0, 0xFF123456}}));
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(dib));
    EXPECT_THAT(region.region()->rectangles(), ElementsAre(R{1, 0, 2, 1}));
}

TEST(DibSectionRegion, anEmptyBitmapGivesNoneAndDropsTheEarlierOne) {
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({".."})));
    EXPECT_FALSE(region.Create(cDIBSection()));
    EXPECT_FALSE(region.region());
}

TEST(DibSectionRegion, savesWhatItLoadsAgain) {
    const tovik::test::TemporaryFolder folder;
    const std::string file = folder.write("shape.rgn", "something much longer than the record");
    cDIBSectionRegion saved;
    ASSERT_TRUE(saved.Create(drawn({"##.", ".#.", "..#"})));
    saved.Save(file);
    EXPECT_EQ(folder.read("shape.rgn"), regionData(*saved.region()));
    cDIBSectionRegion loaded;
    ASSERT_TRUE(loaded.LoadFromFile(file));
    EXPECT_EQ(loaded.region(), saved.region());
}

TEST(DibSectionRegion, withoutARegionNothingIsSaved) {
    const tovik::test::TemporaryFolder folder;
    const std::string file = folder.write("shape.rgn", "kept");
    cDIBSectionRegion().Save(file);
    EXPECT_EQ(folder.read("shape.rgn"), "kept");
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"."})));
    EXPECT_THROW(region.Save(folder / "nowhere/shape.rgn"), base::RuntimeError);
}

TEST(DibSectionRegion, aFileThatCannotBeReadOrHoldsNoneIsFalse) {
    const tovik::test::TemporaryFolder folder;
    cDIBSectionRegion region;
    ASSERT_TRUE(region.Create(drawn({"."})));
    EXPECT_FALSE(region.LoadFromFile(folder / "missing"));
    EXPECT_FALSE(region.region());
    EXPECT_FALSE(region.LoadFromFile(folder.write("bad", "no region")));
}

class Linked final : public ResourceData {
public:
    mutable std::string asked;

    [[nodiscard]] std::optional<std::string> load(std::string_view library,
                                                  std::string_view resourceName) const override {
        asked = std::string(library) + ":" + std::string(resourceName);
        return resourceName == "none" ? std::nullopt
                                      : std::optional(regionData(Region(R{1, 1, 2, 2})));
    }
};

TEST(DibSectionRegion, loadsFromAResource) {
    const Linked resources;
    cDIBSectionRegion region;
    EXPECT_TRUE(region.LoadFromResource(resources, "shape"));
    EXPECT_EQ(resources.asked, ":shape");
    EXPECT_EQ(region.region(), Region(R{1, 1, 2, 2}));
    EXPECT_TRUE(region.LoadFromResource(resources, "101", "shapes.dll"));
    EXPECT_EQ(resources.asked, "shapes.dll:#101");
    EXPECT_FALSE(region.LoadFromResource(resources, "none"));
    EXPECT_FALSE(region.region());
}

TEST(DibSectionRegion, isAppliedToWindowsAndTakenOffThem) {
    SmallWindow first;
    SmallWindow second;
    cDIBSectionRegion region;
    region.Applied(first, true);
    EXPECT_FALSE(region.Applied(first));
    ASSERT_TRUE(region.Create(drawn({".#"})));
    region.Applied(first, true);
    region.Applied(second, true);
    region.Applied(first, true);
    EXPECT_EQ(region.AppliedToCount(), 2U);
    EXPECT_TRUE(region.Applied(first));
    EXPECT_EQ(&region.hWndForIndex(1), &first);
    EXPECT_EQ(&region.hWndForIndex(2), &second);
    EXPECT_THROW(static_cast<void>(region.hWndForIndex(0)), base::RuntimeError);
    EXPECT_THROW(static_cast<void>(region.hWndForIndex(3)), base::RuntimeError);
    EXPECT_EQ(first.given.back(), region.region());
    region.Applied(first, false);
    EXPECT_EQ(first.given.back(), std::nullopt);
    EXPECT_FALSE(region.Applied(first));
    EXPECT_EQ(region.AppliedToCount(), 1U);
    region.Destroy();
    EXPECT_EQ(second.given.back(), std::nullopt);
    EXPECT_EQ(region.AppliedToCount(), 0U);
    EXPECT_FALSE(region.region());
}

} // namespace
} // namespace tovik::ui
