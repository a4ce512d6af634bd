// SPDX-License-Identifier: GPL-3.0-or-later
// What the process was given by the one who started it, read once. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::host {

struct Environment {
    std::string home;              ///< HOME, else what the password database tells
    std::string dataHome;          ///< XDG_DATA_HOME
    std::string configHome{};      ///< XDG_CONFIG_HOME
    std::string cacheHome{};       ///< XDG_CACHE_HOME
    std::string runtimeFolder{};   ///< XDG_RUNTIME_DIR, else the folder for temporary files
    std::string locale;            ///< the first set of LC_ALL, LC_MESSAGES, LANG
    std::string activationToken{}; ///< XDG_ACTIVATION_TOKEN
    std::string searchPath;        ///< PATH
    std::string workingFolder;     ///< absolute
    std::string executableFolder;  ///< where this program's file lies, absolute

    /// The environment of this process. To be called before threads are started.
    [[nodiscard]] static Environment current();
};

/// The folder that a variable such as XDG_CONFIG_HOME names, else `otherwise` below the home. A
/// relative one is to be ignored, says the standard behind the variables.
[[nodiscard]] std::string folderOf(const std::string& variable, const std::string& home,
                                   std::string_view otherwise);

} // namespace tovik::host
