// SPDX-License-Identifier: GPL-3.0-or-later
// How the connection and its stream come and go; what is queued stands in PulseStreamQueue.cpp.
#include "sound/output/PulseStream.h"

#include "sound/output/PulseNumbers.h"
#include "sound/output/PulseRoutines.h"

#include <pulse/pulseaudio.h>

#include <utility>

namespace tovik::sound {

namespace {

using pulse::bytesIn;

constexpr pa_sample_spec kSamples{PA_SAMPLE_FLOAT32NE, kMixRate, kMixChannels};

} // namespace

PulseStream::PulseStream(pa_mainloop_api& loop, std::string sink, MixSource& source,
                         HeardClock& heard, PulseListener& listener)
    : loop_(loop), sink_(std::move(sink)), heard_(heard), listener_(listener),
      ahead_(source, *this) {}

PulseStream::~PulseStream() {
    ahead_.end(stream_ != nullptr ? heardFrame() : 0);
    heard_.clear();
    for (pa_time_event* timer : {changeTimer_, watch_}) {
        if (timer != nullptr) {
            loop_.time_free(timer);
        }
    }
    if (stream_ != nullptr) {
        PulseRoutines::silence(stream_);
        pa_stream_disconnect(stream_);
        pa_stream_unref(stream_);
    }
    if (context_ != nullptr) {
        pa_context_set_state_callback(context_, nullptr, nullptr);
        pa_context_disconnect(context_);
        pa_context_unref(context_);
    }
}

void PulseStream::connect() {
    pa_proplist* const words = pa_proplist_new();
    pa_proplist_sets(words, PA_PROP_APPLICATION_NAME, "Tovik");
    pa_proplist_sets(words, PA_PROP_APPLICATION_ICON_NAME, "tovik");
    context_ = pa_context_new_with_proplist(&loop_, "Tovik", words);
    pa_proplist_free(words);
    if (context_ == nullptr) {
        fail();
        return;
    }
    pa_context_set_state_callback(context_, PulseRoutines::context<&PulseStream::contextChanged>,
                                  this);
    if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
        fail();
    }
}

void PulseStream::contextChanged() {
    const pa_context_state_t state = pa_context_get_state(context_);
    if (!PA_CONTEXT_IS_GOOD(state)) {
        fail();
    } else if (state == PA_CONTEXT_AUTHORIZING) {
        listener_.serverAccepted();
    } else if (state == PA_CONTEXT_READY && sink_.empty()) {
        makeStream(nullptr);
    } else if (state == PA_CONTEXT_READY &&
               !expect(pa_context_get_sink_info_list(
                   context_, PulseRoutines::sink<&PulseStream::sinkFound>, this))) {
        fail();
    }
}

void PulseStream::sinkFound(const pa_sink_info* info) {
    if (info == nullptr) { // the end of the list
        if (!found_) {
            fail();
        }
    } else if (!found_ && (sink_ == info->name || sink_ == info->description)) {
        found_ = true;
        makeStream(info->name);
    }
}

void PulseStream::makeStream(const char* sink) {
    pa_proplist* const words = pa_proplist_new();
    pa_proplist_sets(words, PA_PROP_MEDIA_NAME, "Tovik");
    pa_proplist_sets(words, PA_PROP_MEDIA_ROLE, "music");
    stream_ = pa_stream_new_with_proplist(context_, "Tovik", &kSamples, nullptr, words);
    pa_proplist_free(words);
    if (stream_ == nullptr) {
        fail();
        return;
    }
    pa_stream_set_state_callback(stream_, PulseRoutines::stream<&PulseStream::streamChanged>, this);
    pa_stream_set_write_callback(stream_, PulseRoutines::request<&PulseStream::requested>, this);
    pa_stream_set_latency_update_callback(stream_,
                                          PulseRoutines::stream<&PulseStream::timingUpdated>, this);
    constexpr auto kServerChooses = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr queue{.maxlength = kServerChooses,
                               .tlength = bytesIn(pulse::kQueue),
                               .prebuf = kServerChooses,
                               .minreq = bytesIn(pulse::kRequest),
                               .fragsize = kServerChooses};
    constexpr auto kFlags =
        static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY |
                                       PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_INTERPOLATE_TIMING);
    if (pa_stream_connect_playback(stream_, sink, &queue, kFlags, nullptr, nullptr) < 0) {
        fail();
    }
}

void PulseStream::streamChanged() {
    const pa_stream_state_t state = pa_stream_get_state(stream_);
    if (!PA_STREAM_IS_GOOD(state)) {
        fail();
    } else if (state == PA_STREAM_READY) {
        listener_.streamReady();
    }
}

void PulseStream::fail() {
    if (!std::exchange(failed_, true)) {
        ahead_.end(stream_ != nullptr ? heardFrame() : 0);
        heard_.clear();
        listener_.streamFailed();
    }
}

bool PulseStream::expect(pa_operation* operation) {
    if (operation == nullptr) {
        return false;
    }
    pa_operation_unref(operation); // it goes on by itself
    return true;
}

} // namespace tovik::sound
