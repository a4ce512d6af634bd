// SPDX-License-Identifier: GPL-3.0-or-later
// To whom a file is offered.
#include "player/TrackOpener.h"
#include "support/sound/FakeSoundLibrary.h"

#include <gtest/gtest.h>

namespace tovik::player {

TEST(TrackOpener, OffersWhatIsRefusedToTheNext) {
    test::FakeSoundLibrary sound;
    sound.error = sound::ErrorCode::unsupportedFormat;
    EXPECT_EQ(TrackOpener(sound).open("/music/a.txt", {}), sound::kNoHandle);
    EXPECT_EQ(sound.calls.size(), 4U);
}

TEST(TrackOpener, OffersAFileThatCannotBeOpenedOnce) {
    test::FakeSoundLibrary sound;
    sound.error = sound::ErrorCode::cannotOpenFile; // also of a disk that does not answer in time
    EXPECT_EQ(TrackOpener(sound).open("/music/a.mp3", {}), sound::kNoHandle);
    EXPECT_EQ(sound.calls.size(), 1U);
}

} // namespace tovik::player
