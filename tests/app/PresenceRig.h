// SPDX-License-Identifier: GPL-3.0-or-later
// The whole player on a desktop that notes what it is told: a tray that takes the icon or does not,
// a title popup.
#pragma once

#include "app/AppRig.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tovik::test {

class NotedArea final : public window::NotifyArea {
public:
    std::vector<std::pair<window::NotifyCommand, window::NotifyIconData>> calls;
    window::NotifyEvents events;
    bool there = false; ///< somebody takes icons
    bool slow = false;  ///< and answers only when it is told to
    std::string token;
    std::optional<window::ScreenPlace> place;

    bool notify(window::NotifyCommand command, const window::NotifyIconData& data) override {
        calls.emplace_back(command, data);
        if (command == window::NotifyCommand::modify) {
            return added_;
        }
        added_ = command == window::NotifyCommand::add;
        asking_ = added_ && slow;
        if (added_) {
            report();
        }
        return true;
    }

    [[nodiscard]] bool taken() const override { return there && added_ && !asking_; }

    [[nodiscard]] bool asking() const override { return asking_; }

    /// The answer is there.
    void answer() {
        asking_ = false;
        report();
    }

    void setEvents(window::NotifyEvents given) override { events = std::move(given); }

    [[nodiscard]] std::string takeToken() override { return std::exchange(token, {}); }

    [[nodiscard]] std::optional<window::ScreenPlace> takePlace() override {
        return std::exchange(place, std::nullopt);
    }

    /// The tray comes or goes.
    void become(bool present) {
        there = present;
        report();
    }

    [[nodiscard]] bool added() const { return added_; }

    [[nodiscard]] std::string tip() const { return calls.back().second.szTip.data(); }

private:
    void report() {
        if (!asking_ && std::exchange(told_, taken()) != taken() && events.takenChanged) {
            events.takenChanged();
        }
    }

    bool added_ = false;
    bool asking_ = false;
    bool told_ = false;
};

class NotedPopup final : public window::TitlePopup {
public:
    std::vector<std::string> texts;
    window::TitleBar last;
    int hidden = 0;
    std::function<void(int)> key;
    std::string failing; ///< the call that raises

    void show(const window::TitleBar& bar) override {
        failIf("show");
        texts.push_back(bar.text);
        last = bar;
    }

    void hide() override {
        failIf("hide");
        ++hidden;
    }

    void setKey(std::function<void(int)> given) override {
        failIf("setKey");
        key = std::move(given);
    }

private:
    void failIf(const char* call) const {
        if (failing == call) {
            throw base::RuntimeError(base::ErrorNumber::DeviceIoError);
        }
    }
};

class PresenceRig : public AppRig {
protected:
    PresenceRig() { shell_ = &parts_; }

    ~PresenceRig() override { endPlayer(); }

    PresenceRig(const PresenceRig&) = delete;
    PresenceRig& operator=(const PresenceRig&) = delete;

    void run(commands::CommandId command) { EXPECT_TRUE(player().commands().run(command)); }

    /// A song of that many seconds plays.
    void play(double seconds = 600) {
        options_.commandLine = '"' + track("song.mp3", {.seconds = seconds}) + '"';
        start();
        ASSERT_TRUE(player().state().IsPlaying);
    }

    /// The sound comes to a second of the track.
    void goTo(std::int64_t second) {
        constexpr std::int64_t kBytesASecond = std::int64_t{44100} * 4;
        sound_.channel(player().state().active()).position = second * kBytesASecond;
    }

    /// The calls of both windows since it was last asked.
    [[nodiscard]] std::vector<std::string> windowCalls() {
        std::vector<std::string> found;
        for (std::size_t i = seenCalls_; i < sound_.calls.size(); ++i) {
            const std::string& call = sound_.calls[i];
            if (call.starts_with("window ") || call.starts_with("mini ") ||
                call.starts_with("to the front") || call == "on top" || call == "not on top") {
                found.push_back(call);
            }
        }
        seenCalls_ = sound_.calls.size();
        return found;
    }

    [[nodiscard]] const ui::Element& mini(window::MiniElement name, std::size_t index = 0) {
        return player().presence().mini.elements.get(name, index);
    }

    /// The pointer at a place of the mini window, with the element that it is about.
    static ui::PointerEvent at(window::MiniElement element, std::size_t index, double x, double y,
                               ui::MouseButton button = ui::MouseButton::Left) {
        ui::PointerEvent event;
        event.element = ui::addressOf(element, index);
        event.windowX = x;
        event.windowY = y;
        event.button = button;
        event.leftHeld = button == ui::MouseButton::Left;
        return event;
    }

    /// The middle of an element.
    [[nodiscard]] ui::PointerEvent on(window::MiniElement element, std::size_t index = 0,
                                      ui::MouseButton button = ui::MouseButton::Left) {
        const ui::Box box = mini(element, index).box();
        return at(element, index, box.left + box.width / 2, box.top + box.height / 2, button);
    }

    void click(window::MiniElement element, std::size_t index = 0) {
        window::MiniInput& input = player().presence().mini.input;
        input.mouseDown(on(element, index));
        input.mouseUp(on(element, index));
    }

    /// A press, a move to and a release at a place along the position bar.
    void dragTo(double x) {
        window::MiniInput& input = player().presence().mini.input;
        const double left = mini(window::MiniElement::posbar).left;
        input.mouseDown(at(window::MiniElement::posbar, 0, left + 50, 28));
        ui::PointerEvent move = at(window::MiniElement::posbar, 0, left + x, 28);
        move.button = ui::MouseButton::None;
        input.mouseMove(move);
        input.mouseUp(at(window::MiniElement::posbar, 0, left + x, 28));
    }

    NotedArea area_;
    NotedPopup popup_;

private:
    window::Shell parts_{.area = area_, .popup = popup_};
    std::size_t seenCalls_ = 0;
};

} // namespace tovik::test
