// SPDX-License-Identifier: GPL-3.0-or-later
// The process beside the player in which plug-ins draw or are listed, as the player holds it.
// Nothing here waits for it. Interface thread only.
#pragma once

#include "sound/visual/HelperMessages.h"

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tovik::sound {

/// Its end comes with the object: it is told by the closed socket, and a moment later killed.
class HelperProcess {
public:
    /// Starts the program with these words behind the player's process id. Where that fails the
    /// object is one whose process has ended.
    HelperProcess(const std::string& program, const std::string& task,
                  const std::vector<std::string>& words);

    ~HelperProcess() { end(); }

    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;

    /// Readable when an answer came or the process has ended; -1 once `end` was called.
    [[nodiscard]] int descriptor() const noexcept { return socket_; }

    [[nodiscard]] pid_t id() const noexcept { return process_; }

    /// Sends an order, with a descriptor or none (-1). False when it cannot be taken now or the
    /// process has ended.
    bool send(const HelperOrder& order, int descriptor = -1);

    enum class Got {
        nothing, ///< there is no answer yet
        answer,
        end, ///< there will be none any more
    };

    /// The next answer. `length` is that of its text.
    [[nodiscard]] Got receive(HelperAnswer& answer, std::size_t& length) const;

    /// The process is let go; if it does not end within half a second it is killed.
    void end();

private:
    int socket_ = -1;
    pid_t process_ = -1;
};

} // namespace tovik::sound
