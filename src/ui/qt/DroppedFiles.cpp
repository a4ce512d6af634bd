// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/DroppedFiles.h"

#include <algorithm>
#include <optional>
#include <QSysInfo>
#include <QUrl>

namespace tovik::ui {

namespace {

/// A name of a file need not be text: the bytes are taken as they were written in the address.
std::optional<std::string> localPath(const QUrl& url) {
    const QString host = url.host();
    const bool here = host.isEmpty() || host == QStringLiteral("localhost") ||
                      host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    if (url.scheme() != QStringLiteral("file") || !here) {
        return std::nullopt;
    }
    const QByteArray path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return path.isEmpty() ? std::nullopt : std::optional(path.toStdString());
}

/// The path of a file here, or an address of the web as it stands.
std::optional<std::string> pathOrAddress(const QUrl& url) {
    if (url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https")) {
        return url.toEncoded().toStdString();
    }
    return localPath(url);
}

} // namespace

std::vector<std::string> droppedPaths(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) {
        if (auto path = pathOrAddress(url)) {
            paths.push_back(std::move(*path));
        }
    }
    return paths;
}

bool offersFiles(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return std::ranges::any_of(urls,
                               [](const QUrl& url) { return pathOrAddress(url).has_value(); });
}

} // namespace tovik::ui
