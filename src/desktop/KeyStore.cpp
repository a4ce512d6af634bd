// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/KeyStore.h"

#include <algorithm>
#include <stdexcept>

namespace tovik::desktop {

namespace {

constexpr std::string_view kDefaultMark = "@";
constexpr std::string_view kLineEnd = "\r\n";

/// A line of the file holds it whole.
std::string oneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return text;
}

} // namespace

void KeyStore::WriteKey(const std::string& key, const std::string& valueName,
                        const std::string& text) {
    keys_[oneLine(key)][oneLine(valueName)] = oneLine(text);
}

void KeyStore::WriteDefault(std::int32_t root, const std::string& key, const std::string& valueName,
                            const std::string& text) {
    if (root != kClassesRoot) {
        throw std::invalid_argument("a key below no root of classes");
    }
    WriteKey(valueName.empty() ? key : key + "\\" + valueName, std::string(kDefaultValue), text);
}

std::string KeyStore::value(std::string_view key, std::string_view valueName) const {
    const auto found = keys_.find(key);
    if (found == keys_.end()) {
        return {};
    }
    const auto named = found->second.find(valueName);
    return named == found->second.end() ? std::string() : named->second;
}

std::string KeyStore::bytes() const {
    std::string text;
    for (const auto& [key, values] : keys_) {
        text.append("[").append(key).append("]").append(kLineEnd);
        for (const auto& [name, value] : values) {
            text.append(name.empty() ? kDefaultMark : std::string_view(name));
            text.append("=").append(value).append(kLineEnd);
        }
    }
    return text;
}

KeyStore KeyStore::fromBytes(std::string_view bytes) {
    KeyStore store;
    std::string key;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            key = line.substr(1, line.size() - 2);
        } else if (!key.empty() && equals != std::string_view::npos) {
            const std::string_view name = line.substr(0, equals);
            store.WriteKey(key, std::string(name == kDefaultMark ? kDefaultValue : name),
                           std::string(line.substr(equals + 1)));
        }
    }
    return store;
}

} // namespace tovik::desktop
