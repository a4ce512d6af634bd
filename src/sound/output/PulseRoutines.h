// SPDX-License-Identifier: GPL-3.0-or-later
// Makes members of a class routines that libpulse calls with the object as their user value. Used
// on the thread of the main loop.
#pragma once

#include <pulse/pulseaudio.h>

namespace tovik::sound {

struct PulseRoutines {
    template <auto Member>
    static void context(pa_context* /*context*/, void* user) {
        call<Member>(user);
    }

    template <auto Member>
    static void stream(pa_stream* /*stream*/, void* user) {
        call<Member>(user);
    }

    template <auto Member>
    static void request(pa_stream* /*stream*/, std::size_t bytes, void* user) {
        call<Member>(user, bytes);
    }

    template <auto Member>
    static void success(pa_stream* /*stream*/, int /*success*/, void* user) {
        call<Member>(user);
    }

    template <auto Member>
    static void timer(pa_mainloop_api* /*loop*/, pa_time_event* /*event*/,
                      const struct timeval* /*time*/, void* user) {
        call<Member>(user);
    }

    /// With null behind the last one.
    template <auto Member>
    static void sink(pa_context* /*context*/, const pa_sink_info* info, int end, void* user) {
        call<Member>(user, end == 0 ? info : nullptr);
    }

    /// From now on the stream calls nothing.
    static void silence(pa_stream* stream) {
        pa_stream_set_state_callback(stream, nullptr, nullptr);
        pa_stream_set_write_callback(stream, nullptr, nullptr);
        pa_stream_set_latency_update_callback(stream, nullptr, nullptr);
    }

private:
    template <typename>
    struct Owner;

    template <typename Class, typename... Arguments>
    struct Owner<void (Class::*)(Arguments...)> {
        using Type = Class;
    };

    template <auto Member, typename... Arguments>
    static void call(void* user, Arguments... arguments) {
        (static_cast<typename Owner<decltype(Member)>::Type*>(user)->*Member)(arguments...);
    }
};

} // namespace tovik::sound
