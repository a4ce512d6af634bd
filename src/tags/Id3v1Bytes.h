// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of an ID3v1.1 tag (id3.org/ID3v1). Pure; any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::tags {

inline constexpr std::size_t kId3v1Bytes = 128;
inline constexpr std::string_view kId3v1Mark = "TAG";

// Of its fields.
inline constexpr std::size_t kTextWidth = 30;
inline constexpr std::size_t kYearWidth = 4;
inline constexpr std::size_t kCommentWidth = 28;

/// Texts are bytes.
struct Id3v1Fields {
    std::string title{};
    std::string artist{};
    std::string album{};
    std::string year{};
    std::string comment{};
    std::uint8_t genre = 0;
    std::uint8_t track = 0;
};

/// Texts are cut at their width and filled with blanks.
[[nodiscard]] std::string id3v1Bytes(const Id3v1Fields& fields);

} // namespace tovik::tags
