// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a list of pieces, or of forms, of a stream. Whatever it says, pieces are in
// their order and lie within what a number can tell, and only addresses of http and https come of
// it.
#include "sound/net/PieceList.h"
#include "sound/net/StationLists.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

using namespace tovik::sound;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void demandSane(const Stretch& stretch) {
    const std::string address = wholeAddress("https://host/a/b?c", stretch.reference);
    demand(address.empty() || isHttpAddress(address));
    demand(stretch.bytes.value_or(0) <= std::numeric_limits<std::uint64_t>::max() - stretch.first);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(static_cast<const char*>(static_cast<const void*>(data)), size);
    const PieceList list = piecesOfList(text);
    std::uint64_t number = list.pieces.empty() ? 0 : list.pieces.front().number;
    demand(list.pieces.empty() || firstToPlay(list) >= number);
    for (const Piece& piece : list.pieces) {
        demand(piece.number == number++);
        demand(!piece.head || *piece.head < list.heads.size());
        demandSane(piece.sound);
        static_cast<void>(typeOfName(piece.sound.reference));
    }
    for (const Stretch& head : list.heads) {
        demandSane(head);
    }
    for (const std::string& address : formsOfList(text, "http://host/a/b?c")) {
        demand(isHttpAddress(address));
    }
    static_cast<void>(isListOfForms(text));
    return 0;
}
