// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/LocalMessengers.h"

#include "base/LittleEndian.h"
#include "base/Descriptor.h"
#include "host/system/LocalAddress.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/socket.h>

namespace tovik::host {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// More of them than this are not kept for a messenger that is slow.
constexpr std::size_t kMostWaiting = 16;

std::vector<std::string> socketsIn(const std::string& folder) {
    std::vector<std::string> paths;
    std::error_code failure; // no folder: nobody listens
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code unknown;
        if (entry->is_socket(unknown)) {
            paths.push_back(entry->path().native());
        }
    }
    std::ranges::sort(paths);
    return paths;
}

/// False when the time is over or the socket is broken.
bool awaitRoom(int socket, Clock::time_point end) {
    const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now()).count();
    pollfd waiting{.fd = socket, .events = POLLOUT, .revents = 0};
    return left > 0 && ::poll(&waiting, 1, static_cast<int>(left)) > 0;
}

void sendTo(const std::string& path, std::string_view rest, Clock::time_point end) {
    const LocalAddress address(path);
    const base::Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket.open() || address.connect(socket.get()) != 0 || !peerIsThisUser(socket.get())) {
        return;
    }
    while (!rest.empty()) {
        const ssize_t sent = ::send(socket.get(), rest.data(), rest.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(sent));
        } else if ((errno != EAGAIN && errno != EINTR) || !awaitRoom(socket.get(), end)) {
            return;
        }
    }
}

} // namespace

std::string messengerFrame(const MessengerRecord& record) {
    std::string frame;
    base::appendLittleEndian(frame, record.dwData);
    base::appendLittleEndian(frame, static_cast<std::uint32_t>(record.lpData.size()));
    return frame + record.lpData;
}

LocalMessengers::~LocalMessengers() {
    {
        const base::MutexLock lock(mutex_);
        end_ = true;
        changed_.notifyAll();
    }
    if (thread_.joinable()) {
        thread_.join();
    }
}

void LocalMessengers::send(const MessengerRecord& record) {
    if (!thread_.joinable()) {
        std::error_code unknown; // the runtime folder lies in memory: looking is no wait
        if (!std::filesystem::is_directory(folder_, unknown)) {
            return;
        }
        thread_ = std::thread([this] { work(); });
    }
    const base::MutexLock lock(mutex_);
    if (waiting_.size() == kMostWaiting) {
        waiting_.pop_front();
    }
    waiting_.push_back(messengerFrame(record));
    changed_.notifyAll();
}

void LocalMessengers::finish() {
    const auto end = Clock::now() + kLongestFinish;
    const base::MutexLock lock(mutex_);
    while ((busy_ || !waiting_.empty()) && changed_.waitUntil(mutex_, end)) {
    }
}

bool LocalMessengers::ending() {
    const base::MutexLock lock(mutex_);
    return end_;
}

void LocalMessengers::work() {
    for (;;) {
        std::string frame;
        {
            const base::MutexLock lock(mutex_);
            busy_ = false;
            changed_.notifyAll();
            while (waiting_.empty() && !end_) {
                changed_.wait(mutex_);
            }
            if (end_) {
                return;
            }
            frame = std::move(waiting_.front());
            waiting_.pop_front();
            busy_ = true;
        }
        sendToAll(frame);
    }
}

void LocalMessengers::sendToAll(const std::string& frame) {
    for (const std::string& path : socketsIn(folder_)) {
        if (ending()) {
            return;
        }
        sendTo(path, frame, Clock::now() + longest_);
    }
}

} // namespace tovik::host
