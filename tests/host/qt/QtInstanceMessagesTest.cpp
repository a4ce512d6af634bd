// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtInstanceMessages.h"
#include "EventLoop.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <utility>
#include <vector>

namespace tovik::host {
namespace {

using namespace std::chrono_literals;

class QtInstanceMessagesTest : public testing::Test {
protected:
    /// Sends from a thread of its own, as another process would, while this one runs its loop.
    bool handsOver(const std::string& path) {
        auto sent = std::async(std::launch::async,
                               [&] { return later_.send(handOver(path), [] { return true; }); });
        return test::waitFor([&] { return sent.wait_for(0s) == std::future_status::ready; }) &&
               sent.get();
    }

    test::TemporaryFolder folder_;
    Dispatcher dispatcher_;
    QtInstanceMessages first_{folder_ / "socket", dispatcher_};
    QtInstanceMessages later_{folder_ / "socket", dispatcher_};
    std::vector<std::string> kept_;
};

TEST_F(QtInstanceMessagesTest, theEventLoopTakesWhatArrives) {
    first_.receive([this](const InstanceMessage& message) {
        kept_.push_back(message.text);
        return true;
    });
    EXPECT_TRUE(handsOver("/a.mp3"));
    EXPECT_TRUE(handsOver("/b.mp3"));
    EXPECT_EQ(kept_, (std::vector<std::string>{"/a.mp3", "/b.mp3"}));
    first_.close();
    EXPECT_FALSE(std::filesystem::exists(folder_ / "socket"));
}

TEST_F(QtInstanceMessagesTest, anErrorInItIsReported) {
    int reported = 0;
    dispatcher_.reportTo([&](const base::RuntimeError& error) { reported = error.number(); });
    first_.receive([](const InstanceMessage&) -> bool {
        throw base::RuntimeError(base::ErrorNumber::OutOfMemory);
    });
    auto sent = std::async(std::launch::async, [&] {
        int asked = 0;
        return later_.send(handOver("/a"), [&] { return ++asked < 2; });
    });
    EXPECT_TRUE(test::waitFor([&] { return reported == 7; }));
    first_.close();
    EXPECT_FALSE(sent.get());
}

} // namespace
} // namespace tovik::host
