// SPDX-License-Identifier: GPL-3.0-or-later
// The PLS format, as bytes. Pure; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

/// What the file says of an entry; each may be missing.
struct PlsEntry {
    std::optional<std::string_view> file{};
    std::optional<std::string_view> title{};
    std::optional<std::string_view> length{};
};

/// The keys of the first section "playlist", found by name in any case of letters, wherever they
/// stand; of two of a name the first counts. A value is what stands behind "=" to the end of the
/// line, so that nothing of a name is lost; the blanks before it are dropped where the key has
/// blanks before the "=", too. The text must outlive the object.
class PlsKeys {
public:
    explicit PlsKeys(std::string_view text);

    /// Whether there is such a section.
    [[nodiscard]] bool isPlaylist() const noexcept { return isPlaylist_; }

    /// The value of "NumberOfEntries"; nothing where it is missing.
    [[nodiscard]] std::optional<std::string_view> numberOfEntries() const noexcept {
        return numberOfEntries_;
    }

    /// The highest number that any key bears; 0 for none.
    [[nodiscard]] std::int32_t highestNumber() const noexcept;

    /// The lowest number whose keys were not asked for yet; nothing behind the last.
    [[nodiscard]] std::optional<std::int32_t> nextNumber() const noexcept;

    /// The keys with that number; numbers are asked for in ascending order.
    [[nodiscard]] PlsEntry entry(std::int32_t number);

private:
    enum class Kind : std::uint8_t { File, Title, Length };

    struct Key {
        std::int32_t number;
        Kind kind;
        std::string_view value;
    };

    void takeLine(std::string_view line);

    bool isPlaylist_ = false;
    std::optional<std::string_view> numberOfEntries_{};
    std::vector<Key> keys_; ///< by their numbers, those of one number as they stand in the file
    std::size_t next_ = 0;  ///< the first that was not asked for yet
};

/// Appends the line that begins the list.
void appendPlsHead(std::string& list);

/// Appends the three lines of an entry; `number` counts from 1. A line break in a text becomes a
/// blank.
void appendPlsEntry(std::string& list, std::int32_t number, std::int32_t seconds,
                    std::string_view title, std::string_view fileName);

/// Appends the two lines that end the list.
void appendPlsTail(std::string& list, std::int32_t entries);

} // namespace tovik::playlist
