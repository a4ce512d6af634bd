// SPDX-License-Identifier: GPL-3.0-or-later
// What begins to play as a notification of the desktop. Interface thread.
#pragma once

#include "tray/SessionBus.h"

#include <optional>
#include <QString>

namespace tovik::tray {

class TitleNotice final : public QObject {
public:
    /// The bus outlives the object.
    explicit TitleNotice(SessionBus& bus) : bus_(bus) {}

    /// In the place of the one before, as long as that one is shown. Waits for nothing; of those
    /// that come before the desktop has answered the last one is shown.
    void show(const QString& words);

private:
    void next();
    void send(const QDBusConnection& bus);

    SessionBus& bus_;
    std::optional<QString> words_; ///< not sent yet
    bool busy_ = false;            ///< the bus or an answer is waited for
    quint32 last_ = 0;             ///< the number of the last one; 0 for none
};

} // namespace tovik::tray
