// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a file of shortcuts: fields, each followed by a NUL, and one NUL before them all.
// Any thread.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tovik::menus {

/// Makes the bytes record by record.
class ShortcutWriter {
public:
    ShortcutWriter();

    /// An item without a key, by its number.
    void add(int number, std::string_view accelerator);

    /// An item by its key.
    void add(std::string_view key, std::string_view accelerator);

    [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }

private:
    void field(std::string_view text);

    std::string bytes_;
};

struct ShortcutRecord {
    bool byKey = false;
    std::string_view item; ///< its key, or its number in decimal
    std::string_view accelerator;
};

/// Takes each record in its order, up to the first that is of no known kind; one that the bytes end
/// in is passed over. Returns whether the bytes are such a file and all records were known.
bool readShortcuts(std::string_view bytes, const std::function<void(const ShortcutRecord&)>& take);

} // namespace tovik::menus
