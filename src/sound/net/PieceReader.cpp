// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/PieceReader.h"

#include "sound/net/StationHeaders.h"
#include "sound/net/StationLists.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {
namespace {

/// So many pieces, or looks at the list, may fail in a row.
constexpr int kMostFruitless = 8;
constexpr int kMostDoublings = 5;

/// The text of a list, as far as one is looked at.
class ListText final : public HttpSink {
public:
    [[nodiscard]] bool header(std::string_view line) override {
        return reader_.add(line) && reader_.headers().status < kFirstError;
    }

    [[nodiscard]] bool body(std::span<const std::byte> bytes) override {
        const std::string_view more(
            static_cast<const char*>(static_cast<const void*>(bytes.data())), bytes.size());
        text_.append(more.substr(0, kMostListBytes - text_.size()));
        return text_.size() < kMostListBytes;
    }

    void answeredBy(std::string_view /*url*/) override {}

    [[nodiscard]] const std::string& text() const noexcept { return text_; }

private:
    static constexpr int kFirstError = 400;

    HeaderReader reader_;
    std::string text_;
};

} // namespace

StreamTrouble PieceReader::play(std::string_view text, const std::string& url) {
    url_ = url;
    list_ = piecesOfList(text);
    asked_ = Clock::now();
    live_ = !list_.whole;
    next_ = firstToPlay(list_);
    if (list_.locked || (list_.pieces.empty() && list_.whole)) {
        return StreamTrouble::notAudio;
    }
    state_.comesFrom(url_);
    for (takePieces(); !atEnd() && waitForNews(); takePieces()) {
        if (live_) {
            readList();
        }
    }
    if (!begun_ && state_.wanted()) {
        return trouble_ != StreamTrouble::none ? trouble_ : StreamTrouble::notAudio;
    }
    state_.finish(StreamStage::ended, fruitless_ > 0 ? StreamTrouble::broken : StreamTrouble::none);
    return StreamTrouble::none;
}

/// Takes what the list has for now.
void PieceReader::takePieces() {
    for (const Piece& piece : list_.pieces) {
        if (piece.number < next_) {
            continue;
        }
        if (!state_.wanted() || fruitless_ >= kMostFruitless || !takePiece(piece)) {
            return;
        }
        next_ = piece.number + 1;
    }
}

/// False: it is to be asked for again.
bool PieceReader::takePiece(const Piece& piece) {
    if (piece.missing) {
        return true;
    }
    if (piece.head && head_ != list_.heads[*piece.head]) {
        if (!takeStretch(list_.heads[*piece.head])) {
            return !unreachable_;
        }
        head_ = list_.heads[*piece.head];
    }
    return takeStretch(piece.sound) || !unreachable_;
}

/// Whether any of it came.
bool PieceReader::takeStretch(const Stretch& stretch) {
    const PieceOrder order{.first = stretch.first,
                           .bytes = stretch.bytes,
                           .begins = !begun_,
                           .live = live_,
                           .type = typeOfName(stretch.reference)};
    Receiver receiver(state_, routines_, order);
    const HttpEnd end = fetcher_.piece(wholeAddress(url_, stretch.reference), order, receiver);
    const bool came = receiver.received() > 0;
    begun_ = begun_ || came;
    trouble_ = came ? StreamTrouble::none : troubleOf(end, receiver.trouble());
    // What a server or a list says will not change by asking again.
    unreachable_ = !came && receiver.trouble() == StreamTrouble::none && end != HttpEnd::complete &&
                   end != HttpEnd::badAddress;
    fruitless_ = came ? 0 : fruitless_ + 1;
    if (unreachable_) {
        asked_ = Clock::now();
    }
    return came;
}

bool PieceReader::atEnd() const {
    const bool taken = list_.pieces.empty() || next_ > list_.pieces.back().number;
    return !state_.wanted() || fruitless_ >= kMostFruitless || (list_.whole && taken);
}

/// False when nobody waits any more.
bool PieceReader::waitForNews() {
    const NetTimes& times = state_.times();
    std::chrono::milliseconds pause =
        std::min<std::chrono::milliseconds>(list_.target, times.reload);
    if (unreachable_) {
        pause = times.resume * (1 << std::min(fruitless_, kMostDoublings));
    } else if (!news_) {
        pause /= 2;
    }
    const auto until = asked_ + std::max(pause, times.resume);
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
    return left.count() <= 0 ? state_.wanted() : state_.waitFor(left);
}

void PieceReader::readList() {
    ListText list;
    const HttpEnd end = fetcher_.text(url_, list);
    asked_ = Clock::now();
    news_ = false;
    unreachable_ = list.text().empty() && end != HttpEnd::complete;
    const bool isList = isListOfPieces(list.text());
    fruitless_ += isList ? 0 : 1;
    if (isList) {
        follow(piecesOfList(list.text()));
    }
}

void PieceReader::follow(PieceList&& list) {
    if (list.locked) {
        fruitless_ = kMostFruitless;
        return;
    }
    list_ = std::move(list);
    if (list_.pieces.empty()) {
        return;
    }
    const std::uint64_t last = list_.pieces.back().number;
    // A server that was started again counts from the beginning; one of several that answers with
    // an old list is only a little behind.
    if (last + list_.pieces.size() < next_) {
        next_ = firstToPlay(list_);
    }
    news_ = last >= next_;
}

} // namespace tovik::sound
