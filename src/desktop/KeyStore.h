// SPDX-License-Identifier: GPL-3.0-or-later
// What the program claims of file types: keys with named values, as registries of classes have
// them. Pure; one thread at a time.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tovik::desktop {

/// The root below which all keys of file types lie.
inline constexpr std::int32_t kClassesRoot = INT32_MIN;

/// The name of a key's default value.
inline constexpr std::string_view kDefaultValue{};

class KeyStore {
public:
    /// The values of one key, by name.
    using Values = std::map<std::string, std::string, std::less<>>;

    /// Makes the key where it is missing, and sets the value.
    void WriteKey(const std::string& key, const std::string& valueName, const std::string& text);

    /// The same for the default value of `valueName` below the key, or of the key itself where that
    /// is empty. There is one root.
    void WriteDefault(std::int32_t root, const std::string& key, const std::string& valueName,
                      const std::string& text);

    /// The value; empty where there is none.
    [[nodiscard]] std::string value(std::string_view key,
                                    std::string_view valueName = kDefaultValue) const;

    [[nodiscard]] bool has(std::string_view key) const { return keys_.contains(key); }

    [[nodiscard]] const std::map<std::string, Values, std::less<>>& keys() const { return keys_; }

    /// As the bytes of a file: "[key]", then "name=text" a line, the default value as "@=text".
    [[nodiscard]] std::string bytes() const;

    /// Reads such bytes; lines that are neither are passed over.
    [[nodiscard]] static KeyStore fromBytes(std::string_view bytes);

    bool operator==(const KeyStore&) const = default;

private:
    std::map<std::string, Values, std::less<>> keys_;
};

} // namespace tovik::desktop
