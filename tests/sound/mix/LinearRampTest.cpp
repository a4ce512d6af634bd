// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/LinearRamp.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tovik::sound {
namespace {

TEST(LinearRamp, StandsWhereItWasPut) {
    LinearRamp ramp(0.25F);
    EXPECT_TRUE(ramp.settled());
    EXPECT_EQ(ramp.next(), 0.25F);
    ramp.jumpTo(0.75F);
    EXPECT_TRUE(ramp.settled());
    EXPECT_EQ(ramp.value(), 0.75F);
}

TEST(LinearRamp, IsHalfWayAtHalfTimeAndEndsExactly) {
    LinearRamp ramp(0.0F);
    ramp.rampTo(0.1F, 10);
    for (int i = 0; i < 5; ++i) {
        ramp.next();
    }
    EXPECT_FLOAT_EQ(ramp.value(), 0.05F);
    EXPECT_EQ(ramp.framesLeft(), 5);
    for (int i = 0; i < 4; ++i) {
        EXPECT_LT(ramp.next(), 0.1F);
        EXPECT_FALSE(ramp.settled());
    }
    EXPECT_EQ(ramp.next(), 0.1F);
    EXPECT_TRUE(ramp.settled());
    EXPECT_EQ(ramp.next(), 0.1F);
}

TEST(LinearRamp, StepsAreEqualOnALongWay) {
    constexpr int kFrames = 441000;
    LinearRamp ramp(1.0F);
    ramp.rampTo(0.0F, kFrames);
    float before = ramp.value();
    float largest = 0.0F;
    for (int i = 0; i < kFrames; ++i) {
        const float now = ramp.next();
        ASSERT_LE(now, before);
        largest = std::max(largest, before - now);
        before = now;
    }
    EXPECT_EQ(before, 0.0F);
    EXPECT_LT(largest, 1.1F / kFrames);
}

TEST(LinearRamp, ManyStepsAtOnceAreTheSame) {
    LinearRamp single(0.3F);
    LinearRamp many(0.3F);
    single.rampTo(-0.9F, 100);
    many.rampTo(-0.9F, 100);
    for (int i = 0; i < 37; ++i) {
        single.next();
    }
    many.advance(37);
    EXPECT_EQ(single.value(), many.value());
    many.advance(1000);
    EXPECT_EQ(many.value(), -0.9F);
    EXPECT_TRUE(many.settled());
}

TEST(LinearRamp, ANewTargetStartsFromWhereItStands) {
    LinearRamp ramp(0.0F);
    ramp.rampTo(1.0F, 100);
    ramp.advance(50);
    ramp.rampTo(0.0F, 50);
    EXPECT_FLOAT_EQ(ramp.value(), 0.5F);
    EXPECT_FLOAT_EQ(ramp.next(), 0.49F);
    ramp.rampTo(0.7F, 0);
    EXPECT_EQ(ramp.value(), 0.7F);
    EXPECT_TRUE(ramp.settled());
}

} // namespace
} // namespace tovik::sound
