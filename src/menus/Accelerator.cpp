// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/Accelerator.h"

#include "base/Text.h"
#include "ui/WindowInput.h"

#include <algorithm>
#include <array>

namespace tovik::menus {

namespace {

struct Named {
    std::string_view name;
    int number;
};

/// In the order in which they are written.
constexpr auto kModifiers = std::to_array<Named>({
    {"Ctrl", AcceleratorKey::kCtrl},
    {"Alt", AcceleratorKey::kAlt},
    {"Shift", AcceleratorKey::kShift},
});

constexpr auto kKeys = std::to_array<Named>({
    {"Backspace", 0x08}, {"Tab", 0x09},  {"Return", 0x0D}, {"Pause", 0x13},   {"Esc", 0x1B},
    {"Space", 0x20},     {"PgUp", 0x21}, {"PgDown", 0x22}, {"End", 0x23},     {"Home", 0x24},
    {"Left", 0x25},      {"Up", 0x26},   {"Right", 0x27},  {"Down", 0x28},    {"Ins", 0x2D},
    {"Del", 0x2E},       {"Menu", 0x5D}, {"Num0", 0x60},   {"Num1", 0x61},    {"Num2", 0x62},
    {"Num3", 0x63},      {"Num4", 0x64}, {"Num5", 0x65},   {"Num6", 0x66},    {"Num7", 0x67},
    {"Num8", 0x68},      {"Num9", 0x69}, {"Num*", 0x6A},   {"NumPlus", 0x6B}, {"NumMinus", 0x6D},
    {"Num.", 0x6E},      {"Num/", 0x6F}, {"Plus", 0xBB},   {"Minus", 0xBD},
});

constexpr int kF1 = 0x70;
constexpr int kFunctionKeys = 24;

bool isLetterOrDigit(int code) {
    return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

template <typename Table>
const Named* byName(const Table& table, std::string_view name) {
    const auto found = std::ranges::find_if(
        table, [&](const Named& row) { return base::equalsIgnoringCase(row.name, name); });
    return found == table.end() ? nullptr : &*found;
}

std::string keyName(int code) {
    if (isLetterOrDigit(code)) {
        return {static_cast<char>(code)};
    }
    if (code >= kF1 && code < kF1 + kFunctionKeys) {
        return "F" + std::to_string(code - kF1 + 1);
    }
    const auto* const found =
        std::ranges::find_if(kKeys, [&](const Named& row) { return row.number == code; });
    return found == kKeys.end() ? "" : std::string(found->name);
}

int keyNumber(std::string_view name) {
    const std::string upper = base::toUpperAscii(name);
    if (upper.size() == 1 && isLetterOrDigit(upper.front())) {
        return upper.front();
    }
    for (int i = 0; i < kFunctionKeys; ++i) {
        if (upper == keyName(kF1 + i)) {
            return kF1 + i;
        }
    }
    const Named* const row = byName(kKeys, name);
    return row != nullptr ? row->number : 0;
}

} // namespace

AcceleratorKey acceleratorKeyOf(const ui::KeyEvent& event) noexcept {
    const ui::Modifiers& with = event.modifiers;
    return {.keyCode = event.code,
            .shift = (with.shift ? AcceleratorKey::kShift : 0) |
                     (with.control ? AcceleratorKey::kCtrl : 0) |
                     (with.alt ? AcceleratorKey::kAlt : 0)};
}

std::string acceleratorText(const AcceleratorKey& key) {
    const std::string name = keyName(key.keyCode);
    if (name.empty()) {
        return {};
    }
    std::string text;
    for (const Named& modifier : kModifiers) {
        if ((key.shift & modifier.number) != 0) {
            text.append(modifier.name).append("+");
        }
    }
    return text + name;
}

std::optional<AcceleratorKey> acceleratorOf(std::string_view text) {
    AcceleratorKey key;
    for (std::size_t end = text.find('+'); end != std::string_view::npos; end = text.find('+')) {
        const Named* const modifier = byName(kModifiers, text.substr(0, end));
        if (modifier == nullptr) {
            return std::nullopt;
        }
        key.shift |= modifier->number;
        text.remove_prefix(end + 1);
    }
    key.keyCode = keyNumber(text);
    return key.keyCode != 0 ? std::optional(key) : std::nullopt;
}

bool sameAccelerator(std::string_view one, std::string_view other) {
    if (one.empty() || other.empty()) {
        return false;
    }
    const auto key = acceleratorOf(one);
    return one == other || (key && key == acceleratorOf(other));
}

} // namespace tovik::menus
