// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagFrames.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <bit>

namespace tovik::tags {

TagFrames::Id TagFrames::idOf(std::string_view id) noexcept {
    Id bytes{};
    std::copy_n(id.begin(), std::min(id.size(), bytes.size()), bytes.begin());
    return bytes;
}

std::uint32_t TagFrames::keyOf(const Id& id) noexcept {
    return std::bit_cast<std::uint32_t>(id);
}

void TagFrames::clear() {
    *this = {};
}

std::string TagFrames::name(std::size_t index) const {
    if (index >= names_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return {names_[index].begin(), names_[index].end()};
}

std::size_t TagFrames::instances(std::string_view id) const {
    const auto count = counts_.find(keyOf(idOf(id)));
    return count == counts_.end() ? 0 : count->second;
}

std::size_t TagFrames::add(std::string_view id, std::string_view text) {
    const Id bytes = idOf(id);
    std::uint32_t& count = counts_[keyOf(bytes)];
    if (count == 0) {
        names_.push_back(bytes);
    }
    entries_.push_back({bytes, static_cast<std::uint32_t>(texts_.size()),
                        static_cast<std::uint32_t>(text.size())});
    texts_ += text;
    return ++count;
}

TagFrames::Entries::const_iterator TagFrames::find(const Id& id, std::size_t instance) const {
    std::size_t seen = 0;
    return std::find_if(entries_.begin(), entries_.end(),
                        [&](const Entry& entry) { return entry.id == id && ++seen == instance; });
}

std::optional<std::string_view> TagFrames::text(std::string_view id, std::size_t instance) const {
    const auto entry = find(idOf(id), instance);
    if (entry == entries_.end()) {
        return std::nullopt;
    }
    return std::string_view(texts_).substr(entry->at, entry->length);
}

void TagFrames::removeName(const Id& id) {
    counts_.erase(keyOf(id));
    names_.erase(std::find(names_.begin(), names_.end(), id));
}

bool TagFrames::removeAll(std::string_view id) {
    const Id bytes = idOf(id);
    if (std::erase_if(entries_, [&](const Entry& entry) { return entry.id == bytes; }) == 0) {
        return false;
    }
    removeName(bytes);
    return true;
}

bool TagFrames::remove(std::string_view id, std::size_t instance) {
    const Id bytes = idOf(id);
    const auto entry = find(bytes, instance);
    if (entry == entries_.end()) {
        return false;
    }
    entries_.erase(entry);
    if (--counts_[keyOf(bytes)] == 0) {
        removeName(bytes);
    }
    return true;
}

void TagFrames::forEach(
    const std::function<void(std::string_view id, std::string_view text)>& take) const {
    std::unordered_map<std::uint32_t, std::size_t> places;
    for (const Id& name : names_) {
        places.emplace(keyOf(name), places.size());
    }
    Entries ordered = entries_;
    std::stable_sort(ordered.begin(), ordered.end(), [&](const Entry& left, const Entry& right) {
        return places[keyOf(left.id)] < places[keyOf(right.id)];
    });
    for (const Entry& entry : ordered) {
        take({entry.id.data(), entry.id.size()},
             std::string_view(texts_).substr(entry.at, entry.length));
    }
}

} // namespace tovik::tags
