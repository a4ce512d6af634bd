// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TitleNotice.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>
#include <utility>

namespace tovik::tray {

namespace {

constexpr int kShownMs = 2000;

} // namespace

void TitleNotice::show(const QString& words) {
    words_ = words;
    next();
}

void TitleNotice::next() {
    if (words_ && !std::exchange(busy_, true)) {
        bus_.whenReady([this](const QDBusConnection& bus) { send(bus); });
    }
}

void TitleNotice::send(const QDBusConnection& bus) {
    const QString words = *std::exchange(words_, std::nullopt);
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    call << QStringLiteral("Tovik") << last_ << QStringLiteral("tovik") << words << QString()
         << QStringList() << QVariantMap() << kShownMs;
    auto* const asked = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked] {
        const QDBusPendingReply<quint32> reply = *asked;
        if (!reply.isError()) {
            last_ = reply.value();
        }
        asked->deleteLater();
        busy_ = false;
        next();
    });
}

} // namespace tovik::tray
