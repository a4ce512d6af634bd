// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SourceGate.h"
#include "sound/output/CountingSource.h"

#include <gmock/gmock.h>

#include <array>
#include <optional>
#include <thread>

namespace tovik::sound {
namespace {

using testing::ElementsAre;

TEST(SourceGate, GivesTheMixWhileOpenAndElseSilence) {
    SourceGate gate;
    CountingSource source;
    std::array<float, 4> block{7, 7, 7, 7};
    gate.mix(block);
    EXPECT_THAT(block, ElementsAre(0, 0, 0, 0));
    gate.open(source);
    gate.mix(block);
    EXPECT_THAT(block, ElementsAre(0, 0, 1, -1));
    gate.mix(block);
    EXPECT_THAT(block, ElementsAre(2, -2, 3, -3));
    gate.shut();
    gate.mix(block);
    EXPECT_THAT(block, ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(source.frames(), 4U);
}

TEST(SourceGate, PassesOnWhatADeviceThatMixesAheadAsks) {
    struct Source final : MixSource {
        void mix(std::span<float>) noexcept override {}

        void decodeAhead(std::size_t frames) override { decoded = frames; }

        std::int64_t beginAhead() noexcept override { return 5; }

        void mixAhead(std::span<float> interleaved) noexcept override { interleaved[0] = 6; }

        void settle(std::int64_t heard) noexcept override { settled = heard; }

        std::optional<std::int64_t> takeBack(std::int64_t earliest) noexcept override {
            return earliest + 1;
        }

        void endAhead(std::int64_t heard) noexcept override { ended = heard; }

        std::size_t decoded = 0;
        std::int64_t settled = 0;
        std::int64_t ended = 0;
    };

    SourceGate gate;
    Source source;
    std::array<float, 2> block{};
    gate.open(source);
    gate.decodeAhead(4);
    EXPECT_EQ(source.decoded, 4U);
    EXPECT_EQ(gate.beginAhead(), 5);
    gate.mixAhead(block);
    EXPECT_EQ(block[0], 6);
    gate.settle(7);
    EXPECT_EQ(source.settled, 7);
    EXPECT_EQ(gate.takeBack(8), 9);
    gate.endAhead(10);
    EXPECT_EQ(source.ended, 10);
    gate.shut();
    gate.mixAhead(block);
    EXPECT_EQ(block[0], 0);
    EXPECT_EQ(gate.takeBack(8), std::nullopt);
    gate.endAhead(11);
    EXPECT_EQ(source.ended, 10);
}

TEST(SourceGate, AfterShuttingTheSourceIsOutOfUse) {
    SourceGate gate;
    std::jthread taker([&](const std::stop_token& stop) {
        std::array<float, 64> block{};
        while (!stop.stop_requested()) {
            gate.mix(block);
        }
    });
    for (int i = 0; i < 500; ++i) {
        std::optional<CountingSource> source(std::in_place);
        gate.open(*source);
        source->waitBeyond(0);
        gate.shutAndWait();
        ASSERT_FALSE(source->inside());
        source.reset(); // the sanitizers tell if it is still in use
    }
}

} // namespace
} // namespace tovik::sound
