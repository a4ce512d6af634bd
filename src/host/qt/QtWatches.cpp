// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtWatches.h"

#include <QSocketNotifier>

#include <utility>

namespace tovik::host {

namespace {

/// The notifier is let go later: it may be the one that calls.
class NotifierWatch final : public Watch {
public:
    NotifierWatch(const Dispatcher& dispatcher, int descriptor, std::function<void()> readable)
        : notifier_(new QSocketNotifier(descriptor, QSocketNotifier::Read)) {
        QObject::connect(notifier_, &QSocketNotifier::activated, notifier_,
                         [&dispatcher, readable = std::move(readable)] {
                             // What is called may take the watch down, and this with it.
                             const std::function<void()> call = readable;
                             dispatcher.run(call);
                         });
    }

    ~NotifierWatch() override {
        notifier_->setEnabled(false);
        notifier_->disconnect();
        notifier_->deleteLater();
    }

    NotifierWatch(const NotifierWatch&) = delete;
    NotifierWatch& operator=(const NotifierWatch&) = delete;

private:
    QSocketNotifier* notifier_;
};

} // namespace

std::unique_ptr<Watch> QtWatches::watch(int descriptor, std::function<void()> readable) {
    if (descriptor < 0) {
        return std::make_unique<Watch>();
    }
    return std::make_unique<NotifierWatch>(dispatcher_, descriptor, std::move(readable));
}

} // namespace tovik::host
