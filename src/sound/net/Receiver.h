// SPDX-License-Identifier: GPL-3.0-or-later
// What one address answers: finds out whether it is a station, a file, a list or a page, takes the
// metadata out of it and hands the rest on. The thread of the stream.
#pragma once

#include "sound/net/Http.h"
#include "sound/net/IcyFilter.h"
#include "sound/net/StationHeaders.h"
#include "sound/net/StationLists.h"
#include "sound/net/StreamRoutines.h"
#include "sound/net/StreamState.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tovik::sound {

/// How a piece of a stream is received: as a part of a file, without metadata, never a list.
struct PieceOrder {
    std::uint64_t first = 0;              ///< of its bytes, in what the address gives
    std::optional<std::uint64_t> bytes{}; ///< nothing: all behind that
    bool begins = false;                  ///< no piece of the stream came before
    bool live = true;                     ///< more will be made
    std::string_view type; ///< for a server that tells none of use; outlives the answer
};

class Receiver final : public HttpSink, private IcySink {
public:
    Receiver(StreamState& state, StreamRoutines& routines) : state_(state), routines_(routines) {}

    Receiver(StreamState& state, StreamRoutines& routines, const PieceOrder& piece)
        : state_(state), routines_(routines), piece_(piece) {}

    [[nodiscard]] bool header(std::string_view line) override;
    [[nodiscard]] bool body(std::span<const std::byte> bytes) override;

    void answeredBy(std::string_view url) override { url_ = url; }

    /// The fetch is over: decides by what there is.
    void finish();

    /// Nothing while that could not be told.
    [[nodiscard]] std::optional<AnswerKind> kind() const noexcept { return kind_; }

    /// Why the answer is no use, if that is known from the answer itself.
    [[nodiscard]] StreamTrouble trouble() const noexcept { return trouble_; }

    [[nodiscard]] const StationHeaders& headers() const noexcept { return headers_; }

    /// Where it came from, behind redirects.
    [[nodiscard]] const std::string& url() const noexcept { return url_; }

    /// The text of a list, as far as it is looked at.
    [[nodiscard]] const std::string& text() const noexcept { return head_; }

    /// Bytes of a file, or of a piece, that came in.
    [[nodiscard]] std::uint64_t received() const noexcept { return received_; }

    /// The next byte to ask for, counted from the beginning of what the address gives.
    [[nodiscard]] std::uint64_t next() const noexcept {
        return received_ + (piece_ ? piece_->first : 0);
    }

    /// A file, or a piece, of which bytes are missing.
    [[nodiscard]] bool incomplete() const noexcept;

    /// The next answer goes on with the file behind what was received.
    void resume();

private:
    [[nodiscard]] bool headEnds();
    [[nodiscard]] bool pieceHeadEnds();
    [[nodiscard]] bool resumedHeadEnds();
    [[nodiscard]] bool isPlaced();
    void beginSound();
    [[nodiscard]] std::uint64_t expected() const noexcept;
    [[nodiscard]] bool decide(bool all);
    [[nodiscard]] bool pass(std::span<const std::byte> bytes);
    [[nodiscard]] bool refuse(StreamTrouble trouble);
    void sound(std::span<const std::byte> bytes) override;
    void metadata(std::string_view text) override;

    StreamState& state_;
    StreamRoutines& routines_;
    const std::optional<PieceOrder> piece_;
    HeaderReader reader_;
    StationHeaders headers_; ///< of the first answer that sounded
    std::string url_;
    std::string head_; ///< the body, until its kind is known; of a list all
    std::optional<AnswerKind> kind_;
    StreamTrouble trouble_ = StreamTrouble::none;
    IcyFilter filter_{0};
    std::uint64_t received_ = 0;
    std::uint64_t skip_ = 0; ///< bytes that come before those that are wanted
    bool resumed_ = false;
    bool wanted_ = true;
};

} // namespace tovik::sound
