// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bus/MprisValues.h"

#include <QDBusObjectPath>
#include <QStringList>

namespace tovik::desktop {

namespace {

/// Object paths within a map are no values that compare.
QVariantMap comparable(const QVariant& value) {
    QVariantMap map = value.toMap();
    const QString key = QStringLiteral("mpris:trackid");
    map.insert(key, map.value(key).value<QDBusObjectPath>().path());
    return map;
}

} // namespace

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QVariant trackValue(const std::string& path) {
    return QVariant::fromValue(QDBusObjectPath(QString::fromStdString(path)));
}

QVariant tracksValue(const std::vector<std::string>& paths) {
    QList<QDBusObjectPath> list;
    for (const std::string& path : paths) {
        list.append(QDBusObjectPath(QString::fromStdString(path)));
    }
    return QVariant::fromValue(list);
}

QVariantMap metadataOf(const RemoteTrack& track) {
    QVariantMap map{{QStringLiteral("mpris:trackid"), trackValue(track.trackId)}};
    if (track.length > 0) {
        map.insert(QStringLiteral("mpris:length"), static_cast<qlonglong>(track.length));
    }
    const auto put = [&map](const QString& key, const std::string& text, bool list = false) {
        if (!text.empty()) {
            const QString value = QString::fromStdString(text);
            map.insert(key, list ? QVariant(QStringList{value}) : QVariant(value));
        }
    };
    put(QStringLiteral("xesam:title"), track.title);
    put(QStringLiteral("xesam:artist"), track.artist, true);
    put(QStringLiteral("xesam:album"), track.album);
    put(QStringLiteral("xesam:genre"), track.genre, true);
    put(QStringLiteral("xesam:contentCreated"), track.year);
    put(QStringLiteral("xesam:url"), track.url);
    put(QStringLiteral("mpris:artUrl"), track.artUrl);
    return map;
}

bool sameValue(const QVariant& left, const QVariant& right) {
    return left.metaType() == QMetaType::fromType<QVariantMap>()
               ? comparable(left) == comparable(right)
               : left == right;
}

} // namespace tovik::desktop
