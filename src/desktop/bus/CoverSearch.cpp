// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bus/CoverSearch.h"

#include "base/Url.h"

#include <exception>
#include <QCoreApplication>
#include <QPointer>
#include <thread>
#include <utility>

namespace tovik::desktop {

void CoverSearch::look(const std::string& track) {
    if (searching_) {
        next_ = track;
    } else if (!track.empty()) {
        begin(track);
    }
}

void CoverSearch::begin(const std::string& track) {
    searching_ = true;
    std::thread([guard = QPointer<QObject>(this), this, track, covers = covers_, tags = tags] {
        std::string picture;
        try {
            picture = coverOf(track, covers, {}, tags);
        } catch (const std::exception&) {
            picture.clear(); // too large for the memory that there is
        }
        QMetaObject::invokeMethod(qApp, [guard, this, track, picture] {
            if (!guard.isNull()) {
                finish(track, picture);
            }
        });
    }).detach();
}

void CoverSearch::finish(const std::string& track, const std::string& picture) {
    searching_ = false;
    if (const auto next = std::exchange(next_, std::nullopt)) {
        look(*next);
    } else if (!picture.empty() && found) {
        found(track, base::fileUrl(picture));
    }
}

} // namespace tovik::desktop
