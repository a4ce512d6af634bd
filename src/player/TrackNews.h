// SPDX-License-Identifier: GPL-3.0-or-later
// Passes what happens to tracks to any number of listeners. Interface thread.
#pragma once

#include "player/TrackEvents.h"

#include <string>
#include <vector>

namespace tovik::player {

class TrackNews final : public TrackEvents {
public:
    /// Listeners are not owned; they are told in the order in which they came. Not to be called
    /// while something is told.
    void add(TrackEvents& listener) { listeners_.push_back(&listener); }

    void remove(TrackEvents& listener) { std::erase(listeners_, &listener); }

    void showTitlePopup(const std::string& text) override {
        tell(&TrackEvents::showTitlePopup, text);
    }

    void reportTrack(const TrackReport& report) override {
        tell(&TrackEvents::reportTrack, report);
    }

    void reportFacts(const TrackReport& report) override {
        tell(&TrackEvents::reportFacts, report);
    }

    void reportUnknownTrack(const std::string& path) override {
        tell(&TrackEvents::reportUnknownTrack, path);
    }

    void reportEndOfList() override { tell(&TrackEvents::reportEndOfList); }

    void reportNothing(const std::string& format, const std::string& word) override {
        tell(&TrackEvents::reportNothing, format, word);
    }

    void reportUnplayable() override { tell(&TrackEvents::reportUnplayable); }

    void reportPause() override { tell(&TrackEvents::reportPause); }

    void reportSeek() override { tell(&TrackEvents::reportSeek); }

    void restartVisualisation() override { tell(&TrackEvents::restartVisualisation); }

    void stopVisualisation() override { tell(&TrackEvents::stopVisualisation); }

    void stirVisualisation() override { tell(&TrackEvents::stirVisualisation); }

private:
    template <typename... Parameters, typename... Arguments>
    void tell(void (TrackEvents::*what)(Parameters...), const Arguments&... arguments) {
        for (TrackEvents* const listener : listeners_) {
            (listener->*what)(arguments...);
        }
    }

    std::vector<TrackEvents*> listeners_;
};

} // namespace tovik::player
