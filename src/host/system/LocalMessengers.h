// SPDX-License-Identifier: GPL-3.0-or-later
// Messengers as local sockets: each socket in one folder of the runtime folder is one that listens.
// It is sent a record as two numbers of 32 bits, low byte first (what the text is, how many bytes
// it has), then the text; then the connection ends. Interface thread.
#pragma once

#include "base/Mutex.h"
#include "host/MessengerWindows.h"

#include <chrono>
#include <deque>
#include <string>
#include <thread>

namespace tovik::host {

/// What one of them is sent.
[[nodiscard]] std::string messengerFrame(const MessengerRecord& record);

/// The sending is done on a thread of its own that is there once something was sent and somebody
/// may listen.
class LocalMessengers final : public MessengerWindows {
public:
    /// Who has not taken a record after `longest` does not get it.
    static constexpr std::chrono::milliseconds kLongest{100};
    static constexpr std::chrono::milliseconds kLongestFinish{200};

    explicit LocalMessengers(const std::string& runtimeFolder,
                             std::chrono::milliseconds longest = kLongest)
        : folder_(runtimeFolder + "/MsnMsgrUIManager"), longest_(longest) {}

    /// What was not sent yet is dropped.
    ~LocalMessengers() override;
    LocalMessengers(const LocalMessengers&) = delete;
    LocalMessengers& operator=(const LocalMessengers&) = delete;

    void send(const MessengerRecord& record) override;
    void finish() override;

private:
    void work();
    void sendToAll(const std::string& frame);
    [[nodiscard]] bool ending();

    const std::string folder_;
    const std::chrono::milliseconds longest_;
    base::Mutex mutex_;
    base::Condition changed_;
    std::deque<std::string> waiting_ TOVIK_GUARDED_BY(mutex_); ///< frames
    bool busy_ TOVIK_GUARDED_BY(mutex_) = false;
    bool end_ TOVIK_GUARDED_BY(mutex_) = false;
    std::thread thread_;
};

} // namespace tovik::host
