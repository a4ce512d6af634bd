// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Messenger.h"

#include "base/Text.h"

#include <cstddef>

namespace tovik::desktop {

namespace {

constexpr const char* kTitleAlone = "{0}";
constexpr std::size_t kTitleCharacters = 256;

} // namespace

void Messenger::SendMessengerStatus(const MessengerStatus& status) {
    told_ = messengerRecord(status);
    windows_.send(told_);
}

void Messenger::UpdateMessengerStatus() {
    SendMessengerStatus(statusOfTrack());
}

MessengerStatus Messenger::statusOfTrack() const {
    if (!core_.state.MessengerOn) {
        return {};
    }
    const std::string& artist = core_.screen.playing.fields.at(0);
    const std::string& title = core_.screen.playing.fields.at(1);
    if (artist != player::kUnknown && title != player::kUnknown) {
        return {.enabled = true,
                .value1 = std::string(base::trimmed(artist)),
                .value2 = std::string(base::trimmed(title))};
    }
    const std::string_view whole = base::trimmed(core_.state.CurrentTitle);
    return {.enabled = true,
            .format = kTitleAlone,
            .value1 = std::string(base::firstCharacters(whole, kTitleCharacters))};
}

void Messenger::reportFacts(const player::TrackReport& /*report*/) {
    const MessengerStatus status = statusOfTrack();
    if (messengerRecord(status) != told_) {
        SendMessengerStatus(status);
    }
}

void Messenger::reportNothing(const std::string& format, const std::string& word) {
    SendMessengerStatus({.category = word, .format = format});
}

} // namespace tovik::desktop
