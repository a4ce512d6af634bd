// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/FindFiles.h"

#include "base/PathText.h"
#include "base/Text.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <set>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace tovik::playlist {

namespace {

struct Entry {
    std::string name;
    std::string lower; ///< in lower case, by which it is ordered and found
    bool folder = false;
};

/// What a folder holds, in order. Links count as what they lead to.
std::vector<Entry> entriesOf(const std::string& folder) {
    std::vector<Entry> entries;
    std::error_code failure;
    for (std::filesystem::directory_iterator at(folder, failure), end; !failure && at != end;
         at.increment(failure)) {
        std::error_code unknown;
        const bool isFolder = at->is_directory(unknown);
        if (isFolder || at->is_regular_file(unknown)) {
            std::string name = at->path().filename().native();
            std::string lower = base::toLowerAscii(name);
            entries.push_back({std::move(name), std::move(lower), isFolder});
        }
    }
    std::ranges::sort(entries, [](const Entry& one, const Entry& other) {
        return std::tie(one.lower, one.name) < std::tie(other.lower, other.name);
    });
    return entries;
}

/// A deliberate oddity: files come by the patterns that they hold, so all of one kind before those
/// of the next, unless `FileLimits::byFolder` lets them come as they lie.
class Walk {
public:
    Walk(std::span<const std::string> patterns, const FileLimits& limits) : limits_(limits) {
        for (const std::string& pattern : patterns) {
            patterns_.push_back(base::toLowerAscii(pattern));
        }
        found_.resize(patterns_.size());
    }

    /// A list of folders to do instead of calls within calls: a tree may be thousands deep.
    void take(const std::string& root, const std::atomic<bool>& stop) {
        std::vector<std::string> folders{root};
        while (!folders.empty() && !stop) {
            const std::string folder = std::move(folders.back());
            folders.pop_back();
            if (isNew(folder)) {
                takeFolder(folder, folders);
            }
        }
    }

    [[nodiscard]] std::vector<std::string> found() && {
        std::vector<std::string> all;
        for (std::vector<std::string>& paths : found_) {
            std::ranges::move(paths, std::back_inserter(all));
        }
        return all;
    }

private:
    [[nodiscard]] bool isNew(const std::string& folder) {
        struct stat facts {};

        return ::stat(folder.c_str(), &facts) == 0 &&
               seen_.emplace(facts.st_dev, facts.st_ino).second;
    }

    void takeFolder(const std::string& folder, std::vector<std::string>& folders) {
        const std::vector<Entry> entries = entriesOf(folder);
        for (const Entry& entry : entries) {
            if (!entry.folder) {
                takeFile(folder, entry);
            }
        }
        // NOLINTNEXTLINE(modernize-loop-convert): clang 14 knows no reversed view of this library
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            if (entry->folder && limits_.below) {
                folders.push_back(base::joinPath(folder, entry->name));
            }
        }
    }

    void takeFile(const std::string& folder, const Entry& entry) {
        std::string path;
        for (std::size_t n = 0; n < patterns_.size(); ++n) {
            if (entry.lower.find(patterns_[n]) == std::string::npos) {
                continue;
            }
            if (path.empty()) {
                path = base::joinPath(folder, entry.name);
                if (!counts(path, entry)) {
                    return;
                }
            }
            if (limits_.byFolder) {
                found_.front().push_back(path);
                return;
            }
            found_[n].push_back(path);
        }
    }

    [[nodiscard]] bool counts(const std::string& path, const Entry& entry) const {
        if (limits_.excludeHidden && entry.name.starts_with('.')) {
            return false;
        }
        const std::int64_t most =
            limits_.maxSize == -1 ? std::numeric_limits<std::int32_t>::max() : limits_.maxSize;

        struct stat facts {};

        return ::stat(path.c_str(), &facts) == 0 && facts.st_size >= limits_.minSize &&
               facts.st_size <= most;
    }

    FileLimits limits_;
    std::vector<std::string> patterns_;
    std::vector<std::vector<std::string>> found_; ///< by pattern
    std::set<std::pair<dev_t, ino_t>> seen_;
};

} // namespace

std::vector<std::string> filesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (Entry& entry : entriesOf(folder)) {
        if (!entry.folder) {
            names.push_back(std::move(entry.name));
        }
    }
    return names;
}

std::vector<std::string> FindFiles(const std::string& root, std::span<const std::string> patterns,
                                   const FileLimits& limits, const std::atomic<bool>& stop) {
    Walk walk(patterns, limits);
    walk.take(root, stop);
    return std::move(walk).found();
}

} // namespace tovik::playlist
