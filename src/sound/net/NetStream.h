// SPDX-License-Identifier: GPL-3.0-or-later
// A stream from the Internet from its address to its samples. A thread of its own receives; it is
// never waited for, so that a stream goes at once when it is freed. Interface thread, except where
// told.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/net/Http.h"
#include "sound/net/StreamRoutines.h"
#include "sound/net/StreamState.h"

#include <memory>
#include <stop_token>
#include <string>

namespace tovik::sound {

/// How streams are had; tests have their own times.
struct NetOptions {
    NetTimes times{};
    BufferRule rule{};
    std::size_t mostBytes = StreamState::kMostBytes;
    HttpFetch fetch = &fetchHttp;
};

class NetStream {
public:
    struct Order {
        std::string url;
        bool titles = false;
        DownloadRoutine routine;
        std::uintptr_t user = 0;
    };

    /// Begins to connect.
    explicit NetStream(Order order, const NetOptions& options);

    /// Calls `close`.
    ~NetStream();
    NetStream(const NetStream&) = delete;
    NetStream& operator=(const NetStream&) = delete;

    /// Waits until there is enough to be heard and gives the decoder of it; whatever it waits for
    /// ends when a stop is requested. The reader's thread; once.
    [[nodiscard]] OpenResult open(const std::stop_token& calledOff);

    /// Hears of metadata from now on.
    void setMeta(MetaRoutine routine, std::uintptr_t user);

    /// See StreamState.
    [[nodiscard]] StreamReport report(std::int64_t heardFrame, bool heardAll) {
        return work_->state.report(heardFrame, heardAll);
    }

    [[nodiscard]] std::optional<std::string> tags(std::uint32_t kind) const {
        return work_->state.tags(kind);
    }

    /// Nobody wants it any more: all ends, no routine is called anew. Returns at once.
    void close();

private:
    /// What the threads share.
    struct Work {
        Work(Order&& order, const NetOptions& options)
            : url(std::move(order.url)), titles(order.titles), fetch(options.fetch),
              state(options.times, options.rule, options.mostBytes),
              routines(std::move(order.routine), order.user) {}

        const std::string url;
        const bool titles;
        const HttpFetch fetch;
        StreamState state;
        StreamRoutines routines;
    };

    class Thread;

    const std::shared_ptr<Work> work_;
};

} // namespace tovik::sound
