// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/NotifierWatch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <utility>

namespace tovik::tray {

namespace {

const QString& watcherName() {
    static const QString name = QStringLiteral("org.kde.StatusNotifierWatcher");
    return name;
}

const QString& watcherPath() {
    static const QString path = QStringLiteral("/StatusNotifierWatcher");
    return path;
}

} // namespace

NotifierWatch::NotifierWatch(QDBusConnection bus, std::function<void()> changed)
    : bus_(std::move(bus)), changed_(std::move(changed)),
      watcher_(std::make_unique<QDBusServiceWatcher>(watcherName(), bus_,
                                                     QDBusServiceWatcher::WatchForOwnerChange)) {
    connect(watcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                // Another watcher knows nothing of what the last one was told.
                if (hosted_) {
                    answer(false);
                }
                if (!owner.isEmpty()) {
                    look();
                }
            });
    for (const auto* const signal :
         {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        // From anybody: a sender named here would be looked up at once, and waited for.
        bus_.connect(QString(), watcherPath(), watcherName(), QLatin1StringView(signal), this,
                     SLOT(look()));
    }
    look();
}

NotifierWatch::~NotifierWatch() = default;

void NotifierWatch::look() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherName(), watcherPath(), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    call << watcherName() << QStringLiteral("IsStatusNotifierHostRegistered");
    // Nobody is started for it: who shows icons is there, or is not.
    call.setAutoStartService(false);
    auto* const asked = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked] {
        const QDBusPendingReply<QDBusVariant> reply = *asked;
        answer(!reply.isError() && reply.value().variant().toBool());
        asked->deleteLater();
    });
}

void NotifierWatch::answer(bool hosted) {
    const bool first = !std::exchange(known_, true);
    if (std::exchange(hosted_, hosted) != hosted || first) {
        changed_();
    }
}

void NotifierWatch::announce(const QString& service, std::function<void(bool)> done) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherName(), watcherPath(), watcherName(), QStringLiteral("RegisterStatusNotifierItem"));
    call << service;
    call.setAutoStartService(false);
    auto* const asked = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [asked, done = std::move(done)] {
        done(!asked->isError());
        asked->deleteLater();
    });
}

} // namespace tovik::tray
