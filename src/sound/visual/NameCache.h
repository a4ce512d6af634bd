// SPDX-License-Identifier: GPL-3.0-or-later
// The names that plug-ins told, kept by the time and the size of their files: whoever has not
// changed is not asked again. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::sound {

/// By which a file is known again.
struct FileStamp {
    std::int64_t size = 0;
    std::int64_t time = 0; ///< of its last change, in nanoseconds

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

class NameCache {
public:
    NameCache() = default;

    /// What such a file holds: a line for each, "size time<tab>path<tab>name". Lines that are none
    /// are left out; of what is too much the beginning counts.
    explicit NameCache(std::string_view bytes);

    static constexpr std::size_t kMostBytes = 1U << 20U;
    static constexpr std::size_t kMostRows = 1000;

    /// The name of a file as it is; an empty one is one, too.
    [[nodiscard]] std::optional<std::string> find(std::string_view path,
                                                  const FileStamp& stamp) const;

    /// Adds a file. One whose path or name has a tab or a line's end cannot be kept.
    void add(std::string_view path, const FileStamp& stamp, std::string_view name);

    /// For the file. Read again it gives the same rows.
    [[nodiscard]] std::string bytes() const;

    [[nodiscard]] std::size_t rows() const noexcept { return rows_.size(); }

    friend bool operator==(const NameCache&, const NameCache&) = default;

private:
    struct Row {
        std::string path;
        FileStamp stamp;
        std::string name;

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::vector<Row> rows_;
};

} // namespace tovik::sound
