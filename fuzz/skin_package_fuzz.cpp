// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a skin package: its entries are read, and a package made of those whose
// names may be used holds the same.
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "skin/Huffman.h"
#include "skin/SkinPackage.h"

#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace tovik;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// What can be unpacked, up to the first fault. Large files are left out: they take time and show
/// nothing new.
std::vector<skin::SkinFile> filesIn(const std::string& bytes) {
    constexpr std::size_t kMostBytes = 1 << 16;
    std::vector<skin::SkinFile> files;
    std::set<std::string> names;
    try {
        skin::SkinPackageReader reader(bytes);
        demand(bytes.starts_with(reader.header().bytes));
        for (int count = reader.header().fileCount; count > 0; --count) {
            const skin::SkinPackageEntry entry = reader.next();
            std::string data = skin::HuffmanDecodeString(entry.payload);
            if (skin::staysInFolder(entry.fileName) && data.size() < kMostBytes &&
                names.insert(base::toLowerAscii(entry.fileName)).second) {
                files.push_back({std::string(entry.fileName), std::move(data)});
            }
        }
    } catch (const base::RuntimeError&) { // NOLINT(bugprone-empty-catch): a fault ends the package
    }
    return files;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<skin::SkinFile> files = filesIn(std::string(data, data + size));
    const std::vector<skin::SkinFile> again = filesIn(skin::skinPackage(files, "about"));
    demand(again.size() == files.size());
    for (std::size_t file = 0; file < files.size(); ++file) {
        demand(again[file].name == files[file].name && again[file].data == files[file].data);
    }
    return 0;
}
