// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TypeExport.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "desktop/DesktopEntry.h"
#include "desktop/FileTypes.h"
#include "desktop/MimeApps.h"
#include "desktop/MimeTypes.h"
#include "host/Paths.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <vector>

namespace tovik::desktop {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kRefused = "Refused Types"; ///< a key of the store; its names are types

/// Makes what desktops remember of their entries true again. Where it is missing they look anew by
/// themselves, a little later.
constexpr const char* kEntriesChanged = "update-desktop-database";

/// A file that is not there reads as empty; any other failure is one.
std::error_code readIfThere(const std::string& path, std::string& bytes) {
    const std::error_code failure = base::readWholeFile(path, bytes);
    return failure == std::errc::no_such_file_or_directory ? std::error_code() : failure;
}

std::error_code writeWithFolder(const std::string& path, const std::string& bytes) {
    std::error_code failure;
    fs::create_directories(fs::path(path).parent_path(), failure);
    return failure ? failure : base::replaceFile(path, bytes, base::Flush::Yes);
}

/// What `change` makes of a file's bytes, written where it is another; a file of which nothing is
/// left goes.
template <typename Change>
std::error_code changeFile(const std::string& path, const Change& change) {
    std::string bytes;
    if (const auto failure = readIfThere(path, bytes)) {
        return failure;
    }
    const std::string changed = change(bytes);
    if (changed == bytes) {
        return {};
    }
    std::error_code failure;
    if (changed.empty() && !fs::is_symlink(path, failure)) {
        fs::remove(path, failure);
        return failure;
    }
    return writeWithFolder(path, changed);
}

std::vector<std::string> typesOf(std::span<const std::string> extensions) {
    std::vector<std::string> types;
    for (const std::string& extension : extensions) {
        const auto some = mimeTypesOf(extension);
        types.insert(types.end(), some.begin(), some.end());
    }
    return types;
}

std::string entryFile(const TypePlaces& places) {
    return places.applications + "/" + std::string(kDesktopId);
}

/// Remembers which of the types the user took from the program, so that they are so again once
/// they are forgotten.
std::error_code noteRefused(KeyStore& store, const std::string& defaults,
                            std::span<const std::string> types) {
    std::string bytes;
    if (const auto failure = readIfThere(defaults, bytes)) {
        return failure;
    }
    for (const std::string& type : refusedTypes(bytes, types, kDesktopId)) {
        store.WriteKey(std::string(kRefused), type, {});
    }
    return {};
}

std::vector<std::string> notedRefused(const KeyStore& store) {
    std::vector<std::string> types;
    if (const auto found = store.keys().find(kRefused); found != store.keys().end()) {
        std::ranges::transform(found->second, std::back_inserter(types),
                               [](const auto& value) { return value.first; });
    }
    return types;
}

} // namespace

TypePlaces TypePlaces::of(const host::Environment& environment, const std::string& dataFolder) {
    const std::string data = host::folderOf(environment.dataHome, environment.home, ".local/share");
    const std::string config = host::folderOf(environment.configHome, environment.home, ".config");
    return {.store = host::Paths(dataFolder).of(host::DataItem::Classes),
            .applications = data + "/applications",
            .defaults = config + "/mimeapps.list"};
}

std::error_code claimTypes(const TypePlaces& places, std::span<const std::string> extensions,
                           const std::string& programPath, const std::string& iconSpec) {
    std::string kept;
    if (const auto failure = readIfThere(places.store, kept)) {
        return failure;
    }
    KeyStore store = KeyStore::fromBytes(kept);
    associate(store, extensions, programPath, iconSpec);
    const std::vector<std::string> types = typesOf(extensions);
    if (const auto failure = noteRefused(store, places.defaults, types)) {
        return failure;
    }
    if (const auto failure = writeWithFolder(places.store, store.bytes())) {
        return failure;
    }
    if (claimedExtensions(store).empty()) {
        return {};
    }
    const auto failure = changeFile(entryFile(places), [&](const std::string& bytes) {
        const bool own = bytes.empty() || bytes.find(kOwnEntryMark) != std::string::npos;
        return own ? desktopEntry(store) : bytes;
    });
    if (failure) {
        return failure;
    }
    return changeFile(places.defaults, [&](const std::string& bytes) {
        return withDefaults(bytes, types, kDesktopId);
    });
}

std::error_code forgetTypes(const TypePlaces& places) {
    std::string kept;
    const std::error_code unread = readIfThere(places.store, kept);
    const std::vector<std::string> refused = notedRefused(KeyStore::fromBytes(kept));
    auto first = changeFile(places.defaults, [&](const std::string& bytes) {
        return withoutProgram(bytes, kDesktopId, refused);
    });
    const auto note = [&first](std::error_code failure) {
        if (failure && !first) {
            first = failure;
        }
    };
    note(unread);
    std::string entry;
    note(readIfThere(entryFile(places), entry));
    std::error_code failure;
    if (entry.find(kOwnEntryMark) != std::string::npos) {
        fs::remove(entryFile(places), failure);
        note(failure);
    }
    fs::remove(places.store, failure);
    note(failure);
    return first;
}

void tellOfEntries(host::Programs& programs, const TypePlaces& places) {
    static_cast<void>(programs.start(kEntriesChanged, {places.applications}));
}

void tellOfForgotten(host::Programs& programs, const TypePlaces& places) {
    std::error_code failure;
    if (fs::exists(places.applications + "/mimeinfo.cache", failure)) {
        tellOfEntries(programs, places);
    }
}

} // namespace tovik::desktop
