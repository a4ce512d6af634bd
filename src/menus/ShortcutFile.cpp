// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/ShortcutFile.h"

#include <optional>

namespace tovik::menus {

namespace {

constexpr std::string_view kHeader = "[Pelmo-Menus-Shortcuts]";
constexpr std::string_view kVersion = "[V-1-0-0]";
constexpr std::string_view kByNumber = "I";
constexpr std::string_view kByKey = "K";

/// The fields between the NULs, one after the other.
class Fields {
public:
    explicit Fields(std::string_view bytes) : rest_(bytes) {}

    [[nodiscard]] std::optional<std::string_view> next() {
        if (ended_) {
            return std::nullopt;
        }
        const std::size_t end = rest_.find('\0');
        const std::string_view field = rest_.substr(0, end);
        ended_ = end == std::string_view::npos;
        rest_.remove_prefix(ended_ ? rest_.size() : end + 1);
        // What follows the last NUL is a field only if something is there.
        ended_ = ended_ || rest_.empty();
        return field;
    }

private:
    std::string_view rest_;
    bool ended_ = false;
};

} // namespace

ShortcutWriter::ShortcutWriter() : bytes_(1, '\0') {
    field(kHeader);
    field(kVersion);
}

void ShortcutWriter::field(std::string_view text) {
    bytes_.append(text).push_back('\0');
}

void ShortcutWriter::add(int number, std::string_view accelerator) {
    field(kByNumber);
    field(std::to_string(number));
    field(accelerator);
}

void ShortcutWriter::add(std::string_view key, std::string_view accelerator) {
    field(kByKey);
    field(key);
    field(accelerator);
}

bool readShortcuts(std::string_view bytes, const std::function<void(const ShortcutRecord&)>& take) {
    Fields fields(bytes);
    for (const std::string_view expected : {std::string_view(), kHeader, kVersion}) {
        if (fields.next() != expected) {
            return false;
        }
    }
    while (const auto kind = fields.next()) {
        if (*kind != kByNumber && *kind != kByKey) {
            return false;
        }
        const auto item = fields.next();
        const auto accelerator = item ? fields.next() : std::nullopt;
        if (accelerator) {
            take({.byKey = *kind == kByKey, .item = *item, .accelerator = *accelerator});
        }
    }
    return true;
}

} // namespace tovik::menus
