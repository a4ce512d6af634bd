// SPDX-License-Identifier: GPL-3.0-or-later
// Asks for a folder that files are to go to. Interface thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::preferences {

class frmRipDir {
public:
    /// What the window bears until a language names it.
    static constexpr std::string_view kCaption = "Çıktı yolunu değiştir";

    enum class Button : std::uint8_t { ok, cancel }; ///< by the index of `Command1`

    /// The next opening begins with that folder; nothing is chosen yet.
    void begin(std::string folder) {
        folder_ = std::move(folder);
        chosen_.reset();
    }

    [[nodiscard]] const std::string& folder() const { return folder_; }

    /// Whether a folder may be taken: its path begins at the root. It need not exist yet.
    [[nodiscard]] static bool mayTake(std::string_view folder) { return folder.starts_with('/'); }

    /// Returns whether the window closes.
    bool Command1_Click(Button button, const std::string& folder);

    /// What was chosen since `begin`.
    [[nodiscard]] const std::optional<std::string>& chosen() const { return chosen_; }

private:
    std::string folder_;
    std::optional<std::string> chosen_;
};

} // namespace tovik::preferences
