// SPDX-License-Identifier: GPL-3.0-or-later
// A window of a few elements for tests, and a logic that writes down what it is told.
#pragma once

#include "ui/ElementTable.h"
#include "ui/WindowInput.h"

#include <array>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace tovik::ui::test {

enum class Small : std::uint16_t { ground, up, down, lamp, title, list, store };

inline constexpr auto kSmallLayout = std::to_array<ElementPlace<Small>>({
    {.name = Small::ground, .box = {0, 0, 200, 100}, .backColour = Colour{10, 20, 30}},
    {.name = Small::title, .kind = ElementKind::Label, .box = {10, 10, 80, 14}},
    {.name = Small::lamp,
     .count = 3,
     .kind = ElementKind::Bar,
     .box = {10, 70, 10, 12},
     .stepLeft = 20.5,
     .backColour = Colour{255, 0, 0}},
    {.name = Small::list,
     .kind = ElementKind::Control,
     .box = {120, 10, 60, 40},
     .textColour = {1, 2, 3},
     .backColour = Colour{4, 5, 6}},
    {.name = Small::up,
     .kind = ElementKind::Button,
     .box = {40, 40, 30, 20},
     .backColour = Colour{0, 0, 255}},
    {.name = Small::down,
     .kind = ElementKind::Button,
     .box = {40, 40, 30, 20},
     .visible = false,
     .checked = true,
     .backColour = Colour{0, 255, 0}},
    {.name = Small::store, .count = 2, .visible = false},
});

class Notes final : public WindowInput {
public:
    std::vector<std::string> lines;
    std::vector<PointerEvent> events;
    std::vector<KeyEvent> keys;
    bool usesKeys = true;
    std::function<void()> onMouseDown;

    void mouseDown(const PointerEvent& event) override {
        note("down", event);
        if (onMouseDown) {
            onMouseDown();
        }
    }

    void mouseMove(const PointerEvent& event) override { note("move", event); }

    void mouseUp(const PointerEvent& event) override { note("up", event); }

    void doubleClick(const PointerEvent& event) override { note("double", event); }

    void wheel(const PointerEvent& event, double notches) override {
        note("wheel", event);
        lines.back() += " by " + number(notches);
    }

    void pointerEntered(ElementAddress element) override {
        lines.push_back("enter " + text(element));
    }

    void pointerLeft(ElementAddress element) override { lines.push_back("leave " + text(element)); }

    bool keyDown(const KeyEvent& event) override {
        keys.push_back(event);
        return usesKeys;
    }

    void closeRequested() override { lines.emplace_back("close"); }

private:
    static std::string number(double value) {
        std::ostringstream stream;
        stream << value;
        return stream.str();
    }

    static std::string text(ElementAddress element) {
        constexpr std::array kNames{"ground", "up", "down", "lamp", "title", "list", "store"};
        return std::string(kNames.at(element.name)) + "(" + std::to_string(element.index) + ")";
    }

    void note(const std::string& what, const PointerEvent& event) {
        events.push_back(event);
        lines.push_back(what + " " + (event.element ? text(*event.element) : "nothing") + " " +
                        number(event.x) + "," + number(event.y));
    }
};

} // namespace tovik::ui::test
