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

/// A deliberate oddity: no switch is looked at, and of several files the first goes over, unless
/// `Comfort::addsHandedOver` sends the whole command line.
host::InstanceMessage messageOf(const StartOptions& options, const base::Comfort& comfort) {
    const bool whole = comfort.addsHandedOver;
    if (options.commandLine.empty() ||
        (whole && base::commandWords(options.commandLine).files.empty())) {
        return {Kind::toTheFront, options.activationToken};
    }
    return whole ? host::InstanceMessage{Kind::commandLine, options.commandLine}
                 : host::handOver(host::withQuotes(base::handedOverPath(options.commandLine)));
}

} // namespace

void HandOver::meetOtherInstance() {
    if (player::readLive(core_.settings, "MI", config::settingToInt16) != 0 ||
        !process_.anotherInstance()) {
        return;
    }
    window_.hide();
    // An instance that ended instead of answering leaves its place to this one.
    if (process_.send(messageOf(options_, core_.state.comfort)) || process_.anotherInstance()) {
        process_.end(EXIT_SUCCESS);
    }
}

void HandOver::begin() {
    // What is handed over starts the sound anew, which would take it from a rip.
    process_.mailbox().begin(
        [this] { return !autoload_.awaited() && !core_.state.ripHoldsSound(); },
        [this](const host::InstanceMessage& message) { carryOut(message); });
}

void HandOver::carryOut(const host::InstanceMessage& message) {
    const bool wish = message.kind == Kind::toTheFront;
    // Whoever starts the player wants to see it.
    front_(wish ? message.text : std::string());
    if (!wish) {
        api_msg_change(message);
    }
}

void HandOver::api_msg_change(const host::InstanceMessage& message) {
    config::guard(core_.errors, config::player("api_msg"), [&] {
        // A deliberate oddity: with another number in the settings the file is lost without a word,
        // unless `Comfort::takesAnyHandOver` says otherwise.
        const double known = player::readLive(core_.settings, "SHWND", base::textToNumber);
        if (known != static_cast<double>(window_.handle()) &&
            !core_.state.comfort.takesAnyHandOver) {
            return;
        }
        const bool line = message.kind == Kind::commandLine;
        if (core_.state.comfort.addsHandedOver) {
            startFile_.add(line ? base::commandWords(message.text)
                                : base::CommandWords{.files = {message.text}});
        } else {
            startFile_.playHandedOver(line ? host::withQuotes(base::handedOverPath(message.text))
                                           : message.text);
        }
    });
}

} // namespace tovik::app
