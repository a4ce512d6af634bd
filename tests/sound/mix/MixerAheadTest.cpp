// SPDX-License-Identifier: GPL-3.0-or-later
// Mixing ahead and once more gives, sample by sample, what a mix without a look back gives.
#include "sound/mix/Mixer.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <set>
#include <vector>

namespace tovik::sound {
namespace {

constexpr std::int64_t kBlock = kAheadBlockFrames;
constexpr std::size_t kVoices = 3;
constexpr std::size_t kFeedFrames = 1U << 18U;

/// A mixer with voices and feeds of its own, so that two of them can be told the same.
class World {
public:
    World() {
        for (std::size_t v = 0; v < kVoices; ++v) {
            voices_.push_back(std::make_unique<Voice>(feed(v), Remix::possible));
            EXPECT_TRUE(mixer.post(command::AddVoice{voices_.back().get()}));
            EXPECT_TRUE(mixer.post(command::StartVoice{voices_.back().get()}));
        }
        mixer.beginAhead();
    }

    Voice* voice(std::size_t number) { return voices_[number].get(); }

    /// A new feed; its number makes its sound and its length.
    Feed& feed(std::size_t number) {
        feeds_.push_back(std::make_unique<Feed>(static_cast<std::int64_t>(number), kFeedFrames));
        Feed& made = *feeds_.back();
        std::minstd_rand noise(static_cast<unsigned>(number) + 1);
        std::uniform_real_distribution<float> sample(-0.5F, 0.5F);
        std::vector<float> samples(2 * (number % 5 == 4 ? 30'000 : 200'000));
        std::ranges::generate(samples, [&] { return sample(noise); });
        made.write(samples);
        made.complete();
        return made;
    }

    /// Mixes until `frame`, a whole number of blocks.
    void mixTo(std::int64_t frame) {
        heard.resize(static_cast<std::size_t>(2 * std::max(frame, mixed())));
        while (mixer.clock() < frame) {
            mixer.mixAhead(std::span(heard).subspan(static_cast<std::size_t>(2 * mixer.clock()),
                                                    2 * kAheadBlockFrames));
        }
        collect();
    }

    [[nodiscard]] std::int64_t mixed() const { return static_cast<std::int64_t>(heard.size() / 2); }

    /// Deletes what is given back: what is used all the same, the sanitizers find.
    void collect() {
        Returned returned;
        while (mixer.takeReturned(returned)) {
            ++returns;
            std::erase_if(feeds_, [&](const auto& kept) { return kept.get() == returned.feed; });
            EXPECT_EQ(returned.voice, nullptr);
        }
    }

    Mixer mixer;
    std::vector<float> heard;
    int returns = 0;

private:
    std::vector<std::unique_ptr<Feed>> feeds_;
    std::vector<std::unique_ptr<Voice>> voices_;
};

using Order = std::function<void(World&)>;

void post(World& world, const Command& command) {
    EXPECT_TRUE(world.mixer.post(command));
}

/// Orders of all kinds, the same for the same seed.
class Orders {
public:
    explicit Orders(unsigned seed) : random_(seed) {}

    Order next() {
        const std::size_t v = upTo(kVoices - 1);
        const float share = static_cast<float>(upTo(100)) / 100.0F;
        const auto frames = static_cast<std::int32_t>(upTo(30'000));
        switch (upTo(9)) {
        case 0:
            return [=](World& w) { post(w, command::SetVolume{w.voice(v), share, frames}); };
        case 1:
            return [=](World& w) { post(w, command::SetPan{w.voice(v), 2 * share - 1, frames}); };
        case 2:
        case 3: {
            const auto band = static_cast<std::int32_t>(upTo(9));
            const auto shape = peakingFilter(100.0 + 1000.0 * band, 12.0,
                                             24.0 * static_cast<double>(share) - 12.0, 44100);
            return [=](World& w) { post(w, command::SetBand{w.voice(v), band, shape}); };
        }
        case 4:
            return [=](World& w) { post(w, command::SetMaster{share}); };
        case 5:
            return [=](World& w) { post(w, command::StopVoice{w.voice(v)}); };
        case 6:
            return [=](World& w) { post(w, command::StartVoice{w.voice(v)}); };
        case 7: {
            const std::size_t number = ++feeds_;
            return [=](World& w) { post(w, command::SwitchFeed{w.voice(v), &w.feed(number)}); };
        }
        case 8:
            return [](World& w) { post(w, command::PauseOutput{}); };
        default:
            return [](World& w) { post(w, command::ResumeOutput{}); };
        }
    }

    std::size_t upTo(std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(random_);
    }

private:
    std::minstd_rand random_;
    std::size_t feeds_ = kVoices;
};

struct Deed {
    std::int64_t frame; ///< where it was carried out
    std::vector<Order> orders;
};

class MixerAhead : public ::testing::TestWithParam<unsigned> {};

} // namespace

TEST_P(MixerAhead, ChangesSoundAsIfNothingHadBeenMixedBefore) {
    constexpr std::int64_t kAhead = 80 * kBlock;
    constexpr std::int64_t kMargin = 5000;
    Orders orders(GetParam());
    std::vector<Deed> deeds;
    World ahead;
    std::int64_t heard = 0;
    int takenBack = 0;
    for (int step = 0; step < 150; ++step) {
        ahead.mixTo((heard + kAhead) / kBlock * kBlock);
        heard += static_cast<std::int64_t>(orders.upTo(3000));
        ahead.mixer.settle(heard);
        if (orders.upTo(2) == 0) {
            continue;
        }
        Deed deed{0, {}};
        for (std::size_t i = 0; i <= orders.upTo(3); ++i) {
            deed.orders.push_back(orders.next());
            deed.orders.back()(ahead);
        }
        const auto from = ahead.mixer.takeBack(heard + kMargin);
        ASSERT_TRUE(from);
        ASSERT_GE(*from, heard + kMargin);
        ASSERT_LT(*from, heard + kMargin + kBlock);
        takenBack += *from < ahead.mixed() ? 1 : 0;
        deed.frame = *from;
        deeds.push_back(deed);
    }
    ahead.mixTo((heard + kAhead) / kBlock * kBlock);
    EXPECT_GT(takenBack, 50);

    World plain;
    for (const Deed& deed : deeds) {
        plain.mixTo(deed.frame);
        for (const Order& order : deed.orders) {
            order(plain);
        }
        EXPECT_EQ(plain.mixer.takeBack(deed.frame), deed.frame);
    }
    plain.mixTo(ahead.mixed());
    ASSERT_EQ(ahead.heard.size(), plain.heard.size());
    const auto differs = std::ranges::mismatch(ahead.heard, plain.heard).in1;
    EXPECT_EQ((differs - ahead.heard.begin()) / 2, ahead.mixed()) << "first frame that differs";
    EXPECT_GT(std::ranges::count_if(plain.heard, [](float sample) { return sample != 0.0F; }),
              plain.mixed() / 4);
    ahead.mixer.endAhead(ahead.mixer.clock());
    plain.mixer.endAhead(plain.mixer.clock());
    ahead.collect();
    plain.collect();
    EXPECT_EQ(ahead.returns, plain.returns);
    EXPECT_GT(plain.returns, 5);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MixerAhead, ::testing::Range(1U, 13U));

TEST(MixerGoesBack, TheCaptureGetsEachFrameOnce) {
    World world;
    FrameRing ring(1U << 18U);
    post(world, command::SetCapture{&ring});
    ASSERT_EQ(world.mixer.takeBack(0), 0);
    std::int64_t heard = 0;
    std::int64_t changed = 0;
    for (int step = 0; step < 40; ++step) {
        world.mixTo((heard + 40 * kBlock) / kBlock * kBlock);
        post(world, command::SetVolume{world.voice(0), step % 2 == 0 ? 0.1F : 1.0F, 100});
        heard += 1500;
        world.mixer.settle(heard);
        // Before the last change nothing is mixed again, either.
        EXPECT_LE(static_cast<std::int64_t>(ring.writtenFrames()), std::max(heard, changed));
        const auto from = world.mixer.takeBack(heard + 2000);
        ASSERT_TRUE(from);
        changed = *from;
    }
    world.mixTo(world.mixed());
    post(world, command::SetCapture{nullptr});
    const auto end = world.mixer.takeBack(heard + 2000);
    ASSERT_TRUE(end);
    std::vector<float> recorded(ring.readableFrames() * 2);
    ring.read(recorded);
    world.heard.resize(static_cast<std::size_t>(*end) * 2);
    EXPECT_EQ(recorded.size() / 2, static_cast<std::size_t>(*end));
    EXPECT_TRUE(std::ranges::equal(recorded, world.heard));
}

TEST(MixerGoesBack, WhatWasStarvedAheadIsMixedAgainOnceThereIsMore) {
    Mixer mixer;
    Feed feed(0, kFeedFrames);
    Voice voice(feed, Remix::possible);
    const std::vector<float> part(2 * 10'000, 0.25F);
    feed.write(part);
    ASSERT_TRUE(mixer.post(command::AddVoice{&voice}));
    ASSERT_TRUE(mixer.post(command::StartVoice{&voice}));
    mixer.beginAhead();
    std::vector<float> mix(2 * 80 * kAheadBlockFrames);
    mixer.mixAhead(mix);
    EXPECT_TRUE(mixer.hungry());
    EXPECT_EQ(mixer.takeBack(100), std::nullopt) << "nothing has come since";
    for (int i = 0; i < 5; ++i) {
        feed.write(part);
    }
    const auto from = mixer.takeBack(100);
    ASSERT_EQ(from, 10'000 / kBlock * kBlock);
    mixer.mixAhead(std::span(mix).subspan(static_cast<std::size_t>(2 * *from)));
    EXPECT_FALSE(mixer.hungry());
    EXPECT_EQ(std::ranges::count(mix, 0.25F), static_cast<std::ptrdiff_t>(mix.size()));
    EXPECT_EQ(mixer.takeBack(100), std::nullopt);
}

TEST(MixerGoesBack, AtTheEndOfMixingAheadTheRestIsTakenBack) {
    World world;
    world.mixTo(50 * kBlock);
    const std::vector<float> before = world.heard;
    world.mixer.endAhead(20 * kBlock - 3);
    EXPECT_EQ(world.mixer.clock(), 20 * kBlock);
    world.mixer.beginAhead();
    std::ranges::fill(std::span(world.heard).subspan(2 * 20 * kBlock), 9.0F);
    world.mixTo(50 * kBlock);
    EXPECT_EQ(world.heard, before);
}

TEST(MixerGoesBack, OrdersWaitForTheDeviceWhileItMixesAhead) {
    World world;
    world.mixTo(10 * kBlock);
    post(world, command::SetMaster{0.5F});
    EXPECT_FALSE(world.mixer.drain());
    EXPECT_FALSE(world.mixer.allTaken());
    EXPECT_TRUE(world.mixer.drain(Mixer::Force::yes));
    EXPECT_TRUE(world.mixer.allTaken());
    EXPECT_EQ(world.mixer.takeBack(0), std::nullopt);
}

} // namespace tovik::sound
