// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/INI.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "config/Profile.h"

#include <optional>
#include <system_error>

namespace tovik::config {

namespace {

/// The bytes of a file, none for a missing one; nothing when it is there but cannot be read: such a
/// file must not be written over.
std::optional<std::string> bytesOf(const std::string& path) {
    std::string bytes;
    const std::error_code failure = base::readWholeFile(path, bytes);
    if (failure && failure != std::errc::no_such_file_or_directory) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace

std::string INI::Value() {
    std::string text(base::cutToWidth(
        findProfileValue(bytesOf(Path).value_or(""), Section, Key).value_or(Default),
        kProfileValueWidth));
    lastReturnCode_ = static_cast<std::int32_t>(text.size());
    return text;
}

void INI::Value(std::string_view text) {
    std::string kept(text);
    std::erase(kept, '\0');
    lastReturnCode_ = 0;
    if (const auto bytes = bytesOf(Path)) {
        replace(*bytes, withProfileValue(*bytes, Section, Key, kept));
    }
}

void INI::DeleteValue() {
    lastReturnCode_ = 0;
    if (const auto bytes = bytesOf(Path)) {
        replace(*bytes, withoutProfileKey(*bytes, Section, Key));
    }
}

void INI::DeleteSection() {
    lastReturnCode_ = 0;
    if (const auto bytes = bytesOf(Path)) {
        replace(*bytes, withoutProfileSection(*bytes, Section));
    }
}

std::string INI::INISection() {
    std::string names;
    for (const std::string& name : profileKeys(bytesOf(Path).value_or(""), Section)) {
        names += names.empty() ? name : std::string(1, '\0') + name;
    }
    lastReturnCode_ = static_cast<std::int32_t>(names.size());
    return names;
}

void INI::INISection(std::string_view /*text*/) {
    DeleteSection();
}

void INI::replace(const std::string& before, const std::string& after) {
    const bool done = before == after || !base::replaceFile(Path, after, base::Flush::Yes);
    lastReturnCode_ = done ? 1 : 0;
}

} // namespace tovik::config
