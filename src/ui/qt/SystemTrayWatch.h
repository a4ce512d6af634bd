// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the window system has a tray that takes icons, as trays come and go. Interface thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <QAbstractNativeEventFilter>
#include <QTimer>
#include <string>

namespace tovik::ui {

/// Only X11 has such a tray; elsewhere there is never one. Nothing here waits for the X server: its
/// answers are looked for as they may have come.
class SystemTrayWatch final : public QAbstractNativeEventFilter {
public:
    /// `changed` is called from the event loop.
    explicit SystemTrayWatch(std::function<void()> changed);
    ~SystemTrayWatch() override;
    SystemTrayWatch(const SystemTrayWatch&) = delete;
    SystemTrayWatch& operator=(const SystemTrayWatch&) = delete;

    [[nodiscard]] bool there() const { return tray_ != 0; }

    /// The tray has taken the window of an icon of ours into its own.
    [[nodiscard]] bool docked() const;

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    /// Something that the X server was asked; the answer is null where it has none.
    struct Question {
        unsigned int sequence = 0;
        std::function<void(const void* reply)> answer;
    };

    void ask(unsigned int sequence, std::function<void(const void*)> answer);
    void askAtom(const std::string& name, std::function<void(std::uint32_t)> answer);

    /// For the window of the tray.
    void askOwner();
    void collect();
    void found(std::uint32_t tray);
    void reparented(std::uint32_t window, std::uint32_t parent);

    std::function<void()> changed_;
    std::deque<Question> open_;
    std::uint32_t selection_ = 0; ///< whose owner the tray is
    std::uint32_t manager_ = 0;   ///< the message by which a new one is announced
    std::uint32_t tray_ = 0;
    std::uint32_t docked_ = 0; ///< the window that it took last
    QTimer collector_;
    QTimer later_;
    QTimer tell_;
};

/// The number of the screen in the name of a display, 0 for one that names none.
[[nodiscard]] int screenOfDisplay(const char* display);

} // namespace tovik::ui
