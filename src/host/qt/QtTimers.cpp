// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtTimers.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace tovik::host {

namespace {

/// From this interval on a tick may come up to a twentieth early or late, so that the system can
/// serve several timers in one wake-up.
constexpr int kCoarseFromMs = 500;

/// One wake-up at a time: the rules say when the next one is to come.
class QtTimer final : public Timer {
public:
    QtTimer(const Clock& clock, const Dispatcher& dispatcher, Tick tick)
        : Timer(clock, dispatcher, std::move(tick)), clock_(clock) {
        wake_.setSingleShot(true);
        QObject::connect(&wake_, &QTimer::timeout, &wake_, [this] { fire(); });
    }

private:
    void dueChanged() override {
        const auto due = dueMs();
        if (!due) {
            wake_.stop();
            return;
        }
        wake_.setTimerType(interval() < kCoarseFromMs ? Qt::PreciseTimer : Qt::CoarseTimer);
        wake_.start(static_cast<int>(std::max<std::int64_t>(*due - clock_.monotonicMs(), 0)));
    }

    const Clock& clock_;
    QTimer wake_;
};

} // namespace

std::unique_ptr<Timer> QtTimers::makeTimer(Timer::Tick tick) {
    return std::make_unique<QtTimer>(clock_, dispatcher_, std::move(tick));
}

} // namespace tovik::host
