// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/FREEDB.h"

#include "discs/TocText.h"
#include "host/BesideJob.h"

#include <array>
#include <memory>
#include <utility>

namespace tovik::discs {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kNothing = 0;
constexpr int kFilled = 1;
constexpr int kFilledExactly = 2;
constexpr char kFirstLetter = 'A';

/// Ends what takes too long, also where the thread that fetches hangs.
class Deadline final : public host::MessagePump {
public:
    Deadline(host::MessagePump& pump, std::stop_source stop, std::chrono::milliseconds patience)
        : pump_(pump), stop_(std::move(stop)), end_(Clock::now() + patience) {}

    bool Step() override {
        if (Clock::now() > end_) {
            passed = true;
            stop_.request_stop();
        }
        return pump_.Step();
    }

    [[nodiscard]] bool stepping() const override { return pump_.stepping(); }

    bool passed = false;

private:
    host::MessagePump& pump_;
    std::stop_source stop_;
    Clock::time_point end_;
};

QueryEnd endOf(FetchEnd end) {
    switch (end) {
    case FetchEnd::calledOff:
        return QueryEnd::calledOff;
    case FetchEnd::noAnswer:
        return QueryEnd::noAnswer;
    case FetchEnd::unreachable:
        return QueryEnd::unreachable;
    case FetchEnd::complete:
    case FetchEnd::refused:
    case FetchEnd::tooLarge:
        break;
    }
    return QueryEnd::refused;
}

} // namespace

FREEDB::FREEDB(Needs needs) : needs_(std::move(needs)) {}

std::string FREEDB::CdDrives() const {
    std::string letters;
    for (std::uint32_t drive = 0; needs_.drives.BASS_CD_GetDriveDescription(drive); ++drive) {
        letters += drive > 0 ? "|" : "";
        const int letter = needs_.drives.BASS_CD_GetDriveLetter(drive);
        if (letter >= 0) {
            letters.push_back(static_cast<char>(kFirstLetter + letter));
        }
    }
    return letters;
}

std::string FREEDB::DiscToc(std::string_view letter) const {
    const int wanted = letter.empty() ? -1 : letter.front() - kFirstLetter;
    for (std::uint32_t drive = 0; needs_.drives.BASS_CD_GetDriveDescription(drive); ++drive) {
        if (needs_.drives.BASS_CD_GetDriveLetter(drive) == wanted) {
            const auto toc = needs_.drives.discToc(drive);
            return toc ? tocText(*toc) : std::string();
        }
    }
    return {};
}

std::string FREEDB::DiscId(std::string_view toc) {
    return discId(toc);
}

int FREEDB::Query(std::string_view toc) {
    if (running_) {
        return kNothing;
    }
    running_ = true;
    stop_ = {};
    entry_ = {};
    try {
        lastEnd_ = ask(std::string(toc));
    } catch (...) {
        running_ = false;
        throw;
    }
    running_ = false;
    if (lastEnd_ == QueryEnd::stored) {
        return kFilledExactly;
    }
    return lastEnd_ == QueryEnd::picked ? kFilled : kNothing;
}

void FREEDB::callOff() {
    stop_.request_stop();
}

std::string FREEDB::TrackTitle(int track) const {
    return track >= 1 && track <= TrackCount() ? entry_.tracks[static_cast<std::size_t>(track) - 1]
                                               : std::string();
}

CddbPeers FREEDB::peers() const {
    return {
        .host = ServerHost, .mail = ClientEmail, .client = ClientName, .version = ClientVersion};
}

QueryEnd FREEDB::ask(const std::string& toc) {
    if (!parseToc(toc)) {
        return QueryEnd::noDisc;
    }
    if (ServerHost.empty()) {
        return QueryEnd::noServer;
    }
    std::string answer;
    if (const auto failure = fetch(queryUrl(peers(), toc), answer)) {
        return *failure;
    }
    const QueryAnswer found = parseQuery(answer);
    if (found.code == code::kNoMatch) {
        return QueryEnd::notFound;
    }
    if (found.matches.empty()) {
        return QueryEnd::refused;
    }
    if (found.code == code::kExactMatch) {
        return read(found.matches.front(), QueryEnd::stored);
    }
    if (stop_.stop_requested()) {
        return QueryEnd::calledOff; // nobody is there to choose
    }
    const auto chosen = choose ? choose(found.matches) : std::nullopt;
    if (!chosen || *chosen >= found.matches.size()) {
        return stop_.stop_requested() ? QueryEnd::calledOff : QueryEnd::notPicked;
    }
    return read(found.matches[*chosen], QueryEnd::picked);
}

QueryEnd FREEDB::read(const Match& match, QueryEnd found) {
    std::string answer;
    if (const auto failure = fetch(readUrl(peers(), match.category, match.discId), answer)) {
        return *failure;
    }
    ReadAnswer entry = parseRead(answer);
    if (entry.code != code::kEntryFollows) {
        return QueryEnd::refused;
    }
    entry_ = std::move(entry.entry);
    return found;
}

std::optional<QueryEnd> FREEDB::fetch(const std::string& url, std::string& answer) {
    const auto fetched = std::make_shared<Fetched>();
    Deadline pump(needs_.pump, stop_, patience);
    const TextRequest request{.url = url, .patience = patience};
    const bool done =
        host::runBeside(pump, [fetched, request, fetch = needs_.fetch, stop = stop_.get_token()] {
            *fetched = fetch(request, stop);
        });
    if (!done) {
        stop_.request_stop();
        return QueryEnd::calledOff;
    }
    if (fetched->end == FetchEnd::complete) {
        answer = std::move(fetched->text);
        return std::nullopt;
    }
    return pump.passed ? QueryEnd::noAnswer : endOf(fetched->end);
}

} // namespace tovik::discs
