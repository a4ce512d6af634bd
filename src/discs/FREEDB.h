// SPDX-License-Identifier: GPL-3.0-or-later
// Asks a server of the CDDB protocol what it knows of a disc. Interface thread.
#pragma once

#include "discs/CddbAnswer.h"
#include "discs/CddbRequest.h"
#include "discs/FetchText.h"
#include "host/MessagePump.h"
#include "sound/api/DiscOperations.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::discs {

/// How a query ended.
enum class QueryEnd : std::uint8_t {
    stored,      ///< one exact match
    picked,      ///< one of several, by the user
    notPicked,   ///< several, and none was picked
    notFound,    ///< the server knows no such disc
    calledOff,   ///< by the user, or by the end of the program
    noDisc,      ///< there is nothing to ask for
    noServer,    ///< none is set
    unreachable, ///< not to be reached, or the connection broke
    noAnswer,    ///< it took too long
    refused,     ///< the server does not answer this, or not in a way that is understood
};

class FREEDB {
public:
    struct Needs {
        sound::DiscOperations& drives;
        host::MessagePump& pump; ///< lets the window live while the network is waited for
        Fetch fetch = fetchText; ///< called on threads of their own
    };

    /// Which one of several; nothing for none. Called on the interface thread, may take its time.
    using Choose = std::function<std::optional<std::size_t>(const std::vector<Match>&)>;

    /// What is referred to outlives the object.
    explicit FREEDB(Needs needs);
    FREEDB(const FREEDB&) = delete;
    FREEDB& operator=(const FREEDB&) = delete;

    static constexpr std::chrono::milliseconds kPatience{10'000};

    /// Each of a query's requests is given up after that.
    std::chrono::milliseconds patience = kPatience;

    // What is set before a query ------------------------------------------------------------------

    std::string ClientName;
    std::string ClientVersion; ///< blanks may stand in it
    std::string ServerHost;    ///< see CddbPeers
    std::string ClientEmail;   ///< the same
    Choose choose;             ///< not set: none is picked

    // Set as they are told, and without an effect: nothing but the local file is kept of an answer,
    // and drives are read as the sound library does.
    std::string CacheDirectory;
    std::int32_t firstNumber = 0;
    std::int32_t secondNumber = 0;
    bool firstSwitch = false;
    bool secondSwitch = false;

    // Drives and discs ----------------------------------------------------------------------------

    /// The letters of the drives, joined by "|".
    [[nodiscard]] std::string CdDrives() const;

    /// The contents of the disc in a drive (see `tocText`); empty where there is none. Only the
    /// first character counts.
    [[nodiscard]] std::string DiscToc(std::string_view letter) const;

    /// The number of such a disc; empty for a text that is none.
    [[nodiscard]] static std::string DiscId(std::string_view toc);

    // A query -------------------------------------------------------------------------------------

    /// Asks the server. 0: there is nothing to take; 1: of several hits one was picked, and
    /// fetched; 2: the one exact hit was fetched. Other handlers run meanwhile; asked by one of
    /// them, it gives 0 at once.
    [[nodiscard]] int Query(std::string_view toc);

    /// Ends a query that runs: it gives 0 within moments.
    void callOff();

    [[nodiscard]] QueryEnd lastEnd() const noexcept { return lastEnd_; }

    // What was fetched last; empty after a query that gave 0 --------------------------------------

    [[nodiscard]] const std::string& AlbumArtist() const noexcept { return entry_.artist; }

    [[nodiscard]] const std::string& AlbumTitle() const noexcept { return entry_.title; }

    [[nodiscard]] const std::string& AlbumYear() const noexcept { return entry_.year; }

    [[nodiscard]] const std::string& AlbumGenre() const noexcept { return entry_.genre; }

    [[nodiscard]] int TrackCount() const noexcept { return static_cast<int>(entry_.tracks.size()); }

    /// Counted from 1; empty for a track that is not there.
    [[nodiscard]] std::string TrackTitle(int track) const;

private:
    [[nodiscard]] QueryEnd ask(const std::string& toc);
    [[nodiscard]] QueryEnd read(const Match& match, QueryEnd found);

    /// Fetches beside this thread. Why not, where it is not complete.
    [[nodiscard]] std::optional<QueryEnd> fetch(const std::string& url, std::string& answer);

    [[nodiscard]] CddbPeers peers() const;

    Needs needs_;
    DiscEntry entry_;
    QueryEnd lastEnd_ = QueryEnd::noDisc;
    std::stop_source stop_; ///< of the query that runs
    bool running_ = false;
};

} // namespace tovik::discs
