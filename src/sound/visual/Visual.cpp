// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/Visual.h"

#include "sound/visual/PluginName.h"

#include <algorithm>

namespace tovik::sound {

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;

/// Nobody has so much to say in one turn.
constexpr int kMostAnswers = 8;

} // namespace

Visual::Visual(const std::string& program, std::string_view plugin, std::string_view settings,
               int width, int height)
    : helper_(program, kHelperRuns, {std::string(plugin), std::string(settings)}) {
    if (!resize(width, height)) {
        end();
    }
}

bool Visual::resize(int width, int height) {
    if (ended_) {
        return false;
    }
    // Whatever comes of it, what was drawn before is no picture any more.
    ++number_;
    lost_ += asked_ ? 1 : 0;
    asked_ = false;
    finished_ = false;
    return picture_.make(width, height) && tell({.kind = HelperOrderKind::resize,
                                                 .number = number_,
                                                 .x = width,
                                                 .y = height,
                                                 .sound = {}},
                                                picture_.descriptor());
}

/// An order that is no picture.
bool Visual::tell(const HelperOrder& order, int descriptor) {
    const bool told = helper_.send(order, descriptor);
    owed_ += told ? 1 : 0;
    return told;
}

bool Visual::ask(const HeardSound& heard) {
    if (!free()) {
        return false;
    }
    asked_ = helper_.send(
        {.kind = HelperOrderKind::render, .number = number_, .x = 0, .y = 0, .sound = heard});
    return asked_;
}

VisualNews Visual::take() {
    bool drawn = false;
    for (int i = 0; i < kMostAnswers && !ended_; ++i) {
        HelperAnswer answer;
        std::size_t length = 0;
        switch (helper_.receive(answer, length)) {
        case HelperProcess::Got::nothing:
            return drawn ? VisualNews::picture : VisualNews::nothing;
        case HelperProcess::Got::end:
            end();
            return VisualNews::ended;
        case HelperProcess::Got::answer:
            break;
        }
        if (answer.head.kind == HelperAnswerKind::named && !named_) {
            named_ = true;
            name_ = pluginName({answer.text.data(), length});
        } else if (answer.head.kind == HelperAnswerKind::taken && owed_ > 0) {
            --owed_;
        } else if (answer.head.kind == HelperAnswerKind::drawn && answer.head.number == number_ &&
                   asked_) {
            asked_ = false;
            finished_ = true;
            drawn = true;
        } else if (answer.head.kind == HelperAnswerKind::drawn && answer.head.number != number_ &&
                   lost_ > 0) {
            --lost_;
        } else {
            end(); // it says what nobody asked for
        }
    }
    if (ended_) {
        return VisualNews::ended;
    }
    return drawn ? VisualNews::picture : VisualNews::nothing;
}

bool Visual::show(const VisualSurface& surface) const {
    if (!finished_ || asked_ || picture_.pixels() == nullptr || surface.width != picture_.width() ||
        surface.height != picture_.height() ||
        surface.pixels.size() <
            static_cast<std::size_t>(surface.width) * static_cast<std::size_t>(surface.height)) {
        return false;
    }
    const std::size_t count =
        static_cast<std::size_t>(surface.width) * static_cast<std::size_t>(surface.height);
    std::transform(picture_.pixels(), picture_.pixels() + count, surface.pixels.begin(),
                   [](std::uint32_t pixel) { return pixel | kOpaque; });
    return true;
}

bool Visual::click(int x, int y) {
    return !ended_ &&
           tell({.kind = HelperOrderKind::click, .number = number_, .x = x, .y = y, .sound = {}},
                -1);
}

void Visual::end() {
    ended_ = true;
    asked_ = false;
    helper_.end();
}

} // namespace tovik::sound
