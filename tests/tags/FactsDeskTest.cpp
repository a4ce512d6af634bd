// SPDX-License-Identifier: GPL-3.0-or-later
// Facts that are read beside the interface thread.
#include "tags/FactsDesk.h"

#include "base/Mutex.h"
#include "support/host/PollWatches.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <set>

namespace tovik::tags {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

/// A disk that holds the reader until it is let go.
class Gate {
public:
    void open() {
        const base::MutexLock lock(mutex_);
        open_ = true;
        changed_.notifyAll();
    }

    FileFacts pass(const std::string& path) {
        const base::MutexLock lock(mutex_);
        order_.push_back(path);
        changed_.notifyAll();
        while (!open_ && !opened_.contains(path)) {
            changed_.wait(mutex_);
        }
        return {.title = "title of " + path};
    }

    /// Lets one file through, also if it comes only later.
    void open(const std::string& path) {
        const base::MutexLock lock(mutex_);
        opened_.insert(path);
        changed_.notifyAll();
    }

    void waitForReads(std::size_t count) {
        const base::MutexLock lock(mutex_);
        while (order_.size() < count) {
            changed_.wait(mutex_);
        }
    }

    std::vector<std::string> order() {
        const base::MutexLock lock(mutex_);
        return order_;
    }

private:
    base::Mutex mutex_;
    base::Condition changed_;
    bool open_ = false;
    std::set<std::string> opened_;
    std::vector<std::string> order_;
};

class Desk : public testing::Test {
protected:
    Desk() { watches_.nothing = false; }

    FactsDesk& desk() {
        if (!desk_) {
            desk_ = std::make_unique<FactsDesk>(
                watches_, [gate = gate_](const std::string& path) { return gate->pass(path); },
                patience_);
            taking_ = desk_->addTaker([this](const std::string& path, const FileFacts& facts) {
                taken_.push_back(path + ": " + facts.title);
            });
        }
        return *desk_;
    }

    test::PollWatches watches_;
    std::shared_ptr<Gate> gate_ = std::make_shared<Gate>();
    std::vector<std::string> taken_;
    std::chrono::milliseconds patience_ = std::chrono::hours(24);
    FactsDesk::Taking taking_;
    std::unique_ptr<FactsDesk> desk_;
};

TEST_F(Desk, asksWithoutWaiting) {
    desk().ask("a", FactsDesk::Urgency::last);
    gate_->waitForReads(1);
    EXPECT_FALSE(watches_.wait(std::chrono::milliseconds(0)));
    EXPECT_THAT(taken_, IsEmpty());
    gate_->open();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    EXPECT_THAT(taken_, ElementsAre("a: title of a"));
}

TEST_F(Desk, whatIsUrgentComesFirst) {
    for (const char* const path : {"a", "b", "c", "d"}) {
        desk().ask(path, FactsDesk::Urgency::last);
    }
    gate_->waitForReads(1);
    desk().ask("d", FactsDesk::Urgency::first);
    desk().ask("b", FactsDesk::Urgency::last);
    EXPECT_EQ(desk().waiting(), 4U) << "nothing is asked for twice";
    gate_->open();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    EXPECT_THAT(gate_->order(), ElementsAre("a", "d", "b", "c"));
    EXPECT_EQ(taken_.size(), 4U);
}

TEST_F(Desk, answersComeInBatches) {
    gate_->open();
    for (int i = 0; i < 400; ++i) {
        desk().ask(std::to_string(i), FactsDesk::Urgency::last);
    }
    int calls = 0;
    EXPECT_TRUE(watches_.waitUntil([&] {
        ++calls;
        return desk().waiting() == 0;
    }));
    EXPECT_EQ(taken_.size(), 400U);
    EXPECT_LT(calls, 60);
}

TEST_F(Desk, keepsWhatWasAskedForFirst) {
    gate_->open();
    desk().ask("playing", FactsDesk::Urgency::first);
    for (int i = 0; i < 200; ++i) {
        desk().ask(std::to_string(i), FactsDesk::Urgency::last);
    }
    EXPECT_EQ(desk().known("playing"), nullptr);
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    ASSERT_NE(desk().known("playing"), nullptr);
    EXPECT_EQ(desk().known("playing")->title, "title of playing");
    EXPECT_EQ(desk().known("5"), nullptr);
    for (int i = 0; i < 100; ++i) {
        desk().ask("urgent" + std::to_string(i), FactsDesk::Urgency::first);
    }
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    EXPECT_EQ(desk().known("playing"), nullptr) << "but not for ever";
}

TEST_F(Desk, callsLater) {
    bool called = false;
    desk().callLater([&] { called = true; });
    EXPECT_FALSE(called);
    EXPECT_TRUE(watches_.waitUntil([&] { return called; }));
}

TEST_F(Desk, theEndDoesNotWaitForADiskThatStalls) {
    desk().ask("a", FactsDesk::Urgency::last);
    gate_->waitForReads(1);
    const auto begin = std::chrono::steady_clock::now();
    desk_.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    gate_->open(); // the thread comes to its end by itself
}

TEST_F(Desk, aFileThatStallsDoesNotHoldUpWhatIsUrgent) {
    desk().ask("dead", FactsDesk::Urgency::last);
    gate_->waitForReads(1);
    desk().ask("waits", FactsDesk::Urgency::last);
    for (const char* const path : {"a", "b"}) {
        gate_->open(path);
        desk().ask(path, FactsDesk::Urgency::first);
    }
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 2; }));
    EXPECT_THAT(taken_, UnorderedElementsAre("a: title of a", "b: title of b"));
    EXPECT_THAT(gate_->order(), Not(Contains("waits"))) << "one after the other";
    gate_->open();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
}

TEST_F(Desk, aFileThatStallsForLongHoldsUpNothing) {
    patience_ = std::chrono::milliseconds(0);
    for (const char* const path : {"dead 1", "dead 2", "dead 3"}) {
        desk().ask(path, FactsDesk::Urgency::first);
    }
    gate_->open("a");
    desk().ask("a", FactsDesk::Urgency::last);
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 3; }));
    EXPECT_THAT(taken_, ElementsAre("a: title of a"));
    gate_->open();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
}

TEST_F(Desk, thereIsAnEndOfThreads) {
    patience_ = std::chrono::milliseconds(0);
    for (int i = 0; i < 30; ++i) {
        desk().ask(std::to_string(i), FactsDesk::Urgency::last);
    }
    gate_->waitForReads(6);
    EXPECT_FALSE(watches_.wait(std::chrono::milliseconds(30)));
    EXPECT_EQ(gate_->order().size(), 6U) << "the rest is kept for who waits";
    for (const char* const path : {"first", "second", "third"}) {
        desk().ask(path, FactsDesk::Urgency::first);
    }
    gate_->waitForReads(8);
    EXPECT_FALSE(watches_.wait(std::chrono::milliseconds(30)));
    EXPECT_EQ(gate_->order().size(), 8U);
    gate_->open();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    EXPECT_EQ(taken_.size(), 33U);
}

TEST_F(Desk, whatIsReadOfAFileThatChangesIsReadAnew) {
    desk().ask("a", FactsDesk::Urgency::first);
    gate_->waitForReads(1);
    desk().forget("a");
    gate_->open();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    EXPECT_THAT(gate_->order(), ElementsAre("a", "a"));
    EXPECT_THAT(taken_, ElementsAre("a: title of a"));
    desk().forget("a");
    EXPECT_EQ(desk().known("a"), nullptr);
}

TEST_F(Desk, aTakerMayGoBeforeTheDesk) {
    gate_->open();
    int others = 0;
    const auto other = [&others](const std::string&, const FileFacts&) { ++others; };
    const FactsDesk::Taking stays = desk().addTaker(other);
    desk().ask("a", FactsDesk::Urgency::last);
    taking_.reset();
    EXPECT_TRUE(watches_.waitUntil([this] { return desk().waiting() == 0; }));
    EXPECT_THAT(taken_, IsEmpty());
    EXPECT_EQ(others, 1);
}

TEST_F(Desk, withoutWatchesItAnswersAtOnce) {
    watches_.nothing = true;
    gate_->open();
    desk().ask("a", FactsDesk::Urgency::first);
    EXPECT_THAT(taken_, ElementsAre("a: title of a"));
    EXPECT_NE(desk().known("a"), nullptr);
    EXPECT_EQ(desk().waiting(), 0U);
}

} // namespace
} // namespace tovik::tags
