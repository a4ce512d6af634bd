// SPDX-License-Identifier: GPL-3.0-or-later
// A window as the messages that are sent to it: a procedure of its own, and a chain of others in
// front of it. The numbers are those of the published window messages. Interface thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tovik::ui {

namespace messages {

inline constexpr std::uint32_t kMove = 0x0003;
inline constexpr std::uint32_t kSize = 0x0005;
inline constexpr std::uint32_t kSetFocus = 0x0007;
inline constexpr std::uint32_t kKillFocus = 0x0008;
inline constexpr std::uint32_t kPaint = 0x000F;
inline constexpr std::uint32_t kClose = 0x0010;
inline constexpr std::uint32_t kShowWindow = 0x0018;
inline constexpr std::uint32_t kDrawItem = 43;
inline constexpr std::uint32_t kMeasureItem = 44;
inline constexpr std::uint32_t kContextMenu = 0x007B;
inline constexpr std::uint32_t kKeyDown = 0x0100;
inline constexpr std::uint32_t kKeyUp = 0x0101;
inline constexpr std::uint32_t kCommand = 0x0111;
inline constexpr std::uint32_t kInitMenuPopup = 0x0117;
inline constexpr std::uint32_t kMenuSelect = 0x011F;
inline constexpr std::uint32_t kMouseMove = 0x0200;
inline constexpr std::uint32_t kLeftDown = 0x0201;
inline constexpr std::uint32_t kLeftUp = 0x0202;
inline constexpr std::uint32_t kLeftDouble = 0x0203;
inline constexpr std::uint32_t kRightDown = 0x0204;
inline constexpr std::uint32_t kRightUp = 0x0205;
inline constexpr std::uint32_t kRightDouble = 0x0206;
inline constexpr std::uint32_t kMiddleDown = 0x0207;
inline constexpr std::uint32_t kMiddleUp = 0x0208;
inline constexpr std::uint32_t kMiddleDouble = 0x0209;
inline constexpr std::uint32_t kMouseWheel = 0x020A;
inline constexpr std::uint32_t kMouseLeave = 0x02A3;

} // namespace messages

/// What the two parameters mean follows from the number.
struct WindowMessage {
    std::uint32_t number = 0;
    std::intptr_t wParam = 0;
    std::intptr_t lParam = 0;
};

using MessageResult = std::intptr_t;

class MessageWindow {
public:
    using Procedure = std::function<MessageResult(const WindowMessage&)>;

    /// Stands before a window's procedure; it is told what stands behind it.
    class Link {
    public:
        virtual ~Link() = default;
        Link(const Link&) = delete;
        Link& operator=(const Link&) = delete;

        [[nodiscard]] virtual MessageResult
        handle(MessageWindow& window, const WindowMessage& message, const Procedure& original) = 0;

    protected:
        Link() = default;
    };

    /// The links of a window, the one that gets a message first at the end. It may outlive the
    /// window, so that whoever put a link in can always take it out.
    using Chain = std::vector<std::shared_ptr<Link>>;

    /// `own` is the window's own procedure; without one it answers 0.
    explicit MessageWindow(Procedure own = nullptr) : own_(std::move(own)) {}

    ~MessageWindow() = default;
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    /// Runs the chain and returns its result. Links that are taken out meanwhile still get this
    /// message. Raises what a procedure raises.
    MessageResult send(const WindowMessage& message);

    [[nodiscard]] const std::shared_ptr<Chain>& chain() const noexcept { return chain_; }

private:
    [[nodiscard]] MessageResult passOn(const Chain& links, std::size_t count,
                                       const WindowMessage& message);

    Procedure own_;
    std::shared_ptr<Chain> chain_ = std::make_shared<Chain>();
};

} // namespace tovik::ui
