// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/LocalMessengers.h"

#include "base/Descriptor.h"
#include "host/system/LocalAddress.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include <poll.h>
#include <sys/socket.h>

namespace tovik::host {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;
using namespace std::string_literals;

/// A messenger that listens.
class Listener {
public:
    explicit Listener(const std::string& path)
        : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const LocalAddress address(path);
        EXPECT_EQ(address.bind(socket_.get()), 0);
        EXPECT_EQ(::listen(socket_.get(), 4), 0);
    }

    /// What one connection brings; empty when none comes.
    [[nodiscard]] std::string take(std::chrono::milliseconds longest = 5s) const {
        pollfd waiting{.fd = socket_.get(), .events = POLLIN, .revents = 0};
        if (::poll(&waiting, 1, static_cast<int>(longest.count())) <= 0) {
            return {};
        }
        const base::Descriptor peer(::accept(socket_.get(), nullptr, nullptr));
        std::string bytes;
        std::array<char, 256> part{};
        for (ssize_t size = 1; size > 0;) {
            size = ::recv(peer.get(), part.data(), part.size(), 0);
            bytes.append(part.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        }
        return bytes;
    }

private:
    base::Descriptor socket_;
};

class LocalMessengersTest : public testing::Test {
protected:
    LocalMessengersTest() { std::filesystem::create_directory(place_); }

    test::TemporaryFolder runtime_;
    std::string place_ = runtime_.path() + "/MsnMsgrUIManager";
};

TEST_F(LocalMessengersTest, theFrame) {
    EXPECT_EQ(messengerFrame({.dwData = 1351, .lpData = "abc"}), "\x47\x05\0\0\3\0\0\0abc"s);
}

TEST_F(LocalMessengersTest, allOfThemGetIt) {
    const Listener one(place_ + "/one");
    const Listener two(place_ + "/two");
    LocalMessengers messengers(runtime_.path());
    messengers.send({.dwData = 1, .lpData = "first"});
    const std::string frame = messengerFrame({.dwData = 1, .lpData = "first"});
    EXPECT_EQ(one.take(), frame);
    EXPECT_EQ(two.take(), frame);
    messengers.send({.dwData = 2, .lpData = "second"});
    EXPECT_EQ(one.take(), messengerFrame({.dwData = 2, .lpData = "second"}));
}

TEST_F(LocalMessengersTest, nobodyListens) {
    LocalMessengers messengers(runtime_.path());
    messengers.send({.dwData = 1, .lpData = "x"});
    messengers.finish();
    LocalMessengers nowhere(runtime_.path() + "/none");
    nowhere.send({.dwData = 1, .lpData = "x"});
    nowhere.finish();
}

TEST_F(LocalMessengersTest, whoLeftASocketBehindIsPassedOver) {
    { const Listener gone(place_ + "/a"); }
    const Listener there(place_ + "/b");
    LocalMessengers messengers(runtime_.path());
    messengers.send({.dwData = 1, .lpData = "x"});
    EXPECT_EQ(there.take(), messengerFrame({.dwData = 1, .lpData = "x"}));
}

TEST_F(LocalMessengersTest, whoDoesNotReadIsDropped) {
    const Listener deaf(place_ + "/a");
    const Listener there(place_ + "/b");
    LocalMessengers messengers(runtime_.path(), 300ms);
    const MessengerRecord large{.dwData = 1, .lpData = std::string(1'000'000, 'x')};
    messengers.send(large);
    EXPECT_EQ(there.take(), messengerFrame(large));
}

TEST_F(LocalMessengersTest, theEndWaitsForNobody) {
    const Listener deaf(place_ + "/a");
    LocalMessengers messengers(runtime_.path(), 900ms);
    messengers.send({.dwData = 1, .lpData = std::string(1'000'000, 'x')});
    const auto start = Clock::now();
    messengers.finish();
    EXPECT_LT(Clock::now() - start, 700ms);
}

TEST_F(LocalMessengersTest, theLastOneArrivesBeforeTheEnd) {
    const Listener there(place_ + "/a");
    LocalMessengers messengers(runtime_.path());
    messengers.send({.dwData = 1, .lpData = "bye"});
    messengers.finish();
    EXPECT_EQ(there.take(0ms), messengerFrame({.dwData = 1, .lpData = "bye"}));
}

} // namespace
} // namespace tovik::host
