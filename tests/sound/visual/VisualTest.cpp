// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/Visual.h"

#include "sound/visual/VisualRig.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <numbers>
#include <set>
#include <sstream>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tovik::test {
namespace {

using sound::HeardSound;
using sound::Visual;
using sound::VisualNews;

constexpr int kWide = 40;
constexpr int kTall = 10;
constexpr std::uint32_t kOpaqueBlack = 0xFF000000U;

class AVisual : public testing::Test {
protected:
    void begin(const std::string& fault, int width = kWide, int height = kTall) {
        visual_.emplace(TOVIK_VIS_HOST, faultyVis(fault), "/nowhere/vis.ini", width, height);
    }

    /// Asks for pictures until the end, or until there were so many; how many came.
    int pictures(int most) {
        int count = 0;
        while (count < most && visual_->ask(heard_) && awaitNews(*visual_) == VisualNews::picture) {
            ++count;
        }
        return count;
    }

    [[nodiscard]] std::uint32_t pixel(std::size_t place) {
        EXPECT_TRUE(visual_->show(canvas_.surface()));
        return canvas_.pixels.at(place) - kOpaqueBlack;
    }

    std::optional<Visual> visual_;
    HeardSound heard_;
    Canvas canvas_{kWide, kTall};
};

TEST_F(AVisual, drawsOnePictureForEachThatItIsAskedFor) {
    begin("none");
    EXPECT_FALSE(visual_->show(canvas_.surface())); // none is finished
    ASSERT_TRUE(visual_->ask(heard_));
    EXPECT_FALSE(visual_->ask(heard_)); // one at a time
    EXPECT_FALSE(visual_->free());
    ASSERT_EQ(awaitNews(*visual_), VisualNews::picture);
    EXPECT_EQ(visual_->name(), "Faulty none");
    EXPECT_EQ(pixel(0), 1U);
    EXPECT_EQ(visual_->take(), VisualNews::nothing);
    EXPECT_EQ(pictures(5), 5);
    EXPECT_EQ(pixel(kWide * kTall - 1), 6U);
}

TEST_F(AVisual, hearsBothSidesAndTheSpectrum) {
    begin("none");
    heard_.left.back() = 0.125F;
    heard_.right.back() = 0.25F;
    heard_.spectrum[7] = 0.5F;
    ASSERT_EQ(pictures(1), 1);
    EXPECT_EQ(pixel(1), 125U);
    EXPECT_EQ(pixel(2), 250U);
    EXPECT_EQ(pixel(3), 500U);
}

TEST_F(AVisual, isClicked) {
    begin("none");
    ASSERT_TRUE(visual_->click(17, 4));
    ASSERT_EQ(pictures(1), 1);
    EXPECT_EQ(pixel(4), 17U << 16U | 4U);
}

TEST_F(AVisual, takesAnotherSizeWithWhatItDrawsAndKeepsItsState) {
    begin("none");
    ASSERT_EQ(pictures(2), 2);
    ASSERT_TRUE(visual_->ask(heard_));
    ASSERT_TRUE(visual_->resize(100, 50)); // the third one is lost
    EXPECT_TRUE(visual_->free());
    ASSERT_EQ(pictures(1), 1);
    EXPECT_FALSE(visual_->show(canvas_.surface())); // has the old size
    canvas_ = Canvas{100, 50};
    EXPECT_EQ(pixel(0), 4U);
    EXPECT_EQ(pixel(5), 100U << 16U | 50U);
    for (const auto& [width, height] : {std::pair(0, 5), std::pair(5, 0), std::pair(8193, 5)}) {
        EXPECT_FALSE(visual_->resize(width, height));
    }
}

TEST_F(AVisual, isBusyUntilItHasDoneWhatItWasTold) {
    begin("none");
    const auto rests = [this] {
        while (visual_->busy()) {
            pollfd wait{.fd = visual_->descriptor(), .events = POLLIN, .revents = 0};
            if (::poll(&wait, 1, kVisualLimitMs) <= 0 || visual_->take() == VisualNews::ended) {
                return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(visual_->busy());
    EXPECT_TRUE(rests());
    ASSERT_TRUE(visual_->click(1, 1));
    EXPECT_TRUE(visual_->busy());
    EXPECT_TRUE(rests());
    ASSERT_TRUE(visual_->ask(heard_));
    ASSERT_TRUE(visual_->resize(9, 9));
    EXPECT_TRUE(visual_->busy());
    EXPECT_TRUE(rests());
    begin("endless_load");
    EXPECT_EQ(visual_->take(), VisualNews::nothing);
    EXPECT_TRUE(visual_->busy());
}

TEST_F(AVisual, showsNothingAfterASizeThatCannotBeHad) {
    begin("none");
    ASSERT_EQ(pictures(1), 1);
    EXPECT_TRUE(visual_->show(canvas_.surface()));
    EXPECT_FALSE(visual_->resize(8193, 5));
    EXPECT_FALSE(visual_->show(canvas_.surface()));
    EXPECT_EQ(pictures(1), 1); // nobody sees it
    EXPECT_FALSE(visual_->show(canvas_.surface()));
    ASSERT_TRUE(visual_->resize(kWide, kTall));
    EXPECT_FALSE(visual_->show(canvas_.surface()));
    ASSERT_EQ(pictures(1), 1);
    EXPECT_TRUE(visual_->show(canvas_.surface()));
}

/// A fault, and how many pictures it leaves.
struct FaultRow {
    const char* fault;
    int pictures;
};

class EachFault : public AVisual, public testing::WithParamInterface<FaultRow> {};

TEST_P(EachFault, endsWithItsProcess) {
    begin(GetParam().fault);
    EXPECT_EQ(pictures(1000), GetParam().pictures);
    EXPECT_EQ(visual_->take(), VisualNews::ended);
    EXPECT_EQ(visual_->descriptor(), -1);
    EXPECT_FALSE(visual_->ask(heard_));
    EXPECT_FALSE(visual_->click(1, 1));
    EXPECT_FALSE(visual_->resize(5, 5));
}

INSTANTIATE_TEST_SUITE_P(Visual, EachFault,
                         testing::Values(FaultRow{"crash_at_load", 0},
                                         FaultRow{"crash_at_begin", 0},
                                         FaultRow{"crash_at_100", 99}, FaultRow{"exit_0", 2},
                                         FaultRow{"memory_without_end", 2},
                                         FaultRow{"writes_behind", 2}, FaultRow{"writes_before", 2},
                                         FaultRow{"writes_everywhere", 2},
                                         FaultRow{"says_nonsense", 2},
                                         FaultRow{"starts_threads", 2}, FaultRow{"wants_not", 0},
                                         FaultRow{"old_version", 0}, FaultRow{"is_not_there", 0}),
                         [](const auto& row) { return std::string(row.param.fault); });

class EachNuisance : public AVisual, public testing::WithParamInterface<const char*> {};

TEST_P(EachNuisance, goesOn) {
    begin(GetParam());
    EXPECT_EQ(pictures(20), 20);
    EXPECT_EQ(pixel(6), 0U); // what it started
}

INSTANTIATE_TEST_SUITE_P(Visual, EachNuisance, testing::Values("prints_a_gigabyte", "forks"),
                         [](const auto& row) { return std::string(row.param); });

class EachHang : public AVisual, public testing::WithParamInterface<const char*> {};

TEST_P(EachHang, holdsNobodyUp) {
    begin(GetParam());
    if (GetParam() != std::string_view("endless_load")) {
        ASSERT_EQ(pictures(2), 2); // the third one is the bad one
    }
    ASSERT_TRUE(visual_->ask(heard_));
    const auto before = std::chrono::steady_clock::now();
    for (int i = 0; i < 3 && visual_->take() != VisualNews::ended; ++i) {
        static_cast<void>(visual_->click(1, 1));
        static_cast<void>(visual_->resize(20 + i, 20));
    }
    visual_.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(50));
}

INSTANTIATE_TEST_SUITE_P(Visual, EachHang,
                         testing::Values("endless_load", "endless_loop", "floods"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(AVisual, thatFloodsIsEnded) {
    begin("floods");
    EXPECT_LT(pictures(100'000), 100'000);
    EXPECT_EQ(awaitNews(*visual_), VisualNews::ended);
}

TEST_F(AVisual, cannotDoWhatAPictureHasNoNeedOf) {
    begin("pries");
    ASSERT_EQ(pictures(1), 1);
    EXPECT_EQ(pixel(0), 0U) << std::hex << pixel(0);
}

/// What of a process `proc` tells in one line.
struct ProcessLine {
    std::string name;
    char state = 0;
    pid_t parent = 0;
    pid_t group = 0;
};

std::map<pid_t, ProcessLine> processes() {
    std::map<pid_t, ProcessLine> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream stat(entry.path() / "stat");
        std::string line;
        const pid_t id = std::atoi(entry.path().filename().c_str());
        const auto first = std::getline(stat, line) ? line.find('(') : std::string::npos;
        const auto last = line.rfind(')');
        if (id > 0 && first != std::string::npos && last != std::string::npos) {
            ProcessLine process{.name = line.substr(first + 1, last - first - 1)};
            std::istringstream rest(line.substr(last + 1));
            rest >> process.state >> process.parent >> process.group;
            found[id] = process;
        }
    }
    return found;
}

/// Those in which plug-ins draw; each leads a group of its own.
std::set<pid_t> helpers() {
    std::set<pid_t> found;
    for (const auto& [id, process] : processes()) {
        if (process.name == "tovik-vis-host" && process.parent == ::getpid()) {
            found.insert(id);
        }
    }
    return found;
}

/// Also of those that a plug-in may have started.
bool noneIsLeftOf(const std::set<pid_t>& groups) {
    for (int i = 0; i < 500; ++i) {
        const auto all = processes();
        if (std::ranges::none_of(
                all, [&](const auto& one) { return groups.contains(one.second.group); })) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

TEST_F(AVisual, leavesNoProcessBehind) {
    std::set<pid_t> groups;
    for (const char* const fault : {"none", "endless_loop", "crash_at_begin", "forks"}) {
        begin(fault);
        static_cast<void>(pictures(2)); // from the third on it is bad
        static_cast<void>(visual_->ask(heard_));
        groups.merge(helpers());
        visual_.reset();
    }
    EXPECT_GE(groups.size(), 3U);
    EXPECT_TRUE(noneIsLeftOf(groups));
}

TEST_F(AVisual, endsWithThePlayer) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t player = ::fork();
    if (player == 0) {
        begin("endless_loop");
        static_cast<void>(pictures(2));
        static_cast<void>(visual_->ask(heard_));
        const auto all = helpers();
        const pid_t helper = all.empty() ? 0 : *all.begin();
        static_cast<void>(::write(pipe[1], &helper, sizeof helper));
        ::kill(::getpid(), SIGKILL);
    }
    pid_t helper = 0;
    ASSERT_EQ(::read(pipe[0], &helper, sizeof helper), static_cast<ssize_t>(sizeof helper));
    ASSERT_GT(helper, 0);
    ::waitpid(player, nullptr, 0);
    bool there = true;
    for (int i = 0; i < 500 && there; ++i) {
        std::ifstream stat("/proc/" + std::to_string(helper) + "/stat");
        std::string id;
        std::string name;
        std::string state;
        there = static_cast<bool>(stat >> id >> name >> state) && state != "Z";
        std::this_thread::sleep_for(std::chrono::milliseconds(there ? 10 : 0));
    }
    EXPECT_FALSE(there);
}

class EachShipped : public AVisual, public testing::WithParamInterface<const char*> {};

/// A chord with a beat, as a file would bring it.
HeardSound chord(int picture) {
    HeardSound heard;
    for (std::size_t i = 0; i < heard.left.size(); ++i) {
        const double at = picture * 0.04 + static_cast<double>(i) / 44100;
        const auto tone = [&](double hertz) { return std::sin(2 * std::numbers::pi * hertz * at); };
        heard.left[i] = static_cast<float>(0.4 * tone(220) + 0.2 * tone(1320));
        heard.right[i] = static_cast<float>(0.4 * tone(330) + 0.2 * tone(1760));
    }
    for (const std::size_t bin : {2U, 3U, 4U, 15U, 20U, 90U}) {
        heard.spectrum[bin] = 0.3F;
    }
    return heard;
}

TEST_P(EachShipped, drawsSomethingThatMovesInEverySize) {
    const std::string path = std::string(TOVIK_SHIPPED_VIS) + "/" + GetParam() + ".svp";
    visual_.emplace(TOVIK_VIS_HOST, path, "", 166, 24);
    for (const auto& [width, height] :
         {std::pair(166, 24), std::pair(640, 400), std::pair(1, 1), std::pair(3, 700),
          std::pair(1500, 2), std::pair(166, 24)}) {
        ASSERT_TRUE(visual_->resize(width, height));
        canvas_ = Canvas{width, height};
        std::vector<std::vector<std::uint32_t>> shown;
        for (int picture = 0; picture < 12; ++picture) {
            ASSERT_TRUE(visual_->ask(chord(picture)));
            ASSERT_EQ(awaitNews(*visual_), VisualNews::picture) << width;
            ASSERT_TRUE(visual_->show(canvas_.surface()));
            shown.push_back(canvas_.pixels);
        }
        const std::set<std::uint32_t> colours(shown.back().begin(), shown.back().end());
        if (width * height > 1000) {
            EXPECT_GT(colours.size(), 1U);
            EXPECT_NE(shown.front(), shown.back());
        }
        ASSERT_TRUE(visual_->click(0, 0));
    }
}

INSTANTIATE_TEST_SUITE_P(Visual, EachShipped,
                         testing::Values("aurora", "oscilloscope", "spectrogram"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
} // namespace tovik::test
