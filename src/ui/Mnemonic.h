// SPDX-License-Identifier: GPL-3.0-or-later
// The letter of a caption that a key chooses: the one behind "&"; "&&" is the sign itself. Any
// thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovik::ui {

struct Mnemonic {
    std::string text;                    ///< as it is shown, without the marks
    std::optional<std::size_t> letter{}; ///< where the marked letter begins in `text`, in bytes
};

/// Of several marked letters the last one counts.
[[nodiscard]] inline Mnemonic mnemonicOf(std::string_view caption) {
    Mnemonic result;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&') {
            if (++i == caption.size()) {
                break;
            }
            if (caption[i] != '&') {
                result.letter = result.text.size();
            }
        }
        result.text += caption[i];
    }
    return result;
}

} // namespace tovik::ui
