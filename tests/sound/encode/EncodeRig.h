// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting for encoders, and programs of the shell in their place.
#pragma once

#include "sound/api/EncodeOperations.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace tovik::sound::test {

/// Waits until the encoder has come to an end, half a minute at most.
template <typename Report>
EncodeReport waitForEnd(Report report) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    EncodeReport last = report();
    while (last.stage != EncodeStage::finished && last.stage != EncodeStage::failed) {
        if (std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "it does not come to an end";
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        last = report();
    }
    return last;
}

/// A script of the shell as an encoder; `file` is its $1.
inline EncoderCommand script(const std::string& text, const std::string& file = {}) {
    return {
        .text = text, .program = "/bin/sh", .arguments = {"-c", text, "sh", file}, .output = file};
}

/// Samples that tell their places.
inline std::vector<std::int16_t> ramp(std::size_t count) {
    std::vector<std::int16_t> samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        samples[i] = static_cast<std::int16_t>(i * 7);
    }
    return samples;
}

} // namespace tovik::sound::test
