// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/UnpackSkin.h"

#include "base/AtomicFile.h"
#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "skin/Bitmap.h"
#include "skin/Huffman.h"
#include "skin/NewFile.h"
#include "skin/SkinPackage.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
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

void makeFolder(const std::string& folder) {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        throw base::withPlace(base::RuntimeError(base::errorNumberOf(failure)), folder);
    }
}

bool isPicture(const std::string& path) {
    try {
        static_cast<void>(readBitmap(bitmapFile(path)));
        return true;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

/// Those of the names, in lower case, that the folder has no file of; with `asPictures` none that
/// is a picture.
std::set<std::string> lackingIn(const std::string& folder, const std::vector<std::string>& names,
                                bool asPictures) {
    std::set<std::string> lacking;
    for (const std::string& name : names) {
        lacking.insert(base::toLowerAscii(name));
    }
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = base::toLowerAscii(entry->path().filename().string());
        if (lacking.contains(name) && (!asPictures || isPicture(entry->path().string()))) {
            lacking.erase(name);
        }
    }
    return lacking;
}

/// Whether the package, and each entry that is wanted, is whole. Nothing wanted: all are.
bool putWanted(const std::string& path, const std::string& folder,
               const std::set<std::string>& wanted) {
    std::string bytes;
    base::raiseFailure(base::readWholeFile(path, bytes));
    SkinPackageReader package(bytes);
    bool whole = package.header().signedAsSkin();
    for (int left = whole ? package.header().fileCount : 0; left > 0; --left) {
        const SkinPackageEntry entry = package.next();
        if (!staysInFolder(entry.fileName) ||
            (!wanted.empty() && !wanted.contains(base::toLowerAscii(entry.fileName)))) {
            continue;
        }
        try {
            const std::string data = HuffmanDecodeString(entry.payload);
            whole &=
                !base::replaceFile(base::joinPath(folder, entry.fileName), data, base::Flush::No);
        } catch (const base::RuntimeError&) {
            whole = false; // the others may be had all the same
        }
    }
    return whole;
}

} // namespace

bool mendSkin(const host::Paths& paths, const std::vector<std::string>& names) {
    const std::string folder = paths.of(host::DataItem::CurrentSkin);
    makeFolder(folder);
    std::error_code unseen;
    const std::string scratch = paths.inside(kScratchName);
    const std::set<std::string> lacking = lackingIn(folder, names, fs::exists(scratch, unseen));
    bool whole = lacking.empty();
    if (!whole) {
        try {
            whole = putWanted(paths.of(host::DataItem::SkinPackage), folder,
                              countsAsUnpacked(folder) ? lacking : std::set<std::string>());
        } catch (const std::exception&) {
            whole = false;
        }
    }
    if (whole) {
        fs::remove(scratch, unseen);
    }
    return whole;
}

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
    makeFolder(folder);
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
