// SPDX-License-Identifier: GPL-3.0-or-later
// Random numbers from a seed: the same seed gives the same numbers on every machine. One thread at
// a time.
#pragma once

#include "host/RandomNumbers.h"

#include <cstdint>
#include <random>

namespace tovik::host {

class SeededRandom final : public RandomNumbers {
public:
    explicit SeededRandom(std::uint64_t seed) : engine_(seed) {}

    [[nodiscard]] double next() override;

private:
    std::mt19937_64 engine_;
};

} // namespace tovik::host
