// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the window system has a tray that takes icons, as trays come and go. Interface thread.
#pragma once

#include <cstdint>
#include <functional>
#include <QAbstractNativeEventFilter>
#include <QTimer>

namespace tovik::ui {

/// Only X11 has such a tray; elsewhere there is never one.
class SystemTrayWatch final : public QAbstractNativeEventFilter {
public:
    /// `changed` is called from the event loop.
    explicit SystemTrayWatch(std::function<void()> changed);
    ~SystemTrayWatch() override;
    SystemTrayWatch(const SystemTrayWatch&) = delete;
    SystemTrayWatch& operator=(const SystemTrayWatch&) = delete;

    [[nodiscard]] bool there() const { return tray_ != 0; }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    /// Asks the window system for the tray's window, and to be told of its end.
    [[nodiscard]] std::uint32_t find() const;
    void look();

    std::function<void()> changed_;
    std::uint32_t selection_ = 0; ///< whose owner the tray is
    std::uint32_t manager_ = 0;   ///< the message by which a new one is announced
    std::uint32_t tray_ = 0;
    QTimer later_;
};

} // namespace tovik::ui
