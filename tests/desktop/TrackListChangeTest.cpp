// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TrackListChange.h"

#include <gtest/gtest.h>

namespace tovik::desktop {
namespace {

using Kind = TrackListChange::Kind;
using List = std::vector<std::string>;

TEST(TrackListChange, nothing) {
    EXPECT_EQ(trackListChange({}, {}), TrackListChange{});
    EXPECT_EQ(trackListChange({"a", "b"}, {"a", "b"}), TrackListChange{});
}

TEST(TrackListChange, afewTracksCame) {
    EXPECT_EQ(trackListChange({}, {"a"}), (TrackListChange{Kind::added, {0}}));
    EXPECT_EQ(trackListChange({"a", "b"}, {"x", "a", "y", "b", "z"}),
              (TrackListChange{Kind::added, {0, 2, 4}}));
}

TEST(TrackListChange, afewTracksWent) {
    EXPECT_EQ(trackListChange({"a"}, {}), (TrackListChange{Kind::removed, {0}}));
    EXPECT_EQ(trackListChange({"a", "b", "c"}, {"b"}), (TrackListChange{Kind::removed, {0, 2}}));
}

TEST(TrackListChange, anythingElseIsAnotherList) {
    EXPECT_EQ(trackListChange({"a", "b"}, {"b", "a"}).kind, Kind::replaced);
    EXPECT_EQ(trackListChange({"a", "b"}, {"a", "c"}).kind, Kind::replaced);
    List many;
    for (std::size_t i = 0; i < TrackListChange::kMany; ++i) {
        many.push_back(std::to_string(i));
    }
    EXPECT_EQ(trackListChange({}, many).kind, Kind::replaced);
    EXPECT_EQ(trackListChange(many, {}).kind, Kind::replaced);
    many.pop_back();
    EXPECT_EQ(trackListChange({}, many).kind, Kind::added);
}

} // namespace
} // namespace tovik::desktop
