// SPDX-License-Identifier: GPL-3.0-or-later
// An encoder program as a child process that is fed through a pipe. Interface thread; the pipe is
// served by a thread of its own, which also waits for the child's end.
#pragma once

#include "sound/encode/Encoder.h"

#include <chrono>
#include <memory>

namespace tovik::sound {

class ProcessEncoder final : public Encoder {
public:
    /// Starts the program; null when it cannot be run. Without a shell, with nothing but its three
    /// standard streams: samples come in on the first, the second goes nowhere, what it says on the
    /// third is kept for the report. Fails when it ends with a status other than 0, or before it
    /// has read all; one that gets no more and does not end within `patience` is ended.
    [[nodiscard]] static std::unique_ptr<ProcessEncoder>
    start(const EncoderCommand& command, std::chrono::milliseconds patience = kPatience);

    static constexpr std::chrono::seconds kPatience{30};

private:
    using Encoder::Encoder;
};

} // namespace tovik::sound
