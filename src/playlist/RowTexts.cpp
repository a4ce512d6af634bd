// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/RowTexts.h"

#include "base/RuntimeError.h"

#include <cstring>
#include <limits>

namespace tovik::playlist {

namespace {

using Length = std::uint32_t;
using Texts = std::array<std::string_view, kRowTexts>;
constexpr std::size_t kHead = kRowTexts * sizeof(Length);

constexpr std::size_t indexOf(RowText which) {
    return static_cast<std::size_t>(which);
}

Texts textsIn(const char* block) noexcept {
    Texts texts;
    const char* begin = block + kHead;
    for (std::size_t n = 0; n < kRowTexts; ++n) {
        Length length = 0;
        std::memcpy(&length, block + n * sizeof(Length), sizeof(Length));
        texts[n] = {begin, length};
        begin += length;
    }
    return texts;
}

} // namespace

std::unique_ptr<RowTexts::Bytes> RowTexts::packed(const Texts& texts) {
    std::size_t size = kHead;
    for (const std::string_view text : texts) {
        if (text.size() > std::numeric_limits<Length>::max()) {
            throw base::RuntimeError(base::ErrorNumber::Overflow);
        }
        size += text.size();
    }
    auto block = std::make_unique_for_overwrite<Bytes>(size);
    char* end = block.get() + kHead;
    for (std::size_t n = 0; n < kRowTexts; ++n) {
        const auto length = static_cast<Length>(texts[n].size());
        std::memcpy(block.get() + n * sizeof(Length), &length, sizeof(Length));
        end = texts[n].copy(end, length) + end;
    }
    return block;
}

RowTexts::RowTexts(std::string_view itemData, std::string_view fileName, std::string_view title,
                   std::string_view timeText)
    : block_(packed({itemData, fileName, title, timeText})) {}

std::string_view RowTexts::get(RowText which) const noexcept {
    return block_ ? textsIn(block_.get())[indexOf(which)] : std::string_view();
}

void RowTexts::set(RowText which, std::string_view text) {
    Texts texts = block_ ? textsIn(block_.get()) : Texts{};
    texts[indexOf(which)] = text;
    block_ = packed(texts);
}

} // namespace tovik::playlist
