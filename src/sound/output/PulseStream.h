// SPDX-License-Identifier: GPL-3.0-or-later
// A connection to a PulseAudio server (or PipeWire's likeness of it) with one stream, which mixes
// ahead. Lives and is used on the thread of its main loop alone.
#pragma once

#include "sound/output/AheadMix.h"
#include "sound/output/HeardClock.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

struct pa_context;
struct pa_mainloop_api;
struct pa_operation;
struct pa_sink_info;
struct pa_stream;
struct pa_time_event;

namespace tovik::sound {

/// Hears of the stream, on its thread.
class PulseListener {
public:
    virtual ~PulseListener() = default;

    /// There is a server; it may still refuse, or never answer.
    virtual void serverAccepted() = 0;

    /// It stands, paused and empty.
    virtual void streamReady() = 0;

    /// What `pause` asked for is done.
    virtual void streamPaused() = 0;

    /// There is no server or no such sink, or there is none any more. Told once; from then on the
    /// source is not used.
    virtual void streamFailed() = 0;
};

class PulseStream final : private FrameQueue {
public:
    /// `sink` is a sink's name or the description that users see, empty for the default. All that
    /// is referred to outlives the stream.
    PulseStream(pa_mainloop_api& loop, std::string sink, MixSource& source, HeardClock& heard,
                PulseListener& listener);
    ~PulseStream() override;

    PulseStream(const PulseStream&) = delete;
    PulseStream& operator=(const PulseStream&) = delete;

    /// Begins to connect; the listener hears how that ends.
    void connect();

    /// Begins to take from the source and to sound.
    void resume();

    /// Stops sounding; what was not heard yet is given back to the source. The listener is told
    /// when that is so.
    void pause();

    /// Something has changed in the source. Many calls in a row make one change now and then.
    void changed();

private:
    void contextChanged();
    void sinkFound(const pa_sink_info* info);
    void makeStream(const char* sink);
    void streamChanged();
    void requested(std::size_t bytes);
    void timingUpdated();
    void corked();
    void readIndexKnown();
    void watchFired();
    void fail();
    void change();
    void publish();
    void armWatch(std::chrono::microseconds delay);
    [[nodiscard]] std::int64_t heardFrame() const;
    [[nodiscard]] std::int64_t marginFrames() const;
    [[nodiscard]] bool expect(pa_operation* operation);

    std::span<float> room(std::size_t frames) noexcept override;
    void put(std::int64_t frame, std::span<const float> samples) noexcept override;

    pa_mainloop_api& loop_;
    const std::string sink_;
    HeardClock& heard_;
    PulseListener& listener_;
    AheadMix ahead_;
    pa_context* context_ = nullptr;
    pa_stream* stream_ = nullptr;
    pa_time_event* changeTimer_ = nullptr;
    pa_time_event* watch_ = nullptr; ///< for servers that stand still
    bool failed_ = false;
    bool found_ = false;         ///< the sink that was asked for
    bool pausing_ = false;       ///< asked for, not done yet
    bool warned_ = false;        ///< nothing was heard from the server for a while
    bool changePending_ = false; ///< `changeTimer_` runs
    std::chrono::steady_clock::time_point lastChange_;
    std::chrono::steady_clock::time_point lastSign_; ///< of life, from the server
    std::int64_t nextFrame_ = 0;                     ///< behind what was put last
};

} // namespace tovik::sound
