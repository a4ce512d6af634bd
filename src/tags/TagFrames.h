// SPDX-License-Identifier: GPL-3.0-or-later
// The frames of an ID3v2 tag, as texts under their ids. One thread at a time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tovik::tags {

/// Each id stands once, in the order of first appearance, with its instances numbered from 1. An
/// id is four bytes: a longer one is cut, a shorter one filled with zero bytes.
class TagFrames {
public:
    void clear();

    /// How many ids there are.
    [[nodiscard]] std::size_t count() const noexcept { return names_.size(); }

    /// The id at an index counted from 0. Raises 9 where there is none.
    [[nodiscard]] std::string name(std::size_t index) const;

    /// How many instances an id has; 0 for one that is not there.
    [[nodiscard]] std::size_t instances(std::string_view id) const;

    /// Adds an instance and gives its number.
    std::size_t add(std::string_view id, std::string_view text);

    /// The text of an instance; valid until the next change.
    [[nodiscard]] std::optional<std::string_view> text(std::string_view id,
                                                       std::size_t instance) const;

    /// Removes all instances. False when there is none.
    bool removeAll(std::string_view id);

    /// Removes one instance; those behind it count one less. False when there is no such one.
    bool remove(std::string_view id, std::size_t instance);

    /// Each id in its order, with each instance in its order.
    void forEach(const std::function<void(std::string_view id, std::string_view text)>& take) const;

private:
    using Id = std::array<char, 4>;

    // Texts stand one behind the other, so that a tag of many small frames takes little more room
    // than it has in its file. What was removed stays there until the next read.
    struct Entry {
        Id id;
        std::uint32_t at;
        std::uint32_t length;
    };

    using Entries = std::vector<Entry>;

    [[nodiscard]] static Id idOf(std::string_view id) noexcept;
    [[nodiscard]] static std::uint32_t keyOf(const Id& id) noexcept;
    [[nodiscard]] Entries::const_iterator find(const Id& id, std::size_t instance) const;
    void removeName(const Id& id);

    std::vector<Id> names_;
    std::unordered_map<std::uint32_t, std::uint32_t> counts_;
    Entries entries_;
    std::string texts_;
};

} // namespace tovik::tags
