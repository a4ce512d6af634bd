// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/LocaleLanguage.h"

#include <array>
#include <filesystem>
#include <system_error>

namespace tovik::host {

namespace {

constexpr std::string_view kFallback = "English";

/// Language codes of ISO 639-1 and the names that language files bear.
struct Row {
    std::string_view code;
    std::string_view name;
};

constexpr std::array kLanguages{
    Row{"cs", "Czech"},      Row{"da", "Danish"},    Row{"de", "German"},  Row{"el", "Greek"},
    Row{"es", "Spanish"},    Row{"et", "Estonian"},  Row{"fi", "Finnish"}, Row{"fr", "French"},
    Row{"hr", "Croatian"},   Row{"hu", "Hungarian"}, Row{"it", "Italian"}, Row{"lt", "Lithuanian"},
    Row{"lv", "Latvian"},    Row{"nb", "Norwegian"}, Row{"nl", "Dutch"},   Row{"pl", "Polish"},
    Row{"pt", "Portuguese"}, Row{"ro", "Romanian"},  Row{"ru", "Russian"}, Row{"sk", "Slovak"},
    Row{"sl", "Slovenian"},  Row{"sr", "Serbian"},   Row{"sv", "Swedish"}, Row{"tr", "Turkish"},
    Row{"uk", "Ukrainian"},
};

bool hasFile(const Paths& paths, std::string_view name) {
    std::error_code failure;
    const std::string file = "Languages/" + std::string(name) + ".lng";
    return std::filesystem::exists(paths.inside(file), failure);
}

} // namespace

std::string languageOfLocale(std::string_view locale, const Paths& paths) {
    const std::string_view code = locale.substr(0, locale.find_first_of("_.@"));
    for (const Row& row : kLanguages) {
        if (row.code == code && hasFile(paths, row.name)) {
            return std::string(row.name);
        }
    }
    return std::string(kFallback);
}

} // namespace tovik::host
