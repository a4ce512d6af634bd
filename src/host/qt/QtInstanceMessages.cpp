// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtInstanceMessages.h"

#include "host/system/InstanceSender.h"

#include <QSocketNotifier>

#include <utility>

namespace tovik::host {

QtInstanceMessages::QtInstanceMessages(std::string socketPath, const Dispatcher& dispatcher)
    : dispatcher_(dispatcher), path_(std::move(socketPath)), receiver_(path_) {}

QtInstanceMessages::~QtInstanceMessages() {
    close();
}

void QtInstanceMessages::receive(Keep keep) {
    keep_ = std::move(keep);
    if (notifier_ || !receiver_.open()) {
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(receiver_.descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { dispatcher_.run([this] { receiver_.service(keep_); }); });
}

bool QtInstanceMessages::send(const InstanceMessage& message, const OtherRuns& otherRuns) {
    return sendToInstance(path_, message, otherRuns);
}

void QtInstanceMessages::close() {
    notifier_.reset();
    receiver_.close();
}

} // namespace tovik::host
