// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/DesktopTray.h"

#include "ui/MessageWindow.h"
#include "ui/Twips.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace tovik::tray {

namespace {

/// The name of the item on the bus: it goes with the process, so that a crash leaves no icon.
QString serviceName() {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-1")
        .arg(QCoreApplication::applicationPid());
}

QDBusMessage nameCall(const char* method) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QLatin1StringView(method));
    call << serviceName();
    return call;
}

constexpr quint32 kNoQueue = 4; ///< of RequestName: to have it or not

// Its answers that say that we have it.
constexpr quint32 kOwner = 1;
constexpr quint32 kOwnerBefore = 4;

} // namespace

DesktopTray::DesktopTray(SessionBus& bus, const host::Dispatcher& dispatcher)
    : sessionBus_(bus), dispatcher_(dispatcher) {
    later_.setSingleShot(true);
    later_.setInterval(kAfterFirstPaintMs);
    later_.callOnTimeout(this, [this] { begin(); });
    docking_.setSingleShot(true);
    docking_.setInterval(kDockingMs);
    docking_.callOnTimeout(this, [this] { report(); });
}

DesktopTray::~DesktopTray() {
    events_ = {};
    wanted_ = false;
    ++attempt_;
    if (object_) {
        bus_->unregisterObject(QLatin1StringView(kNotifierPath));
    }
}

bool DesktopTray::notify(window::NotifyCommand command, const window::NotifyIconData& data) {
    if (command == window::NotifyCommand::remove) {
        wanted_ = false;
    } else {
        wanted_ = wanted_ || command == window::NotifyCommand::add;
        look_ = {.style = data.hIcon, .tooltip = data.szTip.data()};
        if (item_ != nullptr) {
            item_->setLook(look_);
        }
        if (embedded_) {
            embedded_->setLook(look_);
        }
    }
    if (begun_) {
        place();
    } else if (wanted_) {
        later_.start();
    }
    return wanted_ || command == window::NotifyCommand::remove;
}

bool DesktopTray::taken() const {
    return onBus_ || (embedded_ && system_->docked());
}

bool DesktopTray::asking() const {
    return wanted_ && !taken() &&
           (!begun_ || busMayHost() || announced_ || (embedded_ && docking_.isActive()));
}

/// The bus has not said yet whether it has a host.
bool DesktopTray::busMayHost() const {
    return !sessionBus_.failed() && (!watch_ || !watch_->known());
}

std::string DesktopTray::takeToken() {
    return item_ != nullptr ? item_->takeToken() : std::string();
}

std::optional<window::ScreenPlace> DesktopTray::takePlace() {
    return item_ != nullptr ? item_->takePlace() : std::nullopt;
}

void DesktopTray::tell(const std::function<void()>& call) const {
    if (call) {
        dispatcher_.run(call);
    }
}

/// The shell's own way to tell of the mouse.
std::function<void()> DesktopTray::sends(std::uint32_t message) {
    return [this, message] {
        tell([this, message] {
            if (events_.callback) {
                events_.callback(static_cast<std::int32_t>(message) * ui::kTwipsPerPixel);
            }
        });
    };
}

TrayClicks DesktopTray::clicks() {
    return {.left = sends(ui::messages::kLeftUp),
            .leftTwice = sends(ui::messages::kLeftDouble),
            .right = sends(ui::messages::kRightUp),
            .middle = [this] { tell(events_.middleClick); },
            .wheel =
                [this](double notches) {
                    tell([this, notches] {
                        if (events_.wheel) {
                            events_.wheel(notches);
                        }
                    });
                }};
}

void DesktopTray::begin() {
    begun_ = true;
    system_ = std::make_unique<ui::SystemTrayWatch>([this] { place(); });
    sessionBus_.onFailed = [this] { place(); };
    sessionBus_.whenReady([this](const QDBusConnection& bus) { joined(bus); });
}

void DesktopTray::joined(const QDBusConnection& bus) {
    bus_ = bus;
    watch_ = std::make_unique<NotifierWatch>(bus, [this] { place(); });
}

void DesktopTray::place() {
    const bool hosted = watch_ && watch_->hosted();
    if (wanted_ && hosted) {
        putOnBus();
    } else {
        takeOffBus();
    }
    // As long as the bus may still say that it has a host, the other tray waits.
    embed(wanted_ && !hosted && !busMayHost() && system_->there());
    report();
}

void DesktopTray::putOnBus() {
    if (object_) {
        return;
    }
    registerNotifierTypes();
    object_ = std::make_unique<QObject>();
    item_ = new NotifierItem(*object_, clicks());
    item_->setLook(look_);
    bus_->registerObject(QLatin1StringView(kNotifierPath), object_.get());
    QDBusMessage call = nameCall("RequestName");
    call << kNoQueue;
    auto* const asked = new QDBusPendingCallWatcher(bus_->asyncCall(call), object_.get());
    announced_ = true;
    const int attempt = ++attempt_;
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked, attempt] {
        if (attempt != attempt_) {
            return;
        }
        const QDBusPendingReply<quint32> reply = *asked;
        if (!reply.isError() && (reply.value() == kOwner || reply.value() == kOwnerBefore)) {
            announce();
        } else {
            notOnBus();
        }
    });
}

void DesktopTray::announce() {
    watch_->announce(serviceName(), [this, attempt = attempt_](bool taken) {
        if (attempt == attempt_) {
            announced_ = false;
            onBus_ = taken;
            report();
        }
    });
}

/// A host would look for it under a name that is somebody else's.
void DesktopTray::notOnBus() {
    announced_ = false;
    report();
}

void DesktopTray::takeOffBus() {
    ++attempt_;
    announced_ = false;
    onBus_ = false;
    if (!object_) {
        return;
    }
    bus_->unregisterObject(QLatin1StringView(kNotifierPath));
    bus_->asyncCall(nameCall("ReleaseName"));
    item_ = nullptr;
    object_.release()->deleteLater();
}

void DesktopTray::embed(bool wanted) {
    if (wanted == (embedded_ != nullptr)) {
        return;
    }
    if (!wanted) {
        // It may be a click on it that ends it.
        embedded_->hide();
        embedded_.release()->deleteLater();
        return;
    }
    embedded_ = std::make_unique<EmbeddedIcon>(clicks());
    embedded_->setLook(look_);
    docking_.start();
    embedded_->show();
}

/// Who takes it away, perhaps to put it there anew, knows that it is gone.
void DesktopTray::report() {
    if (wanted_ && !asking() && std::exchange(told_, taken()) != taken()) {
        tell(events_.takenChanged);
    }
}

} // namespace tovik::tray
