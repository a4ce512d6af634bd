// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the data folder ready before anything reads it. Called once, at the start.
#pragma once

#include "host/CommandLine.h"
#include "host/Environment.h"

#include <optional>
#include <string>

namespace tovik::app {

/// The data folder that the command line or the environment asks for, filled if it is new; what a
/// folder in use lacks of words, looks and saved list is laid anew. Several processes may call it
/// at once. A failure to fill it is told on the error stream; the player then says what it misses.
[[nodiscard]] std::string prepareDataFolder(const host::CommandLine& line,
                                            const host::Environment& environment);

/// A copy of a data folder that nobody else uses, gone when the object goes.
class PrivateCopy {
public:
    explicit PrivateCopy(const std::string& dataFolder);
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

} // namespace tovik::app
