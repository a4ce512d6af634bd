// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/LaidFiles.h"

#include "base/AtomicFile.h"
#include "base/Digest.h"
#include "base/LineReader.h"
#include "base/PathText.h"
#include "base/RegularFile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tovik::host {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMemoryName = "db/laid.txt";
constexpr std::string_view kHead = "Tovik ";

/// What the user and the program write.
constexpr std::string_view kUsersFolder = "db/";

/// A version's numbers, without zeros at its end.
std::vector<unsigned> numbersOf(std::string_view version) {
    std::vector<unsigned> numbers;
    while (!version.empty()) {
        const std::size_t end = std::min(version.find('.'), version.size());
        unsigned number = 0;
        std::from_chars(version.data(), version.data() + end, number);
        numbers.push_back(number);
        version.remove_prefix(std::min(end + 1, version.size()));
    }
    while (!numbers.empty() && numbers.back() == 0) {
        numbers.pop_back();
    }
    return numbers;
}

/// The names of all shipped files that are not the user's from the first day.
std::error_code listShipped(const std::string& shipped, std::vector<std::string>& names) {
    std::error_code failure;
    for (fs::recursive_directory_iterator entry(shipped, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (entry->is_regular_file(failure)) {
            std::string name = entry->path().lexically_relative(shipped).native();
            if (!name.starts_with(kUsersFolder)) {
                names.push_back(std::move(name));
            }
        }
    }
    return failure;
}

std::error_code lay(const std::string& path, std::string_view bytes) {
    std::error_code failure;
    fs::create_directories(base::folderPart(path), failure);
    return failure ? failure : base::replaceFile(path, bytes, base::Flush::No);
}

std::error_code renewFile(const Paths& paths, const std::string& shipped, const std::string& name,
                          LaidFiles& laid) {
    std::string bytes;
    if (const auto failure = base::readWholeFile(base::joinPath(shipped, name), bytes)) {
        return failure;
    }
    const std::string digest = base::digestOf(bytes);
    const std::string path = paths.inside(name);
    std::string there;
    const std::error_code unread = base::readWholeFile(path, there);
    const auto row = laid.digests.find(name);
    const std::string found = unread ? std::string() : base::digestOf(there);
    const bool asLaid = row != laid.digests.end() && found == row->second;
    if (found != digest) {
        if (!asLaid && unread != std::errc::no_such_file_or_directory) {
            return {}; // the user's own, or out of reach
        }
        if (const auto failure = lay(path, bytes)) {
            return failure;
        }
    }
    laid.digests.insert_or_assign(name, digest);
    return {};
}

} // namespace

std::optional<LaidFiles> LaidFiles::fromText(std::string_view text) {
    base::LineReader lines(text);
    const auto head = lines.next();
    if (!head || !head->starts_with(kHead)) {
        return std::nullopt;
    }
    LaidFiles laid{.version = std::string(head->substr(kHead.size())), .digests = {}};
    while (const auto line = lines.next()) {
        const std::size_t blank = line->find(' ');
        if (blank != std::string_view::npos) {
            laid.digests.emplace(line->substr(blank + 1), line->substr(0, blank));
        }
    }
    return laid;
}

std::string LaidFiles::text() const {
    std::string text = std::string(kHead) + version + "\n";
    for (const auto& [name, digest] : digests) {
        text.append(digest).append(" ").append(name).append("\n");
    }
    return text;
}

std::optional<LaidFiles> readLaidFiles(const Paths& paths) {
    constexpr std::int64_t kMostBytes = std::int64_t{1} << 20;
    std::string text;
    if (base::readWholeFile(paths.inside(kMemoryName), text, kMostBytes)) {
        return std::nullopt;
    }
    return LaidFiles::fromText(text);
}

std::error_code writeLaidFiles(const Paths& paths, const LaidFiles& laid) {
    return base::replaceFile(paths.inside(kMemoryName), laid.text(), base::Flush::No);
}

bool isNewer(std::string_view version, std::string_view than) {
    return numbersOf(than) < numbersOf(version);
}

std::error_code renewShippedFiles(const Paths& paths, const std::string& shipped, LaidFiles& laid,
                                  std::string_view except) {
    std::vector<std::string> names;
    std::error_code first = listShipped(shipped, names);
    std::erase(names, except);
    for (const std::string& name : names) {
        const std::error_code failure = renewFile(paths, shipped, name, laid);
        first = first ? first : failure;
    }
    return first;
}

} // namespace tovik::host
