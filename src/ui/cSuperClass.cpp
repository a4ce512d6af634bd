// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cSuperClass.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

/// The routine in front of the window's.
class cSuperClass::OwnerLink final : public MessageWindow::Link {
public:
    OwnerLink(ISuperClass& owner, bool allMessages, std::vector<std::uint32_t> messages)
        : owner_(&owner), allMessages_(allMessages), messages_(std::move(messages)) {}

    /// From now on it passes everything on.
    void forgetOwner() noexcept { owner_ = nullptr; }

    [[nodiscard]] MessageResult handle(MessageWindow& window, const WindowMessage& message,
                                       const MessageWindow::Procedure& original) override {
        if (owner_ == nullptr || !wants(message.number)) {
            return original(message);
        }
        MessageResult result = 0;
        if (!allMessages_) {
            bool handled = false;
            owner_->Before(handled, result, window, message);
            if (handled) {
                return result;
            }
        }
        result = original(message);
        // The owner may have left meanwhile.
        if (owner_ != nullptr) {
            owner_->After(result, window, message);
        }
        return result;
    }

private:
    [[nodiscard]] bool wants(std::uint32_t number) const {
        return allMessages_ || std::ranges::find(messages_, number) != messages_.end();
    }

    ISuperClass* owner_;
    bool allMessages_;
    std::vector<std::uint32_t> messages_;
};

cSuperClass::~cSuperClass() {
    UnSubclass();
}

void cSuperClass::AddMsg(std::uint32_t message) {
    if (!IsSubclassed() && messages_.size() < kMostMessages) {
        messages_.push_back(message);
    }
}

void cSuperClass::SubClass(MessageWindow& window, ISuperClass& owner, bool allMessages) {
    if (IsSubclassed()) {
        return;
    }
    link_ = std::make_shared<OwnerLink>(owner, allMessages, std::move(messages_));
    messages_.clear();
    chain_ = window.chain();
    window.chain()->push_back(link_);
}

void cSuperClass::UnSubclass() {
    if (!IsSubclassed()) {
        return;
    }
    link_->forgetOwner();
    if (const auto chain = chain_.lock()) {
        std::erase(*chain, link_);
    }
    link_.reset();
    messages_.clear();
}

} // namespace tovik::ui
