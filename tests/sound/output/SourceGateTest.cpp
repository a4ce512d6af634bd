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
    gate.take(block);
    EXPECT_THAT(block, ElementsAre(0, 0, 0, 0));
    gate.open(source);
    gate.take(block);
    EXPECT_THAT(block, ElementsAre(0, 0, 1, -1));
    gate.take(block);
    EXPECT_THAT(block, ElementsAre(2, -2, 3, -3));
    gate.shut();
    gate.take(block);
    EXPECT_THAT(block, ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(source.frames(), 4U);
}

TEST(SourceGate, AfterShuttingTheSourceIsOutOfUse) {
    SourceGate gate;
    std::jthread taker([&](const std::stop_token& stop) {
        std::array<float, 64> block{};
        while (!stop.stop_requested()) {
            gate.take(block);
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
