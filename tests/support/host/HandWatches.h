// SPDX-License-Identifier: GPL-3.0-or-later
// Watches that a test sets off by hand.
#pragma once

#include "host/Watches.h"

#include <cstddef>
#include <map>
#include <utility>

namespace tovik::test {

class HandWatches final : public host::Watches {
public:
    [[nodiscard]] std::unique_ptr<host::Watch> watch(int descriptor,
                                                     std::function<void()> readable) override {
        return std::make_unique<HandWatch>(*this, descriptor, std::move(readable));
    }

    /// What is watched there is told that it is readable; whether anything is.
    bool fire(int descriptor) {
        const auto found = watched_.find(descriptor);
        if (found == watched_.end()) {
            return false;
        }
        const std::function<void()> call = found->second;
        call();
        return true;
    }

    [[nodiscard]] std::size_t count() const { return watched_.size(); }

private:
    class HandWatch final : public host::Watch {
    public:
        HandWatch(HandWatches& owner, int descriptor, std::function<void()> readable)
            : owner_(owner), descriptor_(descriptor) {
            owner_.watched_[descriptor] = std::move(readable);
        }

        ~HandWatch() override { owner_.watched_.erase(descriptor_); }

        HandWatch(const HandWatch&) = delete;
        HandWatch& operator=(const HandWatch&) = delete;

    private:
        HandWatches& owner_;
        int descriptor_;
    };

    std::map<int, std::function<void()>> watched_;
};

} // namespace tovik::test
