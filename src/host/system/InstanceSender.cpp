// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/InstanceSender.h"

#include "base/Descriptor.h"
#include "host/system/InstanceReceiver.h"
#include "host/system/LocalAddress.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <thread>

#include <poll.h>
#include <sys/socket.h>

namespace tovik::host {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// How often a receiver is looked for, and whether there can still be one.
constexpr milliseconds kStep{20};

/// Waits for the socket, a step at most.
void await(int socket, short events) {
    pollfd waiting{.fd = socket, .events = events, .revents = 0};
    ::poll(&waiting, 1, static_cast<int>(kStep.count()));
}

bool blocked() {
    return errno == EAGAIN || errno == EINTR;
}

/// One connection: the record out, the answer in.
class Attempt {
public:
    Attempt(const LocalAddress& address, std::string_view record)
        : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)), rest_(record),
          connected_(socket_.open() && address.connect(socket_.get()) == 0 &&
                     peerIsThisUser(socket_.get())) {}

    [[nodiscard]] bool connected() const { return connected_; }

    [[nodiscard]] bool kept() const { return kept_; }

    /// Waits a step at most. The connection is over when it failed or was answered.
    void step() {
        if (rest_.empty()) {
            read();
        } else {
            write();
        }
    }

private:
    void write() {
        await(socket_.get(), POLLOUT);
        const ssize_t sent = ::send(socket_.get(), rest_.data(), rest_.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            rest_.remove_prefix(static_cast<std::size_t>(sent));
        } else {
            connected_ = blocked();
        }
    }

    void read() {
        await(socket_.get(), POLLIN);
        char answer = 0;
        const ssize_t size = ::recv(socket_.get(), &answer, sizeof answer, 0);
        kept_ = size == 1 && answer == kKeptAnswer;
        connected_ = size < 0 && blocked();
    }

    base::Descriptor socket_;
    std::string_view rest_;
    bool connected_;
    bool kept_ = false;
};

} // namespace

bool sendToInstance(const std::string& socketPath, const InstanceMessage& message,
                    const InstanceMessages::OtherRuns& otherRuns, milliseconds longest) {
    const std::string record = recordOf(message);
    const auto end = Clock::now() + longest;
    while (Clock::now() < end && otherRuns()) {
        // Anew each time: the folder of the socket may come, too.
        const LocalAddress address(socketPath);
        Attempt attempt(address, record);
        while (attempt.connected() && Clock::now() < end) {
            attempt.step();
        }
        if (attempt.kept()) {
            return true;
        }
        std::this_thread::sleep_for(kStep);
    }
    return false;
}

} // namespace tovik::host
