// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SessionEnd.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QSessionManager>
#include <utility>

namespace tovik::app {

std::vector<std::string> restartCommand(const std::string& program, const std::string& dataFolder,
                                        const std::string& device, const std::string& session) {
    std::vector<std::string> words{program};
    if (!dataFolder.empty()) {
        words.insert(words.end(), {"--data", dataFolder});
    }
    if (!device.empty()) {
        words.insert(words.end(), {"--device", device});
    }
    words.insert(words.end(), {"-session", session});
    return words;
}

SessionEnd::SessionEnd(Needs needs) : p_(std::move(needs)) {
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, this,
                     [this](QSessionManager& /*manager*/) { save(); });
    QObject::connect(qApp, &QGuiApplication::saveStateRequest, this,
                     [this](QSessionManager& manager) {
                         QStringList words;
                         const QString name = manager.sessionId() + u'_' + manager.sessionKey();
                         for (const std::string& word : p_.again(name.toStdString())) {
                             words.append(QFile::decodeName(QByteArray::fromStdString(word)));
                         }
                         manager.setRestartCommand(words);
                     });
    qApp->installEventFilter(this);
}

void SessionEnd::save() const {
    p_.dispatcher.run(p_.save);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qApp || event->type() != QEvent::Quit) {
        return false;
    }
    p_.closing.request(host::ClosedBy::System);
    return true; // the windows are not asked one by one
}

} // namespace tovik::app
