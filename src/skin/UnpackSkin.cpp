// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/UnpackSkin.h"

#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "skin/Huffman.h"
#include "skin/NewFile.h"
#include "skin/SkinPackage.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <utility>

namespace tovik::skin {

namespace fs = std::filesystem;

namespace {

/// A copy of the package's header that lies beside the package while it is being unpacked, and
/// stays when that fails. Nothing reads it.
constexpr std::string_view kScratchName = "skins/base.bin";

constexpr const char* kFailureText = "error!";

/// Where the files of one package go. Names that differ in case alone are one file.
class SkinFolder {
public:
    explicit SkinFolder(std::string folder) : folder_(std::move(folder)) {}

    void put(const SkinPackageEntry& entry) {
        if (!staysInFolder(entry.fileName)) {
            throw base::RuntimeError(base::ErrorNumber::BadFileNameOrNumber);
        }
        const std::string data = HuffmanDecodeString(entry.payload);
        const auto [name, isNew] =
            names_.try_emplace(base::toLowerAscii(entry.fileName), entry.fileName);
        NewFile file(base::joinPath(folder_, name->second));
        file.write(data);
    }

private:
    std::string folder_;
    std::map<std::string, std::string> names_; ///< by the name in lower case
};

void unpack(const host::Paths& paths, const std::string& folder) {
    std::string bytes;
    base::raiseFailure(base::readWholeFile(paths.of(host::DataItem::SkinPackage), bytes));
    const std::string scratchPath = paths.inside(kScratchName);
    std::optional<NewFile> scratch(std::in_place, scratchPath);
    SkinPackageReader package(bytes);
    scratch->write(package.header().bytes);
    scratch.reset();
    if (!package.header().signedAsSkin()) {
        return;
    }
    SkinFolder skin(folder);
    for (int entry = 0; entry < package.header().fileCount; ++entry) {
        skin.put(package.next());
    }
    std::error_code failure;
    fs::remove(scratchPath, failure);
    base::raiseFailure(failure);
}

/// Whether the package had any of them.
bool putFrom(const std::string& path, const std::vector<std::string>& names,
             const std::string& folder) {
    std::string bytes;
    if (base::readWholeFile(path, bytes)) {
        return false;
    }
    SkinPackageReader package(bytes);
    if (!package.header().signedAsSkin()) {
        return false;
    }
    SkinFolder skin(folder);
    bool found = false;
    for (int number = 0; number < package.header().fileCount; ++number) {
        const SkinPackageEntry entry = package.next();
        if (std::ranges::find(names, base::toLowerAscii(entry.fileName)) != names.end()) {
            skin.put(entry);
            found = true;
        }
    }
    return found;
}

} // namespace

bool countsAsUnpacked(const std::string& folder) {
    std::error_code failure;
    bool found = false;
    for (fs::directory_iterator entry(folder, failure), end; !failure && !found && entry != end;
         entry.increment(failure)) {
        found = !fs::is_directory(entry->symlink_status(failure));
    }
    base::raiseFailure(failure);
    return found;
}

void completeSkin(const host::Paths& paths, const std::vector<std::string>& names,
                  const std::vector<std::string>& packages) {
    const std::string folder = paths.of(host::DataItem::CurrentSkin);
    const auto stands = [&folder](const std::string& name) {
        std::error_code failure;
        return fs::exists(fs::symlink_status(base::joinPath(folder, name), failure));
    };
    if (std::ranges::any_of(names, stands)) {
        return;
    }
    for (const std::string& package : packages) {
        try {
            if (putFrom(package, names, folder)) {
                return;
            }
        } catch (const std::exception&) {
            // A damaged one is no worse than none.
            continue;
        }
    }
}

void UnpackSkin(const host::Paths& paths, host::Dialogs& dialogs) {
    const std::string folder = paths.of(host::DataItem::CurrentSkin);
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        throw base::withPlace(base::RuntimeError(base::errorNumberOf(failure)), folder);
    }
    if (countsAsUnpacked(folder)) {
        return;
    }
    try {
        unpack(paths, folder);
    } catch (const std::exception&) {
        dialogs.showMessage({.text = kFailureText, .title = host::kProgramTitle});
    }
}

} // namespace tovik::skin
