// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks of a drive that fails become files, by the real sound library: nothing hangs, the window
// goes on, and the user is told.
#include "cd/RipRig.h"

#include "sound/api/PcmHeader.h"
#include "sound/engine/Engine.h"
#include "sound/output/KeeperRig.h"
#include "sound/output/SilentOutput.h"
#include "support/sound/FakeCdDrive.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using std::chrono::steady_clock;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

constexpr std::size_t kSector = sound::kSectorBytes;

/// The ways to a file. The second one is an encoder that writes what it is given.
enum class Way { wav, program, wma };

class RipFaults : public test::RipRig, public testing::WithParamInterface<Way> {
protected:
    RipFaults() {
        std::filesystem::create_directories(host_.folder / "helpers");
        std::filesystem::create_directories(music());
        const std::string lame = host_.folder / "helpers/lame.exe";
        host_.folder.write("helpers/lame.exe",
                           "#!/bin/sh\nfor last; do :; done\nexec cat > \"$last\"\n");
        std::filesystem::permissions(lame, std::filesystem::perms::owner_all);
        host_.programs.folder = host_.folder / "helpers/";
        pump_.inStep = [this] {
            const auto now = steady_clock::now();
            longest_ = std::max(longest_, now - lastStep_);
            lastStep_ = now;
            return !atStep_ || (atStep_(pump_.steps), true);
        };
    }

    ~RipFaults() override {
        script_->change([](auto& facts) { facts.hangs = false; });
    }

    /// Puts a disc of one track of so many sectors in, and rips it.
    [[nodiscard]] RipEnd rip(std::int32_t sectors) {
        sound::DiscToc toc;
        toc.tracks.push_back({.firstSector = 0, .sectors = sectors});
        toc.leadOut = sectors;
        script_->insert(toc);
        library_.BASS_Init(1, 44100, 0, 0, 0);
        library_.lookAtDrives();
        EXPECT_TRUE(sound::eventually([&] { return !library_.lookingAtDrives(); }));
        whenReady_();
        lastStep_ = steady_clock::now();
        switch (GetParam()) {
        case Way::wav:
            return real_.ExtractAudioTrackToWav(0, music());
        case Way::program:
            return real_.Encoder("0", "MP3C", 128, path(), true, 0);
        case Way::wma:
            return real_.ExtractAudioTrackToWMA(0, music());
        }
        return RipEnd::failed;
    }

    [[nodiscard]] std::string path() const {
        switch (GetParam()) {
        case Way::wav:
            return music() + "/TRACK1.WAV";
        case Way::program:
            return music() + "/one.mp3";
        case Way::wma:
            return music() + "/TRACK1.WMA";
        }
        return {};
    }

    /// Samples that are in the file, where it holds them as they are.
    void expectSamples(std::int32_t sectors, const std::vector<std::int32_t>& silent = {}) {
        if (GetParam() == Way::wma) {
            EXPECT_GT(std::filesystem::file_size(path()), 0U);
            return;
        }
        std::string expected;
        for (std::int32_t sector = 0; sector < sectors; ++sector) {
            const auto bytes = test::DriveScript::sector(sector);
            for (const std::byte byte : bytes) {
                const bool lost = std::ranges::find(silent, sector) != silent.end();
                expected += lost ? '\0' : static_cast<char>(byte);
            }
        }
        const std::string file = host_.folder.read(path().substr(host_.folder.path().size() + 1));
        ASSERT_GE(file.size(), kHead);
        EXPECT_TRUE(file.substr(kHead) == expected)
            << file.size() - kHead << " bytes for " << expected.size();
    }

    static constexpr std::size_t kHead = 44;

    std::shared_ptr<test::DriveScript> script_ = std::make_shared<test::DriveScript>();
    std::function<void(int)> atStep_;         ///< is given how many steps there were
    std::function<void()> whenReady_ = [] {}; ///< done when the disc is known
    steady_clock::duration longest_{};        ///< between two steps
    steady_clock::time_point lastStep_;
    sound::Engine engine_{std::make_unique<sound::SilentOutput>(),
                          {.drives = test::DriveScript::options({script_})}};
    sound::SoundLibrary& library_ = engine_;
    player::Core realCore_{.state = state_,
                           .sound = library_,
                           .settings = settings_,
                           .errors = errors_,
                           .lists = core_.lists,
                           .timers = host_.clock,
                           .screen = screen_,
                           .news = news_};
    RipNeeds realNeeds_{.core = realCore_,
                        .disc = disc_,
                        .form = form_,
                        .lstTracks = tracks_,
                        .window = handle_,
                        .host = bundle_,
                        .words = words_,
                        .progress = progress_};
    TrackRipper real_{realNeeds_, state_.comfort};
};

INSTANTIATE_TEST_SUITE_P(All, RipFaults, testing::Values(Way::wav, Way::program, Way::wma));

} // namespace

/// A piece is read in half a second here; the steps go on meanwhile.
TEST_P(RipFaults, AScratchThatTakesItsTimeHoldsUpNoStep) {
    script_->change([](auto& facts) {
        facts.slow = 15ms;
        facts.unreadable = {10, 11};
    });
    const auto begun = steady_clock::now();
    EXPECT_EQ(rip(40), RipEnd::done);
    EXPECT_GT(steady_clock::now() - begun, 600ms);
    EXPECT_LT(longest_, 300ms); // 50 ms are the aim; others use the machine, too
    EXPECT_GT(pump_.steps, 600 / 50);
    expectSamples(40, {10, 11});
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_THAT(converted(), ElementsAre(HasSubstr("Track 1: 2 sectors lost")));
}

TEST_P(RipFaults, ADriveThatDoesNotAnswerForAWhileIsWaitedFor) {
    whenReady_ = [this] { script_->change([](auto& facts) { facts.hangs = true; }); };
    atStep_ = [this](int steps) {
        if (steps == 20) {
            EXPECT_EQ(script_->facts().reads, 0);
            script_->change([](auto& facts) { facts.hangs = false; });
        }
    };
    EXPECT_EQ(rip(150), RipEnd::done);
    EXPECT_GE(pump_.steps, 20);
    expectSamples(150);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_P(RipFaults, ADriveThatDoesNotAnswerIsLeftByCancel) {
    whenReady_ = [this] { script_->change([](auto& facts) { facts.hangs = true; }); };
    atStep_ = [this](int steps) {
        if (steps == 20) {
            disc_.CancelRip = true;
        }
    };
    const auto begun = steady_clock::now();
    EXPECT_EQ(rip(150), RipEnd::done);
    EXPECT_LT(steady_clock::now() - begun, 5s);
    EXPECT_GE(pump_.steps, 20);
    EXPECT_FALSE(state_.RippingNow);
}

TEST_P(RipFaults, ReadsThatReturnShortGiveTheWholeTrack) {
    script_->change([](auto& facts) { facts.mostSectors = 3; });
    EXPECT_EQ(rip(100), RipEnd::done);
    EXPECT_GE(script_->facts().verifiedReads, 33);
    expectSamples(100);
    EXPECT_THAT(converted(), IsEmpty());
}

TEST_P(RipFaults, ATrayThatOpensEndsTheRip) {
    script_->change([](auto& facts) { facts.opensAt = 100; });
    EXPECT_EQ(rip(600), RipEnd::hopeless);
    expectSamples(100);
    EXPECT_THAT(told(), ElementsAre(HasSubstr(path())));
    EXPECT_THAT(converted(), testing::Contains(HasSubstr("Track 1: ")));
    EXPECT_FALSE(library_.BASS_CD_IsReady(0));
    EXPECT_FALSE(state_.RippingNow);
    if (GetParam() == Way::wav) {
        const std::string file = host_.folder.read("Music/TRACK1.WAV");
        EXPECT_EQ(file.substr(0, kHead),
                  sound::pcmHeader(44100, 2, 16, 100 * kSector + 36, 100 * kSector));
    }
}

TEST_P(RipFaults, ADriveThatIsUnpluggedEndsTheRip) {
    script_->change([](auto& facts) { facts.slow = 1ms; });
    atStep_ = [this](int steps) {
        if (steps == 2) {
            script_->change([](auto& facts) { facts.gone = true; });
            library_.lookAtDrives();
        }
    };
    EXPECT_EQ(rip(3000), RipEnd::hopeless);
    EXPECT_THAT(told(), ElementsAre(HasSubstr(path())));
    EXPECT_THAT(converted(), testing::Contains(HasSubstr("Track 1: ")));
}

/// The tray can be opened again, however the rip ended.
TEST_P(RipFaults, TheDoorIsUnlockedAgain) {
    script_->change([](auto& facts) { facts.opensAt = 20; });
    EXPECT_EQ(rip(60), RipEnd::hopeless);
    EXPECT_TRUE(sound::eventually([&] {
        const auto doors = script_->facts().doors;
        return GetParam() == Way::program
                   ? doors.empty()
                   : !doors.empty() && doors.back() == sound::DoorAction::unlock;
    }));
}

} // namespace tovik::cd
