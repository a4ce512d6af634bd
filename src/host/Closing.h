// SPDX-License-Identifier: GPL-3.0-or-later
// The way out of the program: from the wish to close to the end of the process. Interface thread.
#pragma once

#include <functional>

namespace tovik::host {

/// Who asked for the end of the program.
enum class ClosedBy { User, System };

/// Knows whether the user (or a signal) asked to close and whether the program is ending.
class Closing {
public:
    /// Saves what is to be saved and calls `endProcess`.
    using Leave = std::function<void()>;
    /// Ends the process with this status. The real one does not return; others note the call.
    using EndProcess = std::function<void(int status)>;
    /// Sees to it that `leaveIfAsked` is called soon from the event loop.
    using Wake = std::function<void()>;

    explicit Closing(EndProcess end);

    void setLeave(Leave leave);
    void setWake(Wake wake);

    /// Asks for the end; safe in any handler. The next pump step, or the event loop when it is
    /// idle, calls the leave operation. Further requests change nothing, except that nobody is
    /// there any more once one of them came from the system.
    void request(ClosedBy by = ClosedBy::User);

    /// True when a signal or the end of the session asked: a box would have no one to answer it.
    [[nodiscard]] bool unattended() const { return unattended_; }

    /// Calls the leave operation, once, if the end was asked for. Returns `ending()`.
    bool leaveIfAsked();

    /// The last act: files, socket and lock are done.
    void endProcess(int status);

    /// True from the start of the leave operation on; every loop then returns.
    [[nodiscard]] bool ending() const { return ending_; }

private:
    EndProcess end_;
    Leave leave_;
    Wake wake_;
    bool requested_ = false;
    bool unattended_ = false;
    bool ending_ = false;
};

} // namespace tovik::host
