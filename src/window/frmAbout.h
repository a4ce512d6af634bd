// SPDX-License-Identifier: GPL-3.0-or-later
// What this program is: its version and what it is made of, and the way to a newer one. Interface
// thread.
#pragma once

#include "config/Errors.h"
#include "config/Version.h"
#include "host/Programs.h"

#include <string>
#include <vector>

namespace tovik::window {

class frmAbout {
public:
    /// All of it outlives the object.
    struct Needs {
        config::Version& version;
        const config::Errors& errors;
        host::Programs& programs;
    };

    /// `libraries`: each by its name and version.
    frmAbout(const Needs& needs, std::vector<std::string> libraries)
        : p_(needs), libraries_(std::move(libraries)) {}

    /// Reads what the settings tell; an error is logged, and what it keeps back stays empty.
    void Form_Load();

    /// "0.1.1 (21.11.2026)": version, build and, in brackets, the date of the build.
    [[nodiscard]] const std::string& version() const { return version_; }

    [[nodiscard]] const std::vector<std::string>& libraries() const { return libraries_; }

    /// Whether the update program is there.
    [[nodiscard]] bool canUpdate() const;

    /// Starts the update program, which then also tells that nothing is new. An error is logged.
    void Command1_Click();

private:
    Needs p_;
    std::vector<std::string> libraries_;
    std::string version_;
};

} // namespace tovik::window
