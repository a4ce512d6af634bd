// SPDX-License-Identifier: GPL-3.0-or-later
// Puts an owner in front of a window's procedure: for some messages before and after it, or for
// all of them after it. Interface thread.
#pragma once

#include "ui/ISuperClass.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tovik::ui {

class cSuperClass {
public:
    /// A longer list is cut off there: further messages do not reach the owner.
    static constexpr std::size_t kMostMessages = 36;

    cSuperClass() = default;

    /// Calls `UnSubclass`.
    ~cSuperClass();
    cSuperClass(const cSuperClass&) = delete;
    cSuperClass& operator=(const cSuperClass&) = delete;

    /// A message that the owner wants to see. Before `SubClass`; each `SubClass` needs its own.
    void AddMsg(std::uint32_t message);

    /// Begins. With `allMessages` the owner gets `After` of every message, whatever was added;
    /// without it `Before` and `After` of those that were. The owner lives until `UnSubclass`, the
    /// window need not. While it runs already, the call does nothing.
    void SubClass(MessageWindow& window, ISuperClass& owner, bool allMessages);

    /// Ends, and forgets the messages; the owner is not called any more, not even for a message
    /// that is on its way. Nothing when it does not run.
    void UnSubclass();

    [[nodiscard]] bool IsSubclassed() const noexcept { return link_ != nullptr; }

private:
    class OwnerLink;

    std::vector<std::uint32_t> messages_;
    std::shared_ptr<OwnerLink> link_; ///< null while it does not run
    std::weak_ptr<MessageWindow::Chain> chain_;
};

} // namespace tovik::ui
