// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HandOver.h"

#include "base/CommandText.h"
#include "base/Numbers.h"
#include "config/SettingText.h"
#include "host/PlayerArguments.h"
#include "player/LiveSetting.h"

#include <cstdlib>

namespace tovik::app {

namespace {

using Kind = host::InstanceMessageKind;

host::InstanceMessage messageOf(const StartOptions& options) {
    return options.commandLine.empty()
               ? host::InstanceMessage{Kind::toTheFront, options.activationToken}
               : host::handOver(host::withQuotes(base::handedOverPath(options.commandLine)));
}

} // namespace

/// A deliberate oddity: no switch is looked at, and of several files the first goes over.
void HandOver::meetOtherInstance() {
    if (player::readLive(core_.settings, "MI", config::settingToInt16) != 0 ||
        !process_.anotherInstance()) {
        return;
    }
    window_.hide();
    // An instance that ended instead of answering leaves its place to this one.
    if (process_.send(messageOf(options_)) || process_.anotherInstance()) {
        process_.end(EXIT_SUCCESS);
    }
}

void HandOver::begin() {
    // What is handed over starts the sound anew, which would take it from a rip.
    const auto held = [this] {
        return core_.state.RipRunning && !core_.state.comfort.playsWhileRipping;
    };
    process_.mailbox().begin([this, held] { return !autoload_.awaited() && !held(); },
                             [this](const host::InstanceMessage& message) { carryOut(message); });
}

void HandOver::carryOut(const host::InstanceMessage& message) {
    const bool wish = message.kind == Kind::toTheFront;
    // Whoever starts the player wants to see it.
    front_(wish ? message.text : std::string());
    if (!wish) {
        api_msg_change(message.text);
    }
}

void HandOver::api_msg_change(const std::string& api_msg) {
    config::guard(core_.errors, config::player("api_msg"), [&] {
        // A deliberate oddity: with another number in the settings the file is lost without a word.
        const double known = player::readLive(core_.settings, "SHWND", base::textToNumber);
        if (known == static_cast<double>(window_.handle())) {
            startFile_.playHandedOver(api_msg);
        }
    });
}

} // namespace tovik::app
