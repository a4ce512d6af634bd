// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/IcyFilter.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {
namespace {

constexpr std::size_t kUnit = 16;

} // namespace

void IcyFilter::feed(std::span<const std::byte> bytes, IcySink& sink) {
    if (interval_ == 0) {
        sink.sound(bytes);
        return;
    }
    while (!bytes.empty()) {
        std::size_t taken = 0;
        if (textLeft_ > 0) {
            taken = feedText(bytes, sink);
        } else if (left_ > 0) {
            taken = static_cast<std::size_t>(std::min<std::uint64_t>(left_, bytes.size()));
            sink.sound(bytes.first(taken));
            left_ -= taken;
        } else {
            textLeft_ = std::to_integer<std::size_t>(bytes.front()) * kUnit;
            left_ = interval_;
            taken = 1;
        }
        bytes = bytes.subspan(taken);
    }
}

std::size_t IcyFilter::feedText(std::span<const std::byte> bytes, IcySink& sink) {
    const std::size_t taken = std::min(textLeft_, bytes.size());
    for (const std::byte byte : bytes.first(taken)) {
        text_.push_back(static_cast<char>(byte));
    }
    textLeft_ -= taken;
    if (textLeft_ == 0) {
        const std::string whole = std::exchange(text_, {});
        const std::string_view text = std::string_view(whole).substr(0, whole.find('\0'));
        if (!text.empty()) {
            sink.metadata(text);
        }
    }
    return taken;
}

} // namespace tovik::sound
