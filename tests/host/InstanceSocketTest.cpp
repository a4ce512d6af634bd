// SPDX-License-Identifier: GPL-3.0-or-later
// Two instances and the socket between them.
#include "host/system/InstanceReceiver.h"
#include "host/system/InstanceSender.h"
#include "host/system/LocalAddress.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/stat.h>

namespace tovik::host {
namespace {

using base::Descriptor;

using namespace std::chrono_literals;
using namespace std::string_literals;

/// What the event loop does: serves until the condition holds; false after ten seconds.
template <typename Condition>
bool serveUntil(InstanceReceiver& receiver, const InstanceMessages::Keep& keep,
                Condition condition) {
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        pollfd waiting{.fd = receiver.descriptor(), .events = POLLIN, .revents = 0};
        if (::poll(&waiting, 1, 10) > 0) {
            receiver.service(keep);
        }
    }
    return true;
}

class InstanceSocket : public testing::Test {
protected:
    const InstanceMessages::Keep keep_ = [this](InstanceMessage message) {
        kept_.push_back(std::move(message));
        return true;
    };

    /// A sender in a thread of its own, as in another process.
    [[nodiscard]] std::future<bool> send(
        const std::string& path,
        InstanceMessages::OtherRuns otherRuns = [] { return true; }) const {
        return std::async(std::launch::async, [this, path, otherRuns] {
            return sendToInstance(path_, handOver(path), otherRuns);
        });
    }

    bool serveUntilSent(std::future<bool>& sent) {
        return serveUntil(receiver_, keep_, [&] { return sent.wait_for(0s) == kReady; }) &&
               sent.get();
    }

    /// A connection that does as it likes.
    [[nodiscard]] Descriptor connect() const {
        Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        EXPECT_EQ(LocalAddress(path_).connect(socket.get()), 0);
        return socket;
    }

    static constexpr auto kReady = std::future_status::ready;

    test::TemporaryFolder folder_;
    std::string path_ = folder_ / "socket";
    InstanceReceiver receiver_{path_};
    std::vector<InstanceMessage> kept_;
};

TEST_F(InstanceSocket, aPathArrivesAndTheSenderHearsThatItIsKept) {
    ASSERT_TRUE(receiver_.open());
    auto sent = send("/music/a.mp3");
    EXPECT_TRUE(serveUntilSent(sent));
    EXPECT_EQ(kept_, std::vector{handOver("/music/a.mp3")});
}

TEST_F(InstanceSocket, soDoesOneOfAnyLength) {
    ASSERT_TRUE(receiver_.open());
    auto sent = send(std::string(kLongestText, 'a'));
    EXPECT_TRUE(serveUntilSent(sent));
    EXPECT_EQ(kept_, std::vector{handOver(std::string(kLongestText, 'a'))});
}

TEST_F(InstanceSocket, severalAreKeptInTheirOrder) {
    ASSERT_TRUE(receiver_.open());
    for (const char* const name : {"/a", "/b", "/c"}) {
        const std::string record = recordOf(handOver(name));
        const Descriptor socket = connect();
        ASSERT_EQ(::send(socket.get(), record.data(), record.size(), 0),
                  static_cast<ssize_t>(record.size()));
        ASSERT_TRUE(serveUntil(receiver_, keep_,
                               [&] { return !kept_.empty() && kept_.back().text == name; }));
    }
    EXPECT_EQ(kept_.size(), 3U);
}

TEST_F(InstanceSocket, aReceiverThatComesLaterIsWaitedFor) {
    auto sent = send("/music/a.mp3");
    EXPECT_EQ(sent.wait_for(100ms), std::future_status::timeout);
    ASSERT_TRUE(receiver_.open());
    EXPECT_TRUE(serveUntilSent(sent));
    EXPECT_EQ(kept_.size(), 1U);
}

TEST_F(InstanceSocket, whatAKilledInstanceLeftIsTakenOver) {
    {
        Descriptor dead(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        ASSERT_EQ(LocalAddress(path_).bind(dead.get()), 0);
    }
    ASSERT_TRUE(std::filesystem::exists(path_));
    auto sent = send("/music/a.mp3");
    EXPECT_EQ(sent.wait_for(100ms), std::future_status::timeout);
    ASSERT_TRUE(receiver_.open());
    EXPECT_TRUE(serveUntilSent(sent));
}

TEST_F(InstanceSocket, itIsOnlyForThisUserAndGoesWithTheReceiver) {
    ASSERT_TRUE(receiver_.open());

    struct stat status {};

    ASSERT_EQ(::stat(path_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0077U, 0U);
    receiver_.close();
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_EQ(receiver_.descriptor(), -1);
}

TEST_F(InstanceSocket, theWaitEndsInTime) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(sendToInstance(
        path_, handOver("/a"), [] { return true; }, 100ms));
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(waited, 100ms);
    EXPECT_LT(waited, 4s);
}

TEST_F(InstanceSocket, alsoForAReceiverThatNeverAnswers) {
    ASSERT_TRUE(receiver_.open()); // and nobody serves
    EXPECT_FALSE(sendToInstance(
        path_, handOver("/a"), [] { return true; }, 100ms));
}

TEST_F(InstanceSocket, andWhenTheOtherInstanceEnds) {
    int asked = 0;
    EXPECT_FALSE(sendToInstance(path_, handOver("/a"), [&] { return ++asked < 3; }));
    EXPECT_EQ(asked, 3);
}

TEST_F(InstanceSocket, whatCannotBeKeptIsNotAnswered) {
    ASSERT_TRUE(receiver_.open());
    const std::string record = recordOf(handOver("/a"));
    const Descriptor socket = connect();
    ASSERT_GT(::send(socket.get(), record.data(), record.size(), 0), 0);
    bool asked = false;
    const InstanceMessages::Keep full = [&](const InstanceMessage&) {
        asked = true;
        return false;
    };
    ASSERT_TRUE(serveUntil(receiver_, full, [&] { return asked; }));
    char answer = 0;
    EXPECT_EQ(::recv(socket.get(), &answer, 1, 0), 0);
}

TEST_F(InstanceSocket, whatIsNoRecordEndsTheConnection) {
    ASSERT_TRUE(receiver_.open());
    const Descriptor socket = connect();
    ASSERT_EQ(::send(socket.get(), "GET / HTTP/1.0\r\n", 16, 0), 16);
    pollfd over{.fd = socket.get(), .events = POLLIN, .revents = 0};
    ASSERT_TRUE(serveUntil(receiver_, keep_, [&] { return ::poll(&over, 1, 0) > 0; }));
    EXPECT_TRUE(kept_.empty());
}

TEST_F(InstanceSocket, aSenderThatNeverComesToItsEndIsDropped) {
    InstanceReceiver receiver(path_, 300ms);
    ASSERT_TRUE(receiver.open());
    const Descriptor socket = connect();
    ASSERT_EQ(::send(socket.get(), "\x03\0\0\0", 4, 0), 4);
    // Others are served meanwhile.
    auto sent = send("/music/a.mp3");
    EXPECT_TRUE(serveUntil(receiver, keep_, [&] { return sent.wait_for(0s) == kReady; }));
    EXPECT_TRUE(sent.get());
    pollfd over{.fd = socket.get(), .events = POLLIN, .revents = 0};
    ASSERT_TRUE(serveUntil(receiver, keep_, [&] { return ::poll(&over, 1, 0) > 0; }));
    char answer = 0;
    EXPECT_LE(::recv(socket.get(), &answer, 1, 0), 0);
    EXPECT_EQ(kept_.size(), 1U);
}

TEST_F(InstanceSocket, ofTooManySendersTheOldestGo) {
    ASSERT_TRUE(receiver_.open());
    std::vector<Descriptor> sockets;
    pollfd over{.fd = -1, .events = POLLIN, .revents = 0};
    for (std::size_t i = 0; i <= InstanceReceiver::kMostSenders; ++i) {
        sockets.push_back(connect());
        receiver_.service(keep_);
        over.fd = sockets.front().get();
        EXPECT_EQ(::poll(&over, 1, 0) > 0, i == InstanceReceiver::kMostSenders);
    }
    auto sent = send("/music/a.mp3");
    EXPECT_TRUE(serveUntilSent(sent));
}

TEST_F(InstanceSocket, theNameIsOneForEachUserAndFolder) {
    const std::string name = instanceSocketPath("/run", folder_.path(), 1000);
    EXPECT_TRUE(name.starts_with("/run/tovik-")) << name;
    EXPECT_EQ(name.size(), std::string("/run/tovik-").size() + 16);
    EXPECT_NE(name, instanceSocketPath("/run", folder_.path(), 1001));
    EXPECT_NE(name, instanceSocketPath("/run", folder_ / "other", 1000));
    EXPECT_EQ(name, instanceSocketPath("/run", folder_.path() + "/", 1000));
    std::filesystem::create_directory_symlink(folder_.path(), folder_ / "link");
    EXPECT_EQ(name, instanceSocketPath("/run", folder_ / "link", 1000));
}

TEST_F(InstanceSocket, aFolderWithALongNameIsNoHindrance) {
    const std::string folder = folder_ / std::string(200, 'd');
    std::filesystem::create_directory(folder);
    path_ = folder + "/socket";
    InstanceReceiver receiver(path_);
    ASSERT_TRUE(receiver.open());
    EXPECT_TRUE(std::filesystem::exists(path_));
    auto sent = send("/music/a.mp3");
    EXPECT_TRUE(serveUntil(receiver, keep_, [&] { return sent.wait_for(0s) == kReady; }));
    EXPECT_TRUE(sent.get());
}

TEST_F(InstanceSocket, withoutAFolderNothingIsReceived) {
    InstanceReceiver receiver(folder_ / "none/socket");
    EXPECT_FALSE(receiver.open());
    InstanceReceiver longer((folder_ / "none/") + std::string(200, 's'));
    EXPECT_FALSE(longer.open());
}

} // namespace
} // namespace tovik::host
