// SPDX-License-Identifier: GPL-3.0-or-later
// Asks a server for its sinks and waits for the answer, or for two seconds.
#include "sound/output/PulseOutput.h"
#include "sound/output/PulseRoutines.h"

#include <memory>

namespace tovik::sound {

namespace {

constexpr pa_usec_t kPatience = 2'000'000;

class SinkQuestion {
public:
    SinkQuestion() {
        if (loop_ != nullptr) {
            context_ = pa_context_new(pa_mainloop_get_api(loop_), "Tovik");
        }
    }

    ~SinkQuestion() {
        if (context_ != nullptr) {
            pa_context_set_state_callback(context_, nullptr, nullptr);
            pa_context_disconnect(context_);
            pa_context_unref(context_);
        }
        if (loop_ != nullptr) {
            pa_mainloop_free(loop_);
        }
    }

    SinkQuestion(const SinkQuestion&) = delete;
    SinkQuestion& operator=(const SinkQuestion&) = delete;

    std::vector<std::string> ask() {
        if (context_ == nullptr) {
            return {};
        }
        pa_context_set_state_callback(context_,
                                      PulseRoutines::context<&SinkQuestion::contextChanged>, this);
        if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0) {
            pa_context_rttime_new(context_, pa_rtclock_now() + kPatience,
                                  PulseRoutines::timer<&SinkQuestion::end>, this);
            while (!ended_ && pa_mainloop_iterate(loop_, 1, nullptr) >= 0) {
            }
        }
        return names_;
    }

private:
    void contextChanged() {
        const pa_context_state_t state = pa_context_get_state(context_);
        if (!PA_CONTEXT_IS_GOOD(state)) {
            end();
        } else if (state == PA_CONTEXT_READY) {
            pa_operation* const operation = pa_context_get_sink_info_list(
                context_, PulseRoutines::sink<&SinkQuestion::found>, this);
            if (operation != nullptr) {
                pa_operation_unref(operation);
            }
        }
    }

    void found(const pa_sink_info* info) {
        if (info != nullptr) {
            names_.emplace_back(info->description);
        } else {
            end();
        }
    }

    void end() { ended_ = true; }

    pa_mainloop* loop_ = pa_mainloop_new();
    pa_context* context_ = nullptr;
    std::vector<std::string> names_;
    bool ended_ = false;
};

} // namespace

std::vector<std::string> PulseOutput::listDevices() {
    return SinkQuestion().ask();
}

} // namespace tovik::sound
