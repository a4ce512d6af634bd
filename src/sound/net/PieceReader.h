// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a stream that comes in pieces: asks for them in their order, one after the other, and for
// the list that names them again and again while it grows. The thread of the stream.
#pragma once

#include "sound/net/PieceList.h"
#include "sound/net/StreamFetcher.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::sound {

class PieceReader {
public:
    PieceReader(StreamFetcher& fetcher, StreamState& state, StreamRoutines& routines)
        : fetcher_(fetcher), state_(state), routines_(routines) {}

    /// Plays the stream of a list that was had from `url`, until it ends or nobody wants it. None
    /// when sound came of it.
    [[nodiscard]] StreamTrouble play(std::string_view text, const std::string& url);

private:
    using Clock = std::chrono::steady_clock;

    void takePieces();
    [[nodiscard]] bool takePiece(const Piece& piece);
    [[nodiscard]] bool takeStretch(const Stretch& stretch);
    [[nodiscard]] bool waitForNews();
    void readList();
    void follow(PieceList&& list);
    [[nodiscard]] bool atEnd() const;

    StreamFetcher& fetcher_;
    StreamState& state_;
    StreamRoutines& routines_;
    std::string url_; ///< of the list
    PieceList list_;
    std::uint64_t next_ = 0;      ///< number of the piece to ask for
    std::optional<Stretch> head_; ///< that the decoder has
    bool live_ = true;
    bool news_ = true; ///< the list named new pieces when it was read last
    bool begun_ = false;
    bool unreachable_ = false; ///< nothing answered when a piece or the list was asked for last
    int fruitless_ = 0;        ///< tries in a row of which nothing came
    StreamTrouble trouble_ = StreamTrouble::none; ///< of the last such try
    Clock::time_point asked_; ///< when the list was read, or something did not answer
};

} // namespace tovik::sound
