// SPDX-License-Identifier: GPL-3.0-or-later
// Plug-ins through the operations of the library.
#include "sound/engine/EngineRig.h"
#include "sound/visual/VisualRig.h"

#include <algorithm>

namespace tovik::sound::test {
namespace {

using tovik::test::Canvas;
using tovik::test::faultyVis;

constexpr const char* kSong = "wav_s16_44100_stereo.wav";

class EngineWithVisuals : public testing::Test {
protected:
    Handle create(const std::string& fault) {
        return rig_.engine.BASS_SONIQUEVIS_CreateVis(faultyVis(fault), "vis.ini", 0, 40, 10);
    }

    VisualNews await(Handle visual) {
        for (;;) {
            const VisualNews news = rig_.engine.visualNews(visual);
            pollfd wait{.fd = rig_.engine.visualDescriptor(visual), .events = POLLIN, .revents = 0};
            if (news != VisualNews::nothing || ::poll(&wait, 1, tovik::test::kVisualLimitMs) <= 0) {
                return news;
            }
        }
    }

    EngineRig rig_{{.visualHost = TOVIK_VIS_HOST}};
    Canvas canvas_{40, 10};
};

TEST_F(EngineWithVisuals, showsThePictureThatWasAskedForBefore) {
    SoundLibrary& engine = rig_.engine;
    ASSERT_TRUE(engine.BASS_SONIQUEVIS_CreateFakeSoniqueWnd());
    const Handle visual = create("none");
    ASSERT_NE(visual, kNoHandle);
    const Handle channel = rig_.play(kSong);
    EXPECT_FALSE(engine.BASS_SONIQUEVIS_Render(visual, channel, canvas_.surface()));
    EXPECT_EQ(await(visual), VisualNews::picture);
    EXPECT_EQ(engine.BASS_SONIQUEVIS_GetName(visual), "Faulty none");
    // Without a channel the last one is shown and none asked for, as often as one likes.
    EXPECT_TRUE(engine.BASS_SONIQUEVIS_Render(visual, kNoHandle, canvas_.surface()));
    EXPECT_EQ(canvas_.pixels[0], 0xFF000001U);
    EXPECT_TRUE(engine.BASS_SONIQUEVIS_Render(visual, channel, canvas_.surface()));
    EXPECT_EQ(await(visual), VisualNews::picture);
    EXPECT_TRUE(engine.BASS_SONIQUEVIS_Render(visual, kNoHandle, canvas_.surface()));
    EXPECT_EQ(canvas_.pixels[0], 0xFF000002U);
    EXPECT_TRUE(engine.BASS_SONIQUEVIS_Clicked(visual, 3, 4));
    EXPECT_TRUE(engine.BASS_SONIQUEVIS_Resize(visual, 20, 5));
    EXPECT_FALSE(engine.BASS_SONIQUEVIS_Resize(visual, 0, 5));
    EXPECT_EQ(engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
    EXPECT_TRUE(engine.BASS_SONIQUEVIS_Free(visual));
    EXPECT_FALSE(engine.BASS_SONIQUEVIS_Free(visual));
    EXPECT_EQ(engine.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
    EXPECT_EQ(engine.visualDescriptor(visual), -1);
}

TEST_F(EngineWithVisuals, refusesSizesThatAreNone) {
    EXPECT_EQ(rig_.engine.BASS_SONIQUEVIS_CreateVis("a.svp", "", 0, 0, 10), kNoHandle);
    EXPECT_EQ(rig_.engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
}

TEST_F(EngineWithVisuals, letsAPluginHearWhatIsHeard) {
    const Handle visual = create("none");
    const Handle channel = rig_.play(kSong);
    int loudest = 0;
    for (int i = 0; i < 40; ++i) {
        rig_.engine.BASS_SONIQUEVIS_Render(visual, channel, {});
        ASSERT_EQ(await(visual), VisualNews::picture);
        ASSERT_TRUE(rig_.engine.BASS_SONIQUEVIS_Render(visual, kNoHandle, canvas_.surface()));
        const auto left = static_cast<int>(canvas_.pixels[1] & 0xFFFFU);
        loudest = std::max(loudest, left < 0x8000 ? left : 0);
        static_cast<void>(rig_.render(700));
    }
    EXPECT_GT(loudest, 50);
    EXPECT_LE(loudest, 1000);
}

TEST_F(EngineWithVisuals, listsWhatThereIs) {
    const Handle list = rig_.engine.listVisuals(
        {.knownNames = "/nowhere/names", .folders = {TOVIK_FAULTY_VIS "/none", "/nowhere"}});
    ASSERT_NE(list, kNoHandle);
    EXPECT_EQ(await(list), VisualNews::ended);
    EXPECT_TRUE(rig_.engine.listedVisuals(list).empty());
    EXPECT_TRUE(rig_.engine.BASS_SONIQUEVIS_Free(list));
    EXPECT_EQ(rig_.engine.visualDescriptor(list), -1);
}

/// What is heard of a song beside a plug-in, which is asked for a picture every 40 ms and looked
/// after as an event loop would.
Stereo songBeside(const std::string& fault) {
    EngineRig rig({.visualHost = TOVIK_VIS_HOST});
    Canvas canvas{40, 10};
    const Handle visual =
        fault.empty() ? kNoHandle
                      : rig.engine.BASS_SONIQUEVIS_CreateVis(faultyVis(fault), "", 0, 40, 10);
    const Handle channel = rig.play(kSong);
    Stereo heard;
    for (int picture = 0; picture < 120; ++picture) {
        if (visual != kNoHandle) {
            rig.engine.BASS_SONIQUEVIS_Render(visual, channel, canvas.surface());
            pollfd wait{.fd = rig.engine.visualDescriptor(visual), .events = POLLIN, .revents = 0};
            static_cast<void>(::poll(&wait, 1, 2));
            static_cast<void>(rig.engine.visualNews(visual));
        }
        const Stereo piece = rig.render(512);
        heard.insert(heard.end(), piece.begin(), piece.end());
    }
    return heard;
}

class EachFaultOfAPlugin : public testing::TestWithParam<const char*> {};

TEST_P(EachFaultOfAPlugin, leavesTheSoundAsItIs) {
    const Stereo alone = songBeside({});
    EXPECT_GT(*std::ranges::max_element(alone), 0.05F);
    EXPECT_EQ(songBeside(GetParam()), alone);
}

INSTANTIATE_TEST_SUITE_P(Engine, EachFaultOfAPlugin,
                         testing::Values("none", "crash_at_load", "crash_at_begin", "crash_at_100",
                                         "endless_loop", "endless_load", "exit_0",
                                         "memory_without_end", "writes_behind", "writes_everywhere",
                                         "prints_a_gigabyte", "forks", "floods"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
} // namespace tovik::sound::test
