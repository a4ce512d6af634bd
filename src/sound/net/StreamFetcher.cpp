// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/StreamFetcher.h"

#include <algorithm>
#include <array>

namespace tovik::sound {
namespace {

/// A file whose server gives nothing more is asked this often before its track counts as over.
constexpr int kMostResumes = 8;
constexpr int kMostDoublings = 5;
/// Behind a piece comes another.
constexpr int kMostResumesOfPiece = 2;

struct Reason {
    HttpEnd end;
    StreamTrouble trouble;
};

constexpr std::array kReasons = {
    Reason{HttpEnd::complete, StreamTrouble::notAudio}, // complete, and nothing came
    Reason{HttpEnd::badAddress, StreamTrouble::badAddress},
    Reason{HttpEnd::nameNotFound, StreamTrouble::nameNotFound},
    Reason{HttpEnd::noConnection, StreamTrouble::refused},
    Reason{HttpEnd::noAnswer, StreamTrouble::noAnswer},
    Reason{HttpEnd::silence, StreamTrouble::noAnswer},
    Reason{HttpEnd::badCertificate, StreamTrouble::badCertificate},
    Reason{HttpEnd::badAnswer, StreamTrouble::badAnswer},
    Reason{HttpEnd::notAvailable, StreamTrouble::notAvailable},
};

} // namespace

StreamTrouble troubleOf(HttpEnd end, StreamTrouble ofAnswer) noexcept {
    if (ofAnswer != StreamTrouble::none) {
        return ofAnswer;
    }
    const auto* const row = std::ranges::find(kReasons, end, &Reason::end);
    return row != kReasons.end() ? row->trouble : StreamTrouble::broken;
}

HttpEnd StreamFetcher::fetch(HttpRequest request, HttpSink& sink) {
    if (!isHttpAddress(request.url)) {
        return HttpEnd::badAddress;
    }
    request.headerPatience = state_.times().head;
    request.bodyPatience = state_.times().silence;
    return fetch_(request, sink, state_.givenUp());
}

HttpEnd StreamFetcher::stream(const std::string& url, Receiver& receiver) {
    const HttpEnd end = fetch({.url = url, .titles = titles_}, receiver);
    receiver.finish();
    return end;
}

HttpEnd StreamFetcher::piece(const std::string& url, const PieceOrder& order, Receiver& receiver) {
    const std::uint64_t to =
        order.bytes ? order.first + std::max<std::uint64_t>(*order.bytes, 1) - 1 : 0;
    const HttpEnd end = fetch({.url = url, .from = order.first, .to = to}, receiver);
    receiver.finish();
    return rest(end, url, to, kMostResumesOfPiece, receiver);
}

HttpEnd StreamFetcher::text(const std::string& url, HttpSink& sink) {
    return fetch({.url = url}, sink);
}

HttpEnd StreamFetcher::goOn(HttpEnd end, Receiver& receiver) {
    return rest(end, receiver.url(), 0, kMostResumes, receiver);
}

HttpEnd StreamFetcher::rest(HttpEnd end, const std::string& url, std::uint64_t to, int tries,
                            Receiver& receiver) {
    int fruitless = 0;
    while (receiver.incomplete() && state_.wanted() && fruitless < tries) {
        const bool left = end == HttpEnd::refusedBySink;
        const auto pause = state_.times().resume * (1 << std::min(fruitless, kMostDoublings));
        if (left ? !state_.waitForRoom() : fruitless > 0 && !state_.waitFor(pause)) {
            break;
        }
        const std::uint64_t had = receiver.received();
        receiver.resume();
        end = fetch({.url = url, .from = receiver.next(), .to = to, .titles = titles_ && to == 0},
                    receiver);
        fruitless = receiver.received() > had ? 0 : fruitless + 1;
        if (receiver.trouble() != StreamTrouble::none) {
            break; // it is not the same file any more
        }
    }
    return end;
}

} // namespace tovik::sound
