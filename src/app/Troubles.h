// SPDX-License-Identifier: GPL-3.0-or-later
// What went wrong in steps of the start and the end that did not end the others. Interface thread.
#pragma once

#include "base/RuntimeError.h"
#include "config/Errors.h"
#include "config/MultiLNG.h"

#include <string>

namespace tovik::app {

/// Each trouble is logged at once; `tell` shows all of them in one box.
class Troubles {
public:
    /// Both are kept by reference.
    Troubles(const config::Errors& errors, const config::MultiLNG& language)
        : errors_(errors), language_(language) {}

    /// A step failed.
    void note(const base::RuntimeError& error, const config::Procedure& procedure);

    /// The settings were damaged, and are kept there.
    void noteAside(const std::string& path);

    /// The settings cannot be read; the description ends with their path.
    void noteUnread(const base::RuntimeError& why);

    /// A package is no skin's, or not a whole one.
    void noteForeign(const std::string& path);

    /// Tells what was noted, if anything was. From then on what is noted of settings is told at
    /// once.
    void tell();

private:
    const config::Errors& errors_;
    const config::MultiLNG& language_;
    std::string failures_; ///< a line each
    std::string aside_;    ///< the path of damaged settings
    std::string unread_;   ///< why settings cannot be read
    std::string foreign_;  ///< the path of a package
    bool started_ = false;
};

} // namespace tovik::app
