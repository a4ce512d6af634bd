// SPDX-License-Identifier: GPL-3.0-or-later
// Lists of the pieces of one stream, and of the forms it is to be had in (HLS, RFC 8216). Pure; any
// thread.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::sound {

/// All of a file, or a part of it.
struct Stretch {
    std::string reference{};              ///< as the list has it, see `wholeAddress`
    std::uint64_t first = 0;              ///< byte of the file
    std::optional<std::uint64_t> bytes{}; ///< nothing: all behind that

    [[nodiscard]] bool operator==(const Stretch&) const = default;
};

struct Piece {
    Stretch sound{};
    std::uint64_t number = 0;          ///< goes on from one list of the stream to the next
    std::optional<std::size_t> head{}; ///< of `PieceList::heads`: what a decoder needs before it
    bool missing = false;              ///< the list says that it is not to be had

    [[nodiscard]] bool operator==(const Piece&) const = default;
};

struct PieceList {
    std::vector<Piece> pieces; ///< in the order of their numbers
    std::vector<Stretch> heads;
    std::chrono::seconds target{0}; ///< no piece is longer; 0: not told
    bool whole = false;             ///< no piece will be added
    bool locked = false;            ///< a piece is encrypted
};

/// Whether a list names forms of one stream, each a list itself, and no pieces.
[[nodiscard]] bool isListOfForms(std::string_view text);

/// The addresses of the forms of a stream as seen from `base`, what to try first in front: sound
/// without pictures, the best that a station sends first; then the least demanding. 64 at most.
[[nodiscard]] std::vector<std::string> formsOfList(std::string_view text, std::string_view base);

/// What lies behind 64 KiB is not looked at: such a list counts as whole.
[[nodiscard]] PieceList piecesOfList(std::string_view text);

/// The number of the piece to begin with: the first one of a whole list, else the third one from
/// the end, which is as near to what is sent now as a stream without gaps can be. 0 when there are
/// none.
[[nodiscard]] std::uint64_t firstToPlay(const PieceList& list) noexcept;

/// The type of a piece by the end of its name; empty when that tells nothing.
[[nodiscard]] std::string_view typeOfName(std::string_view reference) noexcept;

} // namespace tovik::sound
