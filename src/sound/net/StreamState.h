// SPDX-License-Identifier: GPL-3.0-or-later
// What the three sides of a stream share: the thread that receives it, the reader that decodes it,
// and the interface thread that asks how it stands. Any thread; only what says so waits, and no
// lock is held meanwhile.
#pragma once

#include "base/Mutex.h"
#include "sound/api/NetworkOperations.h"
#include "sound/net/BufferRule.h"
#include "sound/net/ByteQueue.h"
#include "sound/net/StationHeaders.h"

#include <chrono>
#include <deque>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace tovik::sound {

/// How long is waited for what.
struct NetTimes {
    std::chrono::milliseconds head{10'000};       ///< the head of an answer
    std::chrono::milliseconds silence{10'000};    ///< the next bytes
    std::chrono::milliseconds firstSound{30'000}; ///< enough to be heard, from the beginning
    std::chrono::milliseconds gap{10'000};        ///< enough to go on, in silence, of a station
    std::chrono::milliseconds gapOfFile{180'000}; ///< the same of a file, which is asked for again
    std::chrono::milliseconds idle{10'000};       ///< a full queue of which nobody takes
    std::chrono::milliseconds rest{250};          ///< between looks at the network, with plenty
    std::chrono::milliseconds resume{1000};       ///< before a file is asked for again; doubles
    std::chrono::milliseconds reload{30'000};     ///< between looks at a list of pieces, at most
};

class StreamState {
public:
    using Clock = std::chrono::steady_clock;

    /// Compressed bytes of a stream that lie ready at most; with samples and the library's own
    /// buffers a stream stays below 2 MB.
    static constexpr std::size_t kMostBytes = std::size_t{512} * 1024;

    StreamState(const NetTimes& times, const BufferRule& rule, std::size_t mostBytes)
        : times_(times), rule_(rule), queue_(mostBytes) {}

    [[nodiscard]] const NetTimes& times() const noexcept { return times_; }

    // Receiving ------------------------------------------------------------------------------

    /// An address is being asked.
    void connect();
    /// A head came, whatever it says.
    void answered(int httpStatus);
    /// Sound will follow this head.
    void begin(const StationHeaders& headers);
    void comesFrom(std::string_view url);

    /// Puts sound into the queue; waits for room. False when nobody wants more: the stream was
    /// closed, or nothing was taken for `idle`.
    [[nodiscard]] bool put(std::span<const std::byte> bytes);

    /// Whether bytes are still taken.
    [[nodiscard]] bool wanted() const;

    /// With plenty ready, waits a moment, so that the network wakes nobody for every packet.
    void rest();

    /// False when that came in before.
    [[nodiscard]] bool metadataCame(std::string_view text);

    /// Waits; false once the stream is closed.
    [[nodiscard]] bool waitFor(std::chrono::milliseconds time);

    /// Waits until a good part of the queue is free; false once the stream is closed.
    [[nodiscard]] bool waitForRoom();

    /// There is no more, for this reason; `stage` is how the stream stands once all was heard.
    void finish(StreamStage stage, StreamTrouble trouble);

    /// Metadata that the decoder found, to be told by the thread that receives.
    [[nodiscard]] std::optional<std::string> takeFoundMetadata();

    // Decoding -------------------------------------------------------------------------------

    /// Waits until there is enough for the first sound; false when there will be none.
    [[nodiscard]] bool waitForEnough();

    [[nodiscard]] std::string contentType() const;

    /// Waits for bytes; 0 when there are no more. A wait that is heard as a gap goes on until there
    /// is enough again.
    [[nodiscard]] std::size_t take(std::span<std::byte> into);

    /// How much sound lies decoded ahead now.
    void noteAhead(std::chrono::milliseconds ahead);

    /// The decoder is open, or never will be.
    void opened(std::int64_t bitRate);
    void notAudio();

    /// Frame `frame` (counted in what the decoder gave) was decoded from byte `byte`.
    void decoded(std::int64_t byte, std::int64_t frame, int rate, int channels);

    /// So many bytes were that many frames of what the decoder gives.
    void measured(std::int64_t bytes, std::int64_t frames);

    /// The same as `waitForEnough`, with the rate known by now, so much decoded already and so
    /// many bytes taken that were not.
    void waitForRest(std::chrono::milliseconds decoded, std::int64_t takenBytes);

    /// The stream itself told what plays from `frame` on.
    void foundTitle(std::string_view title, std::int64_t frame);

    /// The decoder has met the end.
    void decodedAll();

    // Asking ---------------------------------------------------------------------------------

    /// `heardFrame` is heard now; `heardAll`: and nothing else will be.
    [[nodiscard]] StreamReport report(std::int64_t heardFrame, bool heardAll);

    [[nodiscard]] std::optional<std::string> tags(std::uint32_t kind) const;

    /// Nobody wants the stream any more. Returns at once.
    void close();

    [[nodiscard]] bool closed() const;

    /// Requested when the stream is closed or given up.
    [[nodiscard]] std::stop_token givenUp() const { return stop_.get_token(); }

private:
    struct Mark {
        std::uint64_t byte;
        std::int64_t frame; ///< -1 until its byte was decoded
        std::string text;
    };

    [[nodiscard]] Buffered buffered() const TOVIK_REQUIRES(mutex_);
    [[nodiscard]] std::size_t bytesPerSecond() const TOVIK_REQUIRES(mutex_);
    [[nodiscard]] bool waitForRule(const BufferRule& rule, Clock::time_point deadline)
        TOVIK_REQUIRES(mutex_);
    [[nodiscard]] bool waitForBytes() TOVIK_REQUIRES(mutex_);
    void fail(StreamTrouble trouble) TOVIK_REQUIRES(mutex_);
    void end(StreamStage stage, StreamTrouble trouble) TOVIK_REQUIRES(mutex_);
    void mark(Mark&& mark) TOVIK_REQUIRES(mutex_);
    void measure(std::int64_t bytes, std::int64_t frames) TOVIK_REQUIRES(mutex_);

    [[nodiscard]] bool over() const TOVIK_REQUIRES(mutex_) { return closed_ || done_; }

    const NetTimes times_;
    const BufferRule rule_;
    const Clock::time_point created_ = Clock::now();
    std::stop_source stop_;

    mutable base::Mutex mutex_;
    base::Condition changed_;
    ByteQueue queue_ TOVIK_GUARDED_BY(mutex_);
    std::vector<std::byte> left_ TOVIK_GUARDED_BY(mutex_); ///< what the full queue did not take
    StreamReport report_ TOVIK_GUARDED_BY(mutex_);         ///< its stage is not used
    std::string headers_ TOVIK_GUARDED_BY(mutex_);
    std::string contentType_ TOVIK_GUARDED_BY(mutex_);
    std::string metadata_ TOVIK_GUARDED_BY(mutex_); ///< came in last
    std::string found_ TOVIK_GUARDED_BY(mutex_);    ///< by the decoder, not told yet
    std::deque<Mark> marks_ TOVIK_GUARDED_BY(mutex_);
    bool begun_ TOVIK_GUARDED_BY(mutex_) = false;  ///< behind the head
    bool enough_ TOVIK_GUARDED_BY(mutex_) = false; ///< no wait that is heard
    bool opened_ TOVIK_GUARDED_BY(mutex_) = false;
    bool done_ TOVIK_GUARDED_BY(mutex_) = false; ///< nothing more comes in
    bool decodedAll_ TOVIK_GUARDED_BY(mutex_) = false;
    bool closed_ TOVIK_GUARDED_BY(mutex_) = false;
    StreamStage last_ TOVIK_GUARDED_BY(mutex_) = StreamStage::ended; ///< once all was heard
    std::size_t measured_ TOVIK_GUARDED_BY(mutex_) = 0;              ///< bytes a second
    Clock::time_point lastIn_ TOVIK_GUARDED_BY(mutex_) = created_;
    Clock::time_point lastOut_ TOVIK_GUARDED_BY(mutex_) = created_;
    Clock::time_point dry_ TOVIK_GUARDED_BY(mutex_) = created_; ///< when all decoded was heard
};

} // namespace tovik::sound
