// SPDX-License-Identifier: GPL-3.0-or-later
// Watches that look when a test lets them.
#pragma once

#include "host/Watches.h"

#include <chrono>
#include <map>
#include <utility>
#include <vector>

#include <poll.h>

namespace tovik::test {

class PollWatches final : public host::Watches {
public:
    bool nothing = true; ///< as in a render

    [[nodiscard]] std::unique_ptr<host::Watch> watch(int descriptor,
                                                     std::function<void()> readable) override {
        return std::make_unique<Polled>(*this, descriptor, std::move(readable));
    }

    [[nodiscard]] bool watchesNothing() const override { return nothing; }

    /// Waits until something can be read, and tells it; false when nothing could in that time.
    bool wait(std::chrono::milliseconds time = std::chrono::seconds(10)) {
        std::vector<pollfd> all;
        for (const auto& [descriptor, call] : watched_) {
            all.push_back({.fd = descriptor, .events = POLLIN, .revents = 0});
        }
        if (::poll(all.data(), all.size(), static_cast<int>(time.count())) <= 0) {
            return false;
        }
        for (const pollfd& each : all) {
            if (const auto found = watched_.find(each.fd);
                each.revents != 0 && found != watched_.end()) {
                const std::function<void()> call = found->second;
                call();
            }
        }
        return true;
    }

    /// The same until something holds.
    template <typename Holds>
    bool waitUntil(Holds holds) {
        while (!holds()) {
            if (!wait()) {
                return false;
            }
        }
        return true;
    }

private:
    class Polled final : public host::Watch {
    public:
        Polled(PollWatches& owner, int descriptor, std::function<void()> readable)
            : owner_(owner), descriptor_(descriptor) {
            owner_.watched_[descriptor] = std::move(readable);
        }

        ~Polled() override { owner_.watched_.erase(descriptor_); }

        Polled(const Polled&) = delete;
        Polled& operator=(const Polled&) = delete;

    private:
        PollWatches& owner_;
        int descriptor_;
    };

    std::map<int, std::function<void()>> watched_;
};

} // namespace tovik::test
