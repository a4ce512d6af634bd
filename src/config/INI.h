// SPDX-License-Identifier: GPL-3.0-or-later
// One key of one file of sections and keys. Every call reads the file anew; a call that changes it
// replaces it as a whole. Nothing is raised. Interface thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::config {

class INI {
public:
    std::string Path; ///< of the file, absolute
    std::string Key;
    std::string Section;
    std::string Default; ///< what a missing key reads as

    /// What the last call returned: of a read the number of bytes, of a change 1 for success and
    /// 0 for a failure.
    [[nodiscard]] std::int32_t LastReturnCode() const noexcept { return lastReturnCode_; }

    /// The text of the key, cut to `kProfileValueWidth` bytes; `Default` where it is missing, as
    /// is every key of a missing file.
    [[nodiscard]] std::string Value();

    /// Sets the text of the key, without the zeros in it. Makes section and file where missing.
    void Value(std::string_view text);

    void DeleteValue();

    void DeleteSection();

    /// The names of the section's keys, separated by zeros.
    [[nodiscard]] std::string INISection();

    /// Deletes the section whatever the text is: a change that names no key does so.
    void INISection(std::string_view text);

private:
    void replace(const std::string& before, const std::string& after);

    std::int32_t lastReturnCode_ = 0;
};

} // namespace tovik::config
