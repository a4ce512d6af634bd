// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListNames.h"

#include "base/PathText.h"
#include "base/Text.h"
#include "base/Url.h"
#include "playlist/FileNames.h"

#include <algorithm>
#include <optional>

namespace tovik::playlist {

namespace {

constexpr std::string_view kFileScheme = "file://";
constexpr std::string_view kHere = "./";
constexpr std::string_view kServer = R"(\\)";
constexpr std::string_view kBehindScheme = "://";
constexpr std::string_view kCdExtension = "cda";

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// "C:\Music" or "\\server\music".
bool isOfOtherSystem(std::string_view name) {
    const bool hasDrive = name.size() > 2 && isLetter(name[0]) && name[1] == ':' &&
                          (name[2] == '\\' || name[2] == '/');
    return hasDrive || name.starts_with(kServer);
}

bool isCdTrack(std::string_view name) {
    return base::equalsIgnoringCase(get_extension(name), kCdExtension);
}

/// With "/" between its folders. In what begins at the root or with "./" a "\" beside them is a
/// letter: other systems write neither.
std::string slashed(std::string_view name) {
    std::string path(name);
    const bool ownSystem = name.starts_with('/') || name.starts_with(kHere);
    if (!ownSystem && !isOfOtherSystem(name) && !isCdTrack(name)) {
        std::ranges::replace(path, '\\', '/');
    }
    return path;
}

/// From the folder, if the name is relative.
std::string placed(const std::string& name, std::string_view folder) {
    return name.empty() || isOfOtherSystem(name) || isCdTrack(name)
               ? name
               : base::absolutePath(name, folder);
}

/// Where the path of an address begins, or would; 0 for what is none.
std::size_t pathOnServer(std::string_view address) {
    if (!base::isUrl(address)) {
        return 0;
    }
    const std::size_t server = address.find(kBehindScheme) + kBehindScheme.size();
    return std::min(address.find('/', server), address.size());
}

/// A relative reference from the folder of a server (RFC 3986, 5.2; dots stay for the server).
std::string placedOnServer(std::string_view reference, std::string_view folder) {
    if (reference.starts_with("//")) {
        return std::string(folder.substr(0, folder.find(':') + 1)).append(reference);
    }
    if (reference.starts_with('/')) {
        return std::string(folder.substr(0, pathOnServer(folder))).append(reference);
    }
    return std::string(folder).append(folder.ends_with('/') ? "" : "/").append(reference);
}

/// The path from the folder to a file below it.
std::optional<std::string_view> below(std::string_view fileName, std::string_view folder) {
    if (folder.empty() || isCdTrack(fileName) || !fileName.starts_with(folder)) {
        return std::nullopt;
    }
    std::string_view rest = fileName.substr(folder.size());
    if (!folder.ends_with('/')) {
        if (!rest.starts_with('/')) {
            return std::nullopt;
        }
        rest.remove_prefix(1);
    }
    // In front of a name it would be no part of it.
    return rest.empty() || rest.starts_with(kHere) ? std::nullopt : std::optional(rest);
}

/// Whether a line of a list holds a path as it is. What no file can be named is left alone.
bool fitsLine(std::string_view path) {
    return !path.starts_with('/') || path.find('\0') != std::string_view::npos ||
           (!path.ends_with(' ') && path.find_first_of("\r\n") == std::string_view::npos);
}

/// Letters, digits and "-._~/" alone; the others as "%" and two digits.
std::string escaped(std::string_view path) {
    return base::fileUrl(path).substr(kFileScheme.size());
}

/// What an escaped relative reference stands for; where an escape is none, the text itself.
std::string unescaped(const std::string& reference) {
    // Only an absolute path is an address.
    const auto path = base::pathFromFileUrl(std::string(kFileScheme) + '/' + reference);
    return path ? path->substr(1) : reference;
}

} // namespace

std::string resolvedName(std::string_view name, std::string_view folder) {
    if (auto path = base::pathFromFileUrl(name)) {
        return *std::move(path);
    }
    return base::isUrl(name) ? std::string(name) : placed(slashed(name), folder);
}

std::string nameInList(std::string_view fileName, std::string_view folder) {
    if (!fitsLine(fileName)) {
        return base::fileUrl(fileName);
    }
    const std::optional<std::string_view> path = below(fileName, folder);
    if (!path) {
        return std::string(fileName);
    }
    // What would be taken for a comment, an address, another system's name or a folder is told to
    // be a name.
    const bool isPlain = !path->starts_with('#') && !path->starts_with('/') &&
                         !path->starts_with(' ') && !path->starts_with('\t') &&
                         path->find(':') == std::string_view::npos &&
                         path->find('\\') == std::string_view::npos;
    return (isPlain ? "" : std::string(kHere)).append(*path);
}

std::string resolvedReference(std::string_view reference, std::string_view folder) {
    if (auto path = base::pathFromFileUrl(reference)) {
        return *std::move(path);
    }
    if (base::isUrl(reference)) {
        return std::string(reference);
    }
    return base::isWebUrl(folder) ? placedOnServer(reference, folder)
                                  : placed(unescaped(slashed(reference)), folder);
}

std::string baseFolder(std::string_view reference, std::string_view outer) {
    std::string whole = resolvedReference(reference, outer);
    if (base::isWebUrl(whole)) {
        whole.erase(std::min(whole.find_first_of("?#"), whole.size()));
    } else if (!whole.starts_with('/')) {
        return std::string(outer); // of another system or kind: nothing here counts from there
    }
    const std::string_view part = base::lastPart(whole);
    if (part.empty() || part == "..") {
        return whole;
    }
    // Without a path it is the server itself.
    const std::size_t path = pathOnServer(whole);
    const std::size_t end = whole.size() - part.size();
    return end < path ? whole : whole.substr(0, end);
}

bool canBePlayed(std::string_view file) {
    return file.starts_with('/') || base::isWebUrl(file) || isCdTrack(file);
}

std::string referenceInList(std::string_view fileName, std::string_view folder) {
    if (base::isUrl(fileName)) {
        return std::string(fileName);
    }
    if (const std::optional<std::string_view> path = below(fileName, folder)) {
        // What would begin an absolute path is told to be a name.
        const bool isPlain = !path->starts_with('/') && !isOfOtherSystem(*path);
        return (isPlain ? "" : std::string(kHere)) + escaped(*path);
    }
    return fileName.starts_with('/') ? base::fileUrl(fileName) : escaped(fileName);
}

} // namespace tovik::playlist
