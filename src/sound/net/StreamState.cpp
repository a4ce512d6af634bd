// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/StreamState.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {
namespace {

constexpr std::chrono::milliseconds kLook(20); ///< while it fills
constexpr std::size_t kUsualBytesPerSecond = 16'000;
constexpr int kBytesPerKbps = 125;
constexpr std::chrono::milliseconds kPlenty(1000);

/// How much more than before the first sound is waited for in a gap: its network is no good one.
constexpr int kCautious = 3;

/// What a decoder needs to be sure of the rate that it measures, in frames of what it gives.
constexpr std::int64_t kFramesPerSecond = 44'100;
constexpr std::int64_t kMeasureFrames = 5 * kFramesPerSecond;

/// Titles that came in and were not heard yet; a server may send one after every byte.
constexpr std::size_t kMostMarks = 16;

} // namespace

void StreamState::connect() {
    const base::MutexLock lock(mutex_);
    begun_ = false;
}

void StreamState::answered(int httpStatus) {
    const base::MutexLock lock(mutex_);
    report_.httpStatus = httpStatus;
}

void StreamState::begin(const StationHeaders& headers) {
    const base::MutexLock lock(mutex_);
    begun_ = true;
    report_.live = headers.live();
    report_.kbps = headers.kbps;
    headers_ = headers.tags + '\0';
    contentType_ = headers.contentType;
    lastIn_ = lastOut_ = Clock::now();
    changed_.notifyAll();
}

void StreamState::comesFrom(std::string_view url) {
    const base::MutexLock lock(mutex_);
    report_.finalAddress = url;
}

bool StreamState::put(std::span<const std::byte> bytes) {
    const base::MutexLock lock(mutex_);
    while (!bytes.empty() && !over()) {
        const std::size_t taken = queue_.push(bytes);
        if (taken > 0) {
            bytes = bytes.subspan(taken);
            report_.bytes += taken;
            lastIn_ = Clock::now();
            changed_.notifyAll();
        } else if (Clock::now() >= lastOut_ + times_.idle) {
            left_.assign(bytes.begin(), bytes.end()); // it may go on behind them
            report_.bytes += bytes.size();
            return false;
        } else {
            static_cast<void>(changed_.waitUntil(mutex_, lastOut_ + times_.idle));
        }
    }
    return !over();
}

void StreamState::rest() {
    const base::MutexLock lock(mutex_);
    const auto now = Clock::now();
    const auto ahead = std::max(dry_ - now, Clock::duration::zero());
    if (!opened_ || !enough_ || timeIn(buffered()) + ahead < kPlenty) {
        return;
    }
    while (!over() && changed_.waitUntil(mutex_, now + times_.rest)) {
    }
}

bool StreamState::metadataCame(std::string_view text) {
    const base::MutexLock lock(mutex_);
    if (metadata_ == text) {
        return false; // some servers send it with every block
    }
    metadata_ = text;
    mark({report_.bytes, -1, std::string(text)});
    return true;
}

bool StreamState::waitFor(std::chrono::milliseconds time) {
    const auto until = Clock::now() + time;
    const base::MutexLock lock(mutex_);
    while (!over() && changed_.waitUntil(mutex_, until)) {
    }
    return !over();
}

bool StreamState::waitForRoom() {
    const base::MutexLock lock(mutex_);
    while (!over() && queue_.room() < queue_.size()) {
        changed_.wait(mutex_);
    }
    lastOut_ = Clock::now();
    return !over();
}

void StreamState::end(StreamStage stage, StreamTrouble trouble) {
    if (!done_) {
        done_ = true;
        last_ = stage;
        report_.trouble = trouble;
        changed_.notifyAll();
    }
}

/// It never sounded: that is the reason, unless there is one already.
void StreamState::fail(StreamTrouble trouble) {
    done_ = true;
    last_ = StreamStage::failed;
    if (report_.trouble == StreamTrouble::none) {
        report_.trouble = trouble;
    }
    changed_.notifyAll();
}

void StreamState::finish(StreamStage stage, StreamTrouble trouble) {
    const base::MutexLock lock(mutex_);
    end(stage, trouble);
}

std::optional<std::string> StreamState::takeFoundMetadata() {
    const base::MutexLock lock(mutex_);
    if (found_.empty()) {
        return std::nullopt;
    }
    return std::exchange(found_, {});
}

std::size_t StreamState::bytesPerSecond() const {
    const int kbps = report_.kbps;
    if (measured_ > 0) {
        return measured_;
    }
    return kbps > 0 ? static_cast<std::size_t>(kbps) * kBytesPerKbps : kUsualBytesPerSecond;
}

Buffered StreamState::buffered() const {
    const auto quiet =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastIn_);
    return {.bytes = queue_.size(),
            .bytesPerSecond = bytesPerSecond(),
            .quiet = quiet,
            .complete = done_ || queue_.room() == 0};
}

bool StreamState::waitForRule(const BufferRule& rule, Clock::time_point deadline) {
    while (!closed_) {
        if (begun_ && isEnough(rule, buffered())) {
            return queue_.size() > 0;
        }
        const auto now = Clock::now();
        if (done_ || now >= deadline) {
            return false;
        }
        // Bytes are waited for, and while there are some also the pause behind them.
        static_cast<void>(changed_.waitUntil(
            mutex_, queue_.size() > 0 ? std::min(deadline, now + kLook) : deadline));
    }
    return false;
}

bool StreamState::waitForEnough() {
    {
        const base::MutexLock lock(mutex_);
        if (waitForRule(rule_, created_ + times_.firstSound)) {
            enough_ = true;
            lastOut_ = Clock::now();
            return true;
        }
        if (over()) {
            fail(StreamTrouble::notAudio); // an end without a byte, unless there is a better reason
            return false;
        }
        fail(StreamTrouble::noAnswer);
    }
    stop_.request_stop();
    return false;
}

std::string StreamState::contentType() const {
    const base::MutexLock lock(mutex_);
    return contentType_;
}

std::size_t StreamState::take(std::span<std::byte> into) {
    {
        const base::MutexLock lock(mutex_);
        const bool there = waitForBytes();
        if (closed_) {
            return 0;
        }
        if (there || over()) {
            const std::size_t count = queue_.pop(into);
            const std::size_t pushed = queue_.push(left_);
            left_.erase(left_.begin(), left_.begin() + static_cast<std::ptrdiff_t>(pushed));
            lastOut_ = Clock::now();
            changed_.notifyAll();
            return count;
        }
        end(StreamStage::stalled, StreamTrouble::none);
    }
    stop_.request_stop();
    return 0;
}

/// False when a gap lasts too long, or the stream is over.
bool StreamState::waitForBytes() {
    const auto dry = opened_ ? dry_ : created_ + times_.firstSound;
    while (queue_.size() == 0 && !over() && Clock::now() < dry) {
        static_cast<void>(changed_.waitUntil(mutex_, dry));
    }
    if (queue_.size() > 0 || over()) {
        return queue_.size() > 0;
    }
    // What was decoded ahead has been heard.
    enough_ = false;
    BufferRule rule = rule_;
    rule.least *= kCautious;
    enough_ = waitForRule(rule, Clock::now() + (report_.live ? times_.gap : times_.gapOfFile));
    return enough_;
}

void StreamState::noteAhead(std::chrono::milliseconds ahead) {
    const base::MutexLock lock(mutex_);
    dry_ = Clock::now() + ahead;
}

void StreamState::opened(std::int64_t bitRate) {
    constexpr std::int64_t kMostBits = 10'000'000;
    constexpr std::int64_t kBits = 1000;
    const base::MutexLock lock(mutex_);
    opened_ = true;
    if (report_.kbps == 0 && bitRate > 0 && bitRate < kMostBits) {
        report_.kbps = static_cast<int>((bitRate + kBits / 2) / kBits);
    }
}

void StreamState::notAudio() {
    {
        const base::MutexLock lock(mutex_);
        fail(StreamTrouble::notAudio);
    }
    stop_.request_stop();
}

void StreamState::decoded(std::int64_t byte, std::int64_t frame, int rate, int channels) {
    const base::MutexLock lock(mutex_);
    report_.rate = rate;
    report_.channels = channels;
    for (Mark& mark : marks_) {
        if (mark.frame < 0 &&
            mark.byte <= static_cast<std::uint64_t>(std::max<std::int64_t>(byte, 0))) {
            mark.frame = frame;
        }
    }
    if (frame >= kMeasureFrames && byte > 0) {
        measure(byte, frame);
        if (report_.kbps == 0) {
            report_.kbps = static_cast<int>(measured_ / kBytesPerKbps);
        }
    }
}

void StreamState::measure(std::int64_t bytes, std::int64_t frames) {
    measured_ = static_cast<std::size_t>(
        std::max<std::int64_t>(bytes * kFramesPerSecond / std::max<std::int64_t>(frames, 1), 1));
}

void StreamState::measured(std::int64_t bytes, std::int64_t frames) {
    const base::MutexLock lock(mutex_);
    measure(bytes, frames);
}

void StreamState::waitForRest(std::chrono::milliseconds decoded, std::int64_t takenBytes) {
    const base::MutexLock lock(mutex_);
    const auto had =
        decoded + timeIn({.bytes = static_cast<std::size_t>(std::max<std::int64_t>(takenBytes, 0)),
                          .bytesPerSecond = bytesPerSecond()});
    BufferRule rest = rule_;
    rest.full -= std::min(rest.full, had);
    rest.least -= std::min(rest.least, had);
    static_cast<void>(waitForRule(rest, created_ + times_.firstSound));
}

void StreamState::foundTitle(std::string_view title, std::int64_t frame) {
    const base::MutexLock lock(mutex_);
    metadata_ = "StreamTitle='" + std::string(title) + "';";
    found_ = metadata_;
    mark({report_.bytes, frame, metadata_});
}

/// The oldest are heard next: what would be shown for the shortest time is left out.
void StreamState::mark(Mark&& mark) {
    if (marks_.size() == kMostMarks) {
        marks_.pop_back();
    }
    marks_.push_back(std::move(mark));
}

void StreamState::decodedAll() {
    {
        const base::MutexLock lock(mutex_);
        decodedAll_ = true;
        done_ = true; // whatever would still come in, nobody can hear it
        changed_.notifyAll();
    }
    stop_.request_stop();
}

StreamReport StreamState::report(std::int64_t heardFrame, bool heardAll) {
    const base::MutexLock lock(mutex_);
    while (!marks_.empty() && marks_.front().frame >= 0 && marks_.front().frame <= heardFrame) {
        report_.heardMetadata = std::move(marks_.front().text);
        marks_.pop_front();
    }
    StreamReport report = report_;
    report.percent = 0;
    if (done_ && last_ == StreamStage::failed) {
        report.stage = StreamStage::failed;
    } else if (decodedAll_ && heardAll) {
        report.stage = last_;
    } else if (!begun_) {
        report.stage = StreamStage::connecting;
    } else if (!opened_ || (!enough_ && !done_)) {
        report.stage = StreamStage::buffering;
        report.percent = percentThere(rule_, buffered());
    } else {
        report.stage = StreamStage::playing;
    }
    if (!isFinal(report.stage)) {
        report.trouble = StreamTrouble::none;
    }
    return report;
}

std::optional<std::string> StreamState::tags(std::uint32_t kind) const {
    const base::MutexLock lock(mutex_);
    const std::string& text = kind == BASS_TAG_ICY ? headers_ : metadata_;
    const bool known = kind == BASS_TAG_ICY || kind == BASS_TAG_META;
    return known && !text.empty() ? std::optional(text) : std::nullopt;
}

void StreamState::close() {
    {
        const base::MutexLock lock(mutex_);
        closed_ = true;
        changed_.notifyAll();
    }
    stop_.request_stop();
}

bool StreamState::wanted() const {
    const base::MutexLock lock(mutex_);
    return !over();
}

bool StreamState::closed() const {
    const base::MutexLock lock(mutex_);
    return closed_;
}

} // namespace tovik::sound
