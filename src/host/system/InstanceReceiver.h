// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the messages of later instances from a local socket, without ever waiting. Interface
// thread.
#pragma once

#include "host/InstanceMessages.h"
#include "base/Descriptor.h"

#include <chrono>
#include <list>
#include <string>

namespace tovik::host {

/// What a sender gets back once its message is kept.
inline constexpr char kKeptAnswer = '\x01';

/// Whoever has an event loop watches `descriptor()` and calls `service()` when it can be read.
/// Only this user is listened to. A sender that has not come to its end after `kLongestRecord`, or
/// sends what is no record, is dropped; of more than `kMostSenders` at a time the oldest.
class InstanceReceiver {
public:
    static constexpr std::chrono::milliseconds kLongestRecord{2000};
    static constexpr std::size_t kMostSenders = 32;

    explicit InstanceReceiver(std::string path,
                              std::chrono::milliseconds longestRecord = kLongestRecord)
        : path_(std::move(path)), longestRecord_(longestRecord) {}

    /// Closes it.
    ~InstanceReceiver() { close(); }

    InstanceReceiver(const InstanceReceiver&) = delete;
    InstanceReceiver& operator=(const InstanceReceiver&) = delete;

    /// Takes the place of a socket that an earlier instance left. False where no socket can be
    /// made: no message arrives then.
    bool open();

    /// The socket is removed, senders are dropped.
    void close();

    /// Readable when there is something to do; -1 while not open.
    [[nodiscard]] int descriptor() const { return events_.get(); }

    /// Accepts, reads and answers what has come. `keep` must not call this object.
    void service(const InstanceMessages::Keep& keep);

private:
    using Clock = std::chrono::steady_clock;

    struct Sender {
        base::Descriptor socket;
        Clock::time_point end; ///< when it is dropped
        InstanceRecord record{};
    };

    [[nodiscard]] bool watch(int descriptor) const;
    void accept();
    /// False when it is done with.
    [[nodiscard]] static bool read(Sender& sender, const InstanceMessages::Keep& keep);
    void wakeForNextEnd() const;

    std::string path_;
    std::chrono::milliseconds longestRecord_;
    base::Descriptor events_; ///< the one of all that is waited for
    base::Descriptor alarm_;  ///< the end of the sender that came first
    base::Descriptor listener_;
    std::list<Sender> senders_; ///< in the order in which they came
};

} // namespace tovik::host
