// SPDX-License-Identifier: GPL-3.0-or-later
// The place for an icon, whoever offers it: a host on the desktop's bus where there is one, else
// the tray of the window system; both may come and go. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "tray/EmbeddedIcon.h"
#include "tray/NotifierItem.h"
#include "tray/NotifierWatch.h"
#include "tray/SessionBus.h"
#include "ui/qt/SystemTrayWatch.h"
#include "window/NotifyArea.h"

#include <memory>
#include <optional>
#include <QTimer>

namespace tovik::tray {

class DesktopTray final : public QObject, public window::NotifyArea {
public:
    /// Both outlive the tray. Nothing is looked for until an icon is added, and then only once the
    /// first window had time to be painted.
    DesktopTray(SessionBus& bus, const host::Dispatcher& dispatcher);
    ~DesktopTray() override;

    static constexpr int kAfterFirstPaintMs = 100;

    /// So long a tray of the window system may take to take the icon in.
    static constexpr int kDockingMs = 1000;

    bool notify(window::NotifyCommand command, const window::NotifyIconData& data) override;

    [[nodiscard]] bool taken() const override;
    [[nodiscard]] bool asking() const override;

    void setEvents(window::NotifyEvents events) override { events_ = std::move(events); }

    [[nodiscard]] std::string takeToken() override;
    [[nodiscard]] std::optional<window::ScreenPlace> takePlace() override;

    /// Where the icon is on the screen; empty where only the desktop knows.
    [[nodiscard]] QRect iconPlace() const { return embedded_ ? embedded_->geometry() : QRect(); }

private:
    [[nodiscard]] TrayClicks clicks();
    [[nodiscard]] std::function<void()> sends(std::uint32_t message);
    void tell(const std::function<void()>& call) const;
    void begin();
    void joined(const QDBusConnection& bus);
    /// Puts the icon where it can be now, and takes it away where it was.
    void place();
    void putOnBus();
    void announce();
    void notOnBus();
    void takeOffBus();
    [[nodiscard]] bool busMayHost() const;
    void embed(bool wanted);
    void report();

    SessionBus& sessionBus_;
    const host::Dispatcher& dispatcher_;
    window::NotifyEvents events_;
    QTimer later_;
    QTimer docking_; ///< runs as long as a tray may still take the icon in
    bool begun_ = false;
    bool wanted_ = false;
    TrayLook look_;
    std::optional<QDBusConnection> bus_;
    std::unique_ptr<NotifierWatch> watch_;
    std::unique_ptr<ui::SystemTrayWatch> system_;
    std::unique_ptr<QObject> object_; ///< the one on the bus
    NotifierItem* item_ = nullptr;    ///< which it owns
    int attempt_ = 0;                 ///< answers to earlier ones count no more
    bool announced_ = false;          ///< and not answered yet
    bool onBus_ = false;              ///< a host has it
    std::unique_ptr<EmbeddedIcon> embedded_;
    bool told_ = false; ///< that it is taken
};

} // namespace tovik::tray
