// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TypeExport.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "desktop/DesktopEntry.h"
#include "desktop/FileTypes.h"
#include "desktop/MimeApps.h"
#include "desktop/MimeTypes.h"
#include "host/Paths.h"

#include <filesystem>
#include <vector>

namespace tovik::desktop {

namespace fs = std::filesystem;

namespace {

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

/// What `change` makes of a file's bytes, written where it is another.
template <typename Change>
std::error_code changeFile(const std::string& path, const Change& change) {
    std::string bytes;
    if (const auto failure = readIfThere(path, bytes)) {
        return failure;
    }
    const std::string changed = change(bytes);
    return changed == bytes ? std::error_code() : writeWithFolder(path, changed);
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

} // namespace

TypePlaces TypePlaces::of(const host::Environment& environment, const std::string& dataFolder) {
    const std::string data =
        environment.dataHome.empty() ? environment.home + "/.local/share" : environment.dataHome;
    const std::string config =
        environment.configHome.empty() ? environment.home + "/.config" : environment.configHome;
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
        return withDefaults(bytes, typesOf(extensions), kDesktopId);
    });
}

std::error_code forgetTypes(const TypePlaces& places) {
    auto first = changeFile(places.defaults, [](const std::string& bytes) {
        return withoutProgram(bytes, kDesktopId);
    });
    const auto note = [&first](std::error_code failure) {
        if (failure && !first) {
            first = failure;
        }
    };
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

} // namespace tovik::desktop
