// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/FetchText.h"

#include "sound/net/Http.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace tovik::discs {

namespace {

using Clock = std::chrono::steady_clock;
using sound::HttpEnd;

class TextSink final : public sound::HttpSink {
public:
    explicit TextSink(const TextRequest& request)
        : mostBytes_(request.mostBytes), end_(Clock::now() + request.patience) {}

    bool header(std::string_view line) override {
        if (line.starts_with("HTTP/")) {
            const std::size_t blank = std::min(line.find(' '), line.size());
            found_ = line.substr(blank).starts_with(" 200");
        }
        return !late();
    }

    bool body(std::span<const std::byte> bytes) override {
        if (bytes.size() > mostBytes_ - text.size()) {
            tooLarge = true;
            return false;
        }
        for (const std::byte byte : bytes) {
            text.push_back(static_cast<char>(byte));
        }
        return !late();
    }

    void answeredBy(std::string_view /*url*/) override {}

    /// The time is up. A server that sends byte by byte is no silent one.
    [[nodiscard]] bool late() const { return Clock::now() > end_; }

    /// The last head was one of success.
    [[nodiscard]] bool found() const { return found_; }

    std::string text;
    bool tooLarge = false;

private:
    std::size_t mostBytes_;
    Clock::time_point end_;
    bool found_ = false;
};

struct Ending {
    HttpEnd http;
    FetchEnd text;
};

/// What is not listed could not be reached.
constexpr std::array kEndings = {
    Ending{HttpEnd::calledOff, FetchEnd::calledOff},
    Ending{HttpEnd::noAnswer, FetchEnd::noAnswer},
    Ending{HttpEnd::silence, FetchEnd::noAnswer},
    Ending{HttpEnd::refusedBySink, FetchEnd::noAnswer},
};

} // namespace

Fetched fetchText(const TextRequest& request, const std::stop_token& calledOff) {
    TextSink sink(request);
    const HttpEnd end = sound::fetchHttp(
        {.url = request.url, .headerPatience = request.patience, .bodyPatience = request.patience},
        sink, calledOff);
    if (sink.tooLarge) {
        return {.end = FetchEnd::tooLarge};
    }
    if (end == HttpEnd::complete) {
        return sink.found() ? Fetched{.end = FetchEnd::complete, .text = std::move(sink.text)}
                            : Fetched{.end = FetchEnd::refused};
    }
    const auto* const row = std::ranges::find(kEndings, end, &Ending::http);
    return {.end = row != kEndings.end() ? row->text : FetchEnd::unreachable};
}

} // namespace tovik::discs
