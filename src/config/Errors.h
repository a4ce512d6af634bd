// SPDX-License-Identifier: GPL-3.0-or-later
// What a procedure does with its own failures. Interface thread.
#pragma once

#include "base/RuntimeError.h"
#include "config/ErrHandler.h"
#include "config/Procedures.h"
#include "host/Dialogs.h"

namespace tovik::config {

/// The log and the box, in this order.
class Errors {
public:
    /// Both are kept by reference.
    Errors(const ErrHandler& log, host::Dialogs& dialogs);

    /// Logs the error and, if the procedure has a title for it, shows the description in a box.
    /// Raises a new error if the log cannot be written; then no box is shown.
    void report(const base::RuntimeError& error, const Procedure& procedure) const;

    /// For an error that no procedure took: logs and shows it. A log that cannot be written
    /// raises nothing here, and the box is shown all the same.
    void reportUnguarded(const base::RuntimeError& error) const noexcept;

    /// From now on errors are only logged: the program ends because of a signal or because the
    /// session does, and nobody would answer a box.
    void showNoMoreBoxes() { boxes_ = false; }

    [[nodiscard]] bool showsBoxes() const { return boxes_; }

private:
    void show(const base::RuntimeError& error, const Procedure& procedure) const;

    const ErrHandler& log_;
    host::Dialogs& dialogs_;
    bool boxes_ = true;
};

/// The exception in flight as a run-time error: lack of memory is number 7, any other exception
/// number 51 with its text. To be called in a handler only.
[[nodiscard]] base::RuntimeError currentError();

/// Runs the body of a procedure. On an error in it the procedure ends there, the error is reported
/// under the procedure's words, and the program goes on. Returns whether the body ran to its end.
/// Only a log that cannot be written raises, a new error.
template <typename Body>
bool guard(const Errors& errors, const Procedure& procedure, Body&& body) {
    try {
        body();
        return true;
    } catch (...) {
        errors.report(currentError(), procedure);
        return false;
    }
}

} // namespace tovik::config
