// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipProgress.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>

namespace tovik::cd {

namespace {

constexpr double kWhole = 100;

/// What is told of the time left is a guess before this much was done, and is left out.
constexpr std::int64_t kFirstGuessMs = 1000;

} // namespace

std::string percentText(double percent, int decimals) {
    if (decimals == 0) {
        return std::to_string(base::toInt32(percent));
    }
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), percent,
                                       std::chars_format::fixed, decimals);
    std::string text(digits.data(), written.ptr);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

void RipProgress::begin(const std::vector<std::int64_t>& lengths) {
    lengths_ = lengths;
    // A track whose length nobody knows counts for nothing.
    std::ranges::replace_if(
        lengths_, [](std::int64_t length) { return length < 0; }, 0);
    all_ = std::accumulate(lengths_.begin(), lengths_.end(), std::int64_t{0});
    before_ = 0;
    beganMs_ = clock_.monotonicMs();
    status_ = {.running = true, .tracks = static_cast<std::int32_t>(lengths_.size())};
    tell();
}

void RipProgress::beginTrack() {
    if (status_.track > 0 && status_.track <= status_.tracks) {
        before_ += lengths_[static_cast<std::size_t>(status_.track) - 1];
    }
    ++status_.track;
    tell();
}

bool RipProgress::due() {
    const std::int64_t now = clock_.monotonicMs();
    if (now - drawnMs_ < kBetweenDrawings) {
        return false;
    }
    drawnMs_ = now;
    return true;
}

void RipProgress::round(std::int32_t row, std::int64_t position, std::int64_t length,
                        const std::string& words, int decimals) {
    if (length <= 0 || row < 0) {
        return;
    }
    const double percent = static_cast<double>(position) / static_cast<double>(length) * kWhole;
    row_ = row + 1;
    text_ = "Track " + std::to_string(row_) + " " +
            base::replaceAll(words, "[x]", percentText(percent, decimals));
    if (!due()) {
        lstTracks_.setTitle(row_, text_);
        return;
    }
    lstTracks_.RefreshTitle(row_, text_);
    const std::int64_t done = std::min(before_ + position, all_);
    status_.share = all_ > 0 ? static_cast<double>(done) / static_cast<double>(all_) : 0;
    const std::int64_t spent = clock_.monotonicMs() - beganMs_;
    status_.secondsLeft.reset();
    if (done > 0 && spent >= kFirstGuessMs) {
        const double left = static_cast<double>(spent) * (1 / status_.share - 1) / 1000;
        status_.secondsLeft = static_cast<std::int32_t>(std::min(std::ceil(left), 1e6));
    }
    tell();
}

void RipProgress::endTrack() {
    if (row_ > 0) {
        lstTracks_.RefreshTitle(row_, text_);
        row_ = 0;
    }
}

void RipProgress::end() {
    status_ = {};
    tell();
}

void RipProgress::tell() {
    if (show) {
        show(status_);
    }
}

} // namespace tovik::cd
