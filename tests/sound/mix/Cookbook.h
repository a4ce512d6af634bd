// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer once more as its source writes it, one sample and one band at a time in double
// precision: what the fast form is compared with.
#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>
#include <vector>

namespace tovik::sound::testing {

/// Peaking equalizer of R. Bristow-Johnson's "Audio EQ Cookbook", direct form I.
class CookbookBand {
public:
    CookbookBand(double centreHz, double octaves, double gainDb, double rate) {
        const double w0 = 2.0 * std::numbers::pi * centreHz / rate;
        const double alpha =
            std::sin(w0) * std::sinh(std::numbers::ln2 / 2.0 * octaves * w0 / std::sin(w0));
        const double amplitude = std::pow(10.0, gainDb / 40.0);
        a0_ = 1.0 + alpha / amplitude;
        a1_ = -2.0 * std::cos(w0);
        a2_ = 1.0 - alpha / amplitude;
        b0_ = 1.0 + alpha * amplitude;
        b1_ = -2.0 * std::cos(w0);
        b2_ = 1.0 - alpha * amplitude;
    }

    double next(double x) {
        const double y = (b0_ * x + b1_ * x1_ + b2_ * x2_ - a1_ * y1_ - a2_ * y2_) / a0_;
        x2_ = x1_;
        x1_ = x;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

private:
    double a0_, a1_, a2_, b0_, b1_, b2_;
    double x1_ = 0.0, x2_ = 0.0, y1_ = 0.0, y2_ = 0.0;
};

/// Both sides of `samples` through all `bands` in order.
inline std::vector<double> cookbookEqualizer(std::span<const float> samples,
                                             const std::vector<CookbookBand>& bands) {
    std::vector<std::vector<CookbookBand>> sides{bands, bands};
    std::vector<double> result;
    result.reserve(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        auto value = static_cast<double>(samples[i]);
        for (CookbookBand& band : sides[i % 2]) {
            value = band.next(value);
        }
        result.push_back(value);
    }
    return result;
}

} // namespace tovik::sound::testing
