// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the data folder ready before anything reads it. Called at the start. Interface thread.
#pragma once

#include "base/RuntimeError.h"
#include "host/CommandLine.h"
#include "host/Environment.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

namespace tovik::app {

/// A copy of a data folder that nobody else uses, gone when the object goes.
class PrivateCopy {
public:
    /// Fills the empty folder that it is given.
    using Fill = std::function<std::error_code(const std::string& folder)>;

    /// A copy of the whole folder.
    explicit PrivateCopy(const std::string& dataFolder);

    /// A copy that `fill` makes; `dataFolder` is only told.
    PrivateCopy(const std::string& dataFolder, const Fill& fill);
    ~PrivateCopy();
    PrivateCopy(const PrivateCopy&) = delete;
    PrivateCopy& operator=(const PrivateCopy&) = delete;

    /// False when there is none or only a part of it; that was told on the error stream.
    [[nodiscard]] bool complete() const { return complete_; }

    /// Empty when it could not be made.
    [[nodiscard]] const std::string& folder() const { return folder_; }

private:
    std::string folder_;
    bool complete_ = false;
};

/// Where a session finds its data.
struct DataPlace {
    std::string folder;
    std::string shippedFolder;              ///< what came with the program; empty: nothing
    std::unique_ptr<PrivateCopy> standIn{}; ///< is `folder` where the real one cannot be written
    std::optional<base::RuntimeError> unkept{}; ///< why nothing is kept, naming the real folder
};

/// The data folder that the command line or the environment asks for, filled if it is new; what a
/// folder in use lacks of words, looks and saved list is laid anew. Where that cannot be written,
/// its stand-in. Several processes may call it at once. A failure is told on the error stream, too.
[[nodiscard]] DataPlace prepareDataFolder(const host::CommandLine& line,
                                          const host::Environment& environment);

} // namespace tovik::app
