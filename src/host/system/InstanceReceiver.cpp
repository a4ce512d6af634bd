// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/InstanceReceiver.h"

#include "host/system/LocalAddress.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace tovik::host {

bool InstanceReceiver::open() {
    if (events_.open()) {
        return true;
    }
    constexpr mode_t kMode = 0600;
    constexpr int kWaiting = 64;
    base::Descriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const LocalAddress address(path_);
    if (!listener.open() || !address.valid()) {
        return false;
    }
    ::unlink(path_.c_str());
    if (::fchmod(listener.get(), kMode) != 0 || address.bind(listener.get()) != 0) {
        return false;
    }
    listener_ = std::move(listener);
    alarm_ = base::Descriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK));
    events_ = base::Descriptor(::epoll_create1(EPOLL_CLOEXEC));
    if (::listen(listener_.get(), kWaiting) == 0 && alarm_.open() && events_.open() &&
        watch(listener_.get()) && watch(alarm_.get())) {
        return true;
    }
    close();
    return false;
}

void InstanceReceiver::close() {
    if (listener_.open()) {
        ::unlink(path_.c_str());
    }
    senders_.clear();
    listener_.reset();
    alarm_.reset();
    events_.reset();
}

bool InstanceReceiver::watch(int descriptor) const {
    epoll_event event{};
    event.events = EPOLLIN;
    return ::epoll_ctl(events_.get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

void InstanceReceiver::service(const InstanceMessages::Keep& keep) {
    if (!events_.open()) {
        return;
    }
    std::uint64_t expirations = 0;
    [[maybe_unused]] const ssize_t rung = ::read(alarm_.get(), &expirations, sizeof expirations);
    accept();
    const auto now = Clock::now();
    std::erase_if(senders_,
                  [&](Sender& sender) { return !read(sender, keep) || sender.end <= now; });
    while (senders_.size() > kMostSenders) {
        senders_.pop_front();
    }
    wakeForNextEnd();
}

void InstanceReceiver::accept() {
    // No more than there is room for: the rest waits for the next call.
    for (std::size_t count = 0; count < kMostSenders; ++count) {
        base::Descriptor socket(
            ::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!socket.open()) {
            return;
        }
        if (peerIsThisUser(socket.get()) && watch(socket.get())) {
            senders_.push_back({std::move(socket), Clock::now() + longestRecord_});
        }
    }
}

bool InstanceReceiver::read(Sender& sender, const InstanceMessages::Keep& keep) {
    constexpr std::size_t kBlock = 4096;
    std::array<char, kBlock> block{};
    while (true) {
        const ssize_t size = ::recv(sender.socket.get(), block.data(), block.size(), 0);
        if (size <= 0) {
            return size < 0 && (errno == EAGAIN || errno == EINTR);
        }
        switch (sender.record.take({block.data(), static_cast<std::size_t>(size)})) {
        case InstanceRecord::State::unfinished:
            break;
        case InstanceRecord::State::whole:
            if (keep(sender.record.message())) {
                ::send(sender.socket.get(), &kKeptAnswer, sizeof kKeptAnswer, MSG_NOSIGNAL);
            }
            return false;
        case InstanceRecord::State::broken:
            return false;
        }
    }
}

void InstanceReceiver::wakeForNextEnd() const {
    itimerspec time{}; // zero: never
    if (!senders_.empty()) {
        const auto left = std::max<Clock::duration>(senders_.front().end - Clock::now(),
                                                    std::chrono::milliseconds(1));
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        time.it_value.tv_sec = seconds.count();
        time.it_value.tv_nsec =
            std::chrono::duration_cast<std::chrono::nanoseconds>(left - seconds).count();
    }
    ::timerfd_settime(alarm_.get(), 0, &time, nullptr);
}

} // namespace tovik::host
