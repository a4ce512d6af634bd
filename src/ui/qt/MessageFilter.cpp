// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/MessageFilter.h"

#include "ui/qt/KeyCodes.h"

#include <algorithm>
#include <array>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <tuple>
#include <utility>

namespace tovik::ui {

namespace {

// The bits of held buttons and keys.
constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kShiftHeld = 4;
constexpr int kControlHeld = 8;
constexpr int kMiddle = 16;

constexpr int kHalf = 16; ///< bits

constexpr auto kPlain = std::to_array<std::pair<QEvent::Type, std::uint32_t>>({
    {QEvent::Move, messages::kMove},
    {QEvent::Resize, messages::kSize},
    {QEvent::FocusIn, messages::kSetFocus},
    {QEvent::FocusOut, messages::kKillFocus},
    {QEvent::Paint, messages::kPaint},
    {QEvent::Close, messages::kClose},
    {QEvent::Show, messages::kShowWindow},
    {QEvent::ContextMenu, messages::kContextMenu},
    {QEvent::Leave, messages::kMouseLeave},
});

struct ButtonMessages {
    Qt::MouseButton button;
    std::uint32_t down;
    std::uint32_t up;
    std::uint32_t twice;
};

constexpr auto kButtons = std::to_array<ButtonMessages>({
    {Qt::LeftButton, messages::kLeftDown, messages::kLeftUp, messages::kLeftDouble},
    {Qt::RightButton, messages::kRightDown, messages::kRightUp, messages::kRightDouble},
    {Qt::MiddleButton, messages::kMiddleDown, messages::kMiddleUp, messages::kMiddleDouble},
});

std::intptr_t heldIn(const QSinglePointEvent& event) {
    const Qt::MouseButtons buttons = event.buttons();
    const Qt::KeyboardModifiers keys = event.modifiers();
    return (buttons.testFlag(Qt::LeftButton) ? kLeft : 0) |
           (buttons.testFlag(Qt::RightButton) ? kRight : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? kMiddle : 0) |
           (keys.testFlag(Qt::ShiftModifier) ? kShiftHeld : 0) |
           (keys.testFlag(Qt::ControlModifier) ? kControlHeld : 0);
}

/// Two numbers of 16 bits as one.
std::intptr_t packed(int low, int high) {
    const auto lower = static_cast<std::uint32_t>(low) & 0xFFFFU;
    const auto upper = static_cast<std::uint32_t>(high) << kHalf;
    return static_cast<std::int32_t>(upper | lower);
}

std::intptr_t placeOf(const QSinglePointEvent& event) {
    const QPoint place = event.position().toPoint();
    return packed(place.x(), place.y());
}

std::uint32_t mouseNumber(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseMove) {
        return messages::kMouseMove;
    }
    const auto* const found = std::ranges::find(kButtons, event.button(), &ButtonMessages::button);
    if (found == kButtons.end()) {
        return 0;
    }
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        return found->down;
    case QEvent::MouseButtonRelease:
        return found->up;
    default:
        return found->twice;
    }
}

} // namespace

WindowMessage messageOf(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const KeyEvent key = keyEventOf(static_cast<const QKeyEvent&>(event));
        return {event.type() == QEvent::KeyPress ? messages::kKeyDown : messages::kKeyUp, key.code,
                (key.modifiers.shift ? 1 : 0) | (key.modifiers.control ? 2 : 0) |
                    (key.modifiers.alt ? 4 : 0)};
    }
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return {mouseNumber(mouse), heldIn(mouse), placeOf(mouse)};
    }
    case QEvent::Wheel: {
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        return {messages::kMouseWheel,
                packed(static_cast<int>(heldIn(wheel)), wheel.angleDelta().y()), placeOf(wheel)};
    }
    default: {
        const auto* const found =
            std::ranges::find(kPlain, event.type(), &decltype(kPlain)::value_type::first);
        return {found == kPlain.end() ? 0 : found->second};
    }
    }
}

MessageFilter::MessageFilter(QWidget& widget, const host::Dispatcher& dispatcher)
    : QObject(&widget), dispatcher_(dispatcher), window_([this](const WindowMessage& /*message*/) {
          return current_ != nullptr && watched_->event(current_) ? MessageResult{1}
                                                                  : MessageResult{0};
      }) {
    widget.installEventFilter(this);
}

bool MessageFilter::eventFilter(QObject* watched, QEvent* event) {
    const WindowMessage message = messageOf(*event);
    if (message.number == 0 || window_.chain()->empty()) {
        return QObject::eventFilter(watched, event);
    }
    // An event may bring about another one before it is done.
    const auto before = std::pair(watched_, current_);
    watched_ = watched;
    current_ = event;
    const QPointer<MessageFilter> alive(this);
    dispatcher_.run([&] { window_.send(message); });
    if (alive.isNull()) {
        return true; // the event was the end of the widget
    }
    std::tie(watched_, current_) = before;
    return true;
}

} // namespace tovik::ui
