// SPDX-License-Identifier: GPL-3.0-or-later
// Being told when a descriptor can be read, instead of looking again and again. Interface thread.
#pragma once

#include <functional>
#include <memory>

namespace tovik::host {

/// Watches as long as it lives. It may go within its own call.
class Watch {
public:
    Watch() = default;
    virtual ~Watch() = default;
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
};

class Watches {
public:
    virtual ~Watches() = default;

    /// Calls `readable` whenever the event loop finds the descriptor readable, until it is read
    /// empty. The descriptor stays open longer than the watch. Below 0: never.
    [[nodiscard]] virtual std::unique_ptr<Watch> watch(int descriptor,
                                                       std::function<void()> readable) = 0;

    /// Nothing will ever be told: who would wait for it must do without.
    [[nodiscard]] virtual bool watchesNothing() const { return false; }
};

/// Where nothing happens beside the program: nothing is ever told.
class NoWatches final : public Watches {
public:
    [[nodiscard]] std::unique_ptr<Watch> watch(int /*descriptor*/,
                                               std::function<void()> /*readable*/) override {
        return std::make_unique<Watch>();
    }

    [[nodiscard]] bool watchesNothing() const override { return true; }
};

} // namespace tovik::host
