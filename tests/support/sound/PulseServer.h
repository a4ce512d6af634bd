// SPDX-License-Identifier: GPL-3.0-or-later
// A PulseAudio server of a test's own, with a sink that nobody hears. It needs no sound card, and
// neither knows nor touches the user's sound server.
#pragma once

#include "support/host/TemporaryFolder.h"

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>

namespace tovik::test {

/// While it lives, this process and its children find it in PULSE_SERVER; so it is made before
/// other threads are. It ends with the thread that started it.
class PulseServer {
public:
    /// Are the programs pulseaudio and pactl installed?
    [[nodiscard]] static bool available();

    /// Starts the server and waits until it answers; throws if it never does.
    PulseServer();
    ~PulseServer();

    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    /// Starts it again after `kill`.
    void start();

    /// Ends it without a farewell to its clients.
    void kill();

    /// It stays connected but does nothing until `thaw`.
    void freeze() const;
    void thaw() const;

    /// Runs pactl with these words of the shell and returns what it says.
    [[nodiscard]] std::string control(const std::string& words) const;

    /// What PULSE_SERVER has to be.
    [[nodiscard]] std::string address() const { return "unix:" + socket_; }

    /// Name of the sink, which takes 32-bit float stereo at 44100 Hz as it comes; and the name that
    /// users see.
    static constexpr const char* kSink = "quiet";
    static constexpr const char* kSinkDescription = "Quiet_Sink";

private:
    void setEnvironment(const std::string& name, const std::string& value);
    void end(int signal);

    TemporaryFolder folder_;
    std::string socket_ = folder_ / "socket";
    pid_t process_ = -1;
    std::map<std::string, std::optional<std::string>> environmentBefore_;
};

} // namespace tovik::test
